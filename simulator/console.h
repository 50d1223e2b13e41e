// Standard input and the signals that end a program, as events.
#pragma once

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>

#include <memory>

namespace simulated {

/// Lines typed or piped in. In the background of a terminal nothing is read, since that would stop the
/// program.
class InputLines : public QObject
{
    Q_OBJECT

public:
    explicit InputLines(QObject *parent = nullptr);

Q_SIGNALS:
    void lineRead(const QString &line);
    /// The person at the terminal closed the input. The end of a pipe or file is no reason to end.
    void closedByHand();

private:
    void readAvailable();

    std::unique_ptr<QSocketNotifier> m_notifier;
    QByteArray m_rest;
};

/// SIGINT and SIGTERM.
class EndSignals : public QObject
{
    Q_OBJECT

public:
    explicit EndSignals(QObject *parent = nullptr);
    ~EndSignals() override;

Q_SIGNALS:
    void received();

private:
    int m_readEnd = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace simulated

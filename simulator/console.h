// Standard input and output and termination signals as Qt signals.
#pragma once

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>

#include <memory>

namespace simulated {

/// Standard output, one line at a time, with the time of day before each if that is switched on.
class OutputLines
{
public:
    void setTimestamps(bool on) { m_timestamps = on; }
    void print(const QString &line);

private:
    bool m_timestamps = false;
};

/// Lines of standard input. A background process of a terminal reads nothing, because reading would stop it.
class InputLines : public QObject
{
    Q_OBJECT

public:
    explicit InputLines(QObject *parent = nullptr);

Q_SIGNALS:
    void lineRead(const QString &line);
    /// Standard input was closed at a terminal. Not emitted at the end of a pipe or file.
    void closedByHand();

private:
    void readAvailable();

    std::unique_ptr<QSocketNotifier> m_notifier;
    QByteArray m_rest;
};

/// Emits received() for SIGINT and SIGTERM.
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

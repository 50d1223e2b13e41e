#pragma once

#include "commands.h"

#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QSet>
#include <QTimer>
#include <QVector>

namespace simulated {

struct ScenarioStep
{
    enum class Kind { At, After, WaitModule, WaitParameter, WaitTransfer };

    Kind kind = Kind::After;
    int line = 0;
    int ms = 0; ///< At: since the start, After: since the step before, waits: at most this long, 0 for ever
    quint8 msb = 0;
    quint8 lsb = 0;
    int value = -1; ///< of the parameter waited for; -1: any
    Command command;
    QString text; ///< the line, for messages
};

/// A scenario: commands with the times at which they happen.
///
/// The whole file is checked before anything of it happens.
class Scenario
{
public:
    /// False and one line, with the line number, in problem.
    bool load(const QString &path, QString *problem);
    bool parse(const QString &text, QString *problem);

    const QVector<ScenarioStep> &steps() const { return m_steps; }

private:
    QVector<ScenarioStep> m_steps;
};

class ScenarioPlayer : public QObject
{
    Q_OBJECT

public:
    ScenarioPlayer(const Scenario &scenario, SoundEngine *engine, QObject *parent = nullptr);

    void start();

Q_SIGNALS:
    void printed(const QStringList &lines);
    void finished();
    void quitRequested();
    /// A wait ran out of time.
    void failed(const QString &line);

private:
    void next();
    void advance();
    void perform();
    bool isSatisfied(const ScenarioStep &step) const;
    void checkWait();

    QVector<ScenarioStep> m_steps;
    SoundEngine *m_engine;
    QTimer m_timer;
    QElapsedTimer m_sinceStart;
    int m_index = 0;
    bool m_waiting = false;

    // What has come since the wait before this one ended, so that nothing between two waits is missed.
    QHash<int, QSet<int>> m_parameters;
    int m_transfers = 0;
};

} // namespace simulated

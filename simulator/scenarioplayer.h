#pragma once

#include "scenario.h"

#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QSet>
#include <QTimer>
#include <QVector>

class SoundEngine;

namespace simulated {

/// Plays steps in order.
class ScenarioPlayer : public QObject
{
    Q_OBJECT

public:
    ScenarioPlayer(const Scenario &scenario, SoundEngine *engine, QObject *parent = nullptr);

    void start();
    /// Plays the step after all others.
    void append(const ScenarioStep &step);
    /// Continues with the next step after failed().
    void proceed();

Q_SIGNALS:
    void printed(const QStringList &lines);
    /// The last step has been played.
    void finished();
    void quitRequested();
    /// A command could not send its datagrams. The scenario continues.
    void notSent(const QString &line);
    /// A wait timed out. The scenario stops.
    void failed(const QString &line);

private:
    // Steps that are played from the first to the last, several times.
    struct Block
    {
        QVector<ScenarioStep> steps;
        int current = 0;
        int roundsLeft = 1;
    };

    enum class State {
        Idle,      // all steps are played; append() starts the next one
        Timed,     // the current step runs when the timer ends
        Waiting,   // for the condition of the current step; the timer is its limit
        Satisfied, // as before, and the condition was true at once
        Stopped    // before the start, after a failed wait or after "quit"
    };

    const ScenarioStep &currentStep() const;
    void next();
    void begin(const ScenarioStep &step);
    void advance();
    void onTimer();
    void perform();
    bool isSatisfied(const ScenarioStep &step) const;
    void checkWait();
    void forgetEvents();
    void noteSent(const QByteArray &datagram);

    QVector<Block> m_blocks; // the scenario, then the repeated blocks that are being played
    SoundEngine *m_engine;
    QTimer m_timer;
    QElapsedTimer m_sinceStart;
    State m_state = State::Stopped;
    bool m_isTimed = false; // a step with a time was reached
    bool m_performing = false;

    // What happened since the previous wait finished, so that nothing between two waits is missed.
    QHash<int, QSet<int>> m_parameters;
    QSet<int> m_strikes;
    QHash<int, QSet<int>> m_switches;
    int m_transfers = 0;
};

} // namespace simulated

#pragma once

#include "control/qconnectqmlplugin.h"
#include "soakengine.h"

#include <QElapsedTimer>
#include <QStringList>
#include <QTimer>

#include <functional>

/// The screen's side of the soak: changes levels at a steady rate and looks whether what arrives follows what
/// came before. Lives in the thread of the interface.
class SoakModule
{
public:
    /// waiting tells how many changes have been sent that are neither heard nor lost yet.
    SoakModule(int changesPerSecond, const std::function<quint64()> &waiting);
    Q_DISABLE_COPY(SoakModule)

    QConnectQmlPlugin &plugin() { return m_plugin; }

    /// Sets each level once, so that the engine knows them.
    void introduce();
    void start();
    void stop();
    /// Leaves one change out.
    void plantLostParameter() { ++m_changes; }

    quint64 sent() const { return m_sent; }
    quint64 meters() const { return m_meters; }
    quint64 missingMeters() const { return m_missingMeters; }
    quint64 hits() const { return m_hits; }
    quint64 missingHits() const { return m_missingHits; }
    /// The longest that the interface was late for a timer, in milliseconds.
    qint64 worstDelayMs() const { return m_worstDelayMs; }
    QStringList problems() const { return m_problems; }

private:
    void change();
    void changeSome();
    void takeMeters();
    void takeHit();
    void addProblem(const QString &line);

    QConnectQmlPlugin m_plugin;
    const int m_changesPerSecond;
    const std::function<quint64()> m_waiting;
    QTimer m_timer;
    QElapsedTimer m_since;
    quint64 m_startedAt = 0;
    quint64 m_changes = 0; // numbers that were given out
    quint64 m_sent = 0;
    qint64 m_lastTickMs = 0;
    qint64 m_worstDelayMs = 0;

    int m_nextMeter = 0;
    int m_nextVelocity = SoakEngine::firstVelocity;
    quint64 m_meters = 0;
    quint64 m_missingMeters = 0;
    quint64 m_hits = 0;
    quint64 m_missingHits = 0;
    QStringList m_problems;
};

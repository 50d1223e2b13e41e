#pragma once

#include "control/qconnectqmlplugin.h"
#include "soakengine.h"

#include <QElapsedTimer>
#include <QStringList>
#include <QTimer>

#include <functional>

/// The screen's side of the soak test: changes levels at a constant rate and checks that each report follows
/// the previous one. Lives in the GUI thread.
class SoakModule
{
public:
    /// waiting returns the number of changes that were sent but neither received nor lost.
    SoakModule(int changesPerSecond, const std::function<quint64()> &waiting);
    Q_DISABLE_COPY(SoakModule)

    QConnectQmlPlugin &plugin() { return m_plugin; }

    /// Sets each level once, so that the engine learns their numbers.
    void introduce();
    void start();
    void stop();
    /// Skips one change.
    void plantLostParameter() { ++m_changes; }

    quint64 sent() const { return m_sent; }
    quint64 meters() const { return m_meters; }
    quint64 missingMeters() const { return m_missingMeters; }
    quint64 hits() const { return m_hits; }
    quint64 missingHits() const { return m_missingHits; }
    /// The largest delay of a timer in the GUI thread, in milliseconds.
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
    quint64 m_changes = 0; // numbers used so far
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

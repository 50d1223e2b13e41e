#pragma once

#include "groove.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

namespace simulated {

/// Timed output of the engine: groove, beats and meters.
class Performer : public QObject
{
    Q_OBJECT

public:
    explicit Performer(QObject *parent = nullptr);

    // The range that the tempo parameter can express.
    static constexpr int slowest = 20;
    static constexpr int fastest = 531;
    static constexpr int beatsPerBar = 4;

    /// In beats per minute, clamped to slowest and fastest.
    void setTempo(int beatsPerMinute);
    int tempo() const { return m_tempo; }

    void setSeed(quint32 seed);
    void setGroove(bool playing);
    bool isGroovePlaying() const { return m_grooving; }

    /// Beats without a groove.
    void setMetronome(bool running);
    void setMeters(bool running);
    bool areMetersRunning() const { return m_meterTimer.isActive(); }

    /// A tap of the tempo button. The time between two taps sets the tempo; returns true when it changed.
    bool tap();

Q_SIGNALS:
    void hit(int note, int velocity);
    void choke(int note, int pressure);
    void hiHatMoved(int position);
    void beat(int number);
    void metersDue();

private:
    void updateClock();
    void step();
    void play(const Stroke &stroke);
    void playLater(const Stroke &stroke);
    void waitForLate();
    void playDue();

    struct LateStroke
    {
        qint64 dueMs; // on m_sinceStart
        Stroke stroke;
    };

    QTimer m_clock;
    QTimer m_lateTimer;
    QTimer m_meterTimer;
    QElapsedTimer m_sinceStart;
    QElapsedTimer m_sinceTap;
    Groove m_groove;
    QVector<LateStroke> m_late; // ordered by dueMs
    quint32 m_seed = 1;
    int m_tempo = 120;
    bool m_grooving = false;
    bool m_metronome = false;
    quint32 m_metronomeStep = 0;
    double m_nextStepMs = 0.0;
};

} // namespace simulated

#pragma once

#include "recording.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

class SoundEngine;

namespace simulated {

/// Plays the engine's side of a recording through an engine.
///
/// The replay begins when the module is known, which it is after its first datagram. Its time 0 is the first
/// datagram of the recording, of either side. The engine should not answer by itself, see
/// SoundEngine::setAnswering(): the answers are part of the recording.
class Replayer : public QObject
{
    Q_OBJECT

public:
    static constexpr double maximumSpeed = 0.0;

    /// The recording must outlive this object.
    Replayer(const Recording &recording, SoundEngine *engine, QObject *parent = nullptr);

    /// 1: with the recorded gaps; 4: four times as fast. With maximumSpeed there are no gaps, but not more
    /// than four datagrams per millisecond are sent, which a module can receive.
    void setSpeed(double factor) { m_speed = factor; }
    /// Starts again at the end.
    void setLooping(bool looping) { m_looping = looping; }

    void start();

    quint64 sent() const { return m_sent; }

Q_SIGNALS:
    /// The time of a datagram of the module in the recording has come.
    void moduleSent(const QByteArray &datagram);
    /// The last datagram of the recording has been played.
    void finished();
    /// A datagram could not be sent. The replay continues.
    void notSent(const QString &line);

private:
    void begin();
    void play();
    void end();
    qint64 dueNs(int index) const;

    const Recording &m_recording;
    SoundEngine *m_engine;
    QTimer m_timer;
    QElapsedTimer m_sinceBegin;
    double m_speed = 1.0;
    bool m_looping = false;
    bool m_playing = false;
    int m_next = 0;
    quint64 m_sent = 0;
};

} // namespace simulated

#include "replayer.h"

#include "soundengine.h"

#include <algorithm>

namespace simulated {

namespace {

constexpr qint64 nsPerMs = 1000000;

// The gap of a slow replay can exceed the range of a timer, so it is waited for in parts.
constexpr qint64 longestWaitNs = 60 * 60 * 1000 * nsPerMs;

// A slow replay of a long recording could exceed 64 bits, which hold 292 years.
constexpr double latestNs = 9e18;

// The module takes up to 160 us for a datagram, and its smallest receive buffer holds about 250.
constexpr int batch = 8;
constexpr int batchMs = 2;

// A recording of a single datagram must not become a flood.
constexpr int loopPauseMs = 20;

} // namespace

Replayer::Replayer(const Recording &recording, SoundEngine *engine, QObject *parent)
    : QObject(parent)
    , m_recording(recording)
    , m_engine(engine)
    , m_timer(this)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &Replayer::play);
}

void Replayer::start()
{
    if (m_engine->knowsModule()) {
        begin();
        return;
    }
    connect(m_engine, &SoundEngine::moduleChanged, this, [this] {
        if (!m_playing)
            begin();
    });
}

void Replayer::begin()
{
    m_playing = true;
    m_next = 0;
    m_sinceBegin.start();
    m_timer.start(0);
}

qint64 Replayer::dueNs(int index) const
{
    const qint64 recorded = m_recording.time(index);
    if (m_speed == maximumSpeed)
        return 0;
    return m_speed == 1.0 ? recorded : qint64(std::min(double(recorded) / m_speed, latestNs));
}

void Replayer::play()
{
    // After a delay, what is due is not sent all at once: the module's buffer would overflow.
    for (int i = 0; i < batch && m_next < m_recording.size(); ++i, ++m_next) {
        const qint64 ahead = dueNs(m_next) - m_sinceBegin.nsecsElapsed();
        if (ahead > 0) {
            m_timer.start(int((std::min(ahead, longestWaitNs) + nsPerMs - 1) / nsPerMs));
            return;
        }
        const QByteArray datagram = m_recording.datagram(m_next);
        if (!m_recording.isFromEngine(m_next))
            Q_EMIT moduleSent(datagram);
        else if (m_engine->sendRaw(datagram))
            ++m_sent;
        else
            Q_EMIT notSent(QStringLiteral("replay: not sent: ") + m_engine->sendProblem());
    }
    if (m_next < m_recording.size())
        m_timer.start(batchMs);
    else
        end();
}

void Replayer::end()
{
    if (m_looping)
        QTimer::singleShot(loopPauseMs, this, &Replayer::begin);
    else
        Q_EMIT finished();
}

} // namespace simulated

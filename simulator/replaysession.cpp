#include "replaysession.h"

#include "options.h"
#include "soundengine.h"

namespace simulated {

namespace {

// Ends the wait for a module that sends nothing more of what the recording has.
constexpr int patienceMs = 5000;

// For a datagram that the recording does not have.
constexpr int lastMs = 500;

} // namespace

ReplaySession::ReplaySession(const Recording &recording, const Options &options, SoundEngine *engine)
    : m_replayer(recording, engine)
    , m_patience(this)
{
    m_replayer.setSpeed(options.speed);
    m_replayer.setLooping(options.loop);
    m_patience.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, &ReplaySession::finished);
    connect(&m_replayer, &Replayer::notSent, this, &ReplaySession::notSent);
    connect(&m_replayer, &Replayer::finished, this, [this] {
        m_isPlayed = true;
        waitForModule();
    });
    if (!options.compare)
        return;
    m_comparison = std::make_unique<Comparison>(recording);
    connect(engine, &SoundEngine::datagramReceived, this, &ReplaySession::take);
}

void ReplaySession::take(const QByteArray &datagram)
{
    if (m_comparison->receive(datagram) && m_isPlayed)
        waitForModule();
}

void ReplaySession::waitForModule()
{
    if (!m_comparison)
        Q_EMIT finished();
    else
        m_patience.start(m_comparison->isComplete() ? lastMs : patienceMs);
}

ReplaySession::Result ReplaySession::result() const
{
    Result result;
    result.lines.append(QStringLiteral("summary replayed-datagrams %1").arg(m_replayer.sent()));
    if (m_comparison) {
        const Comparison::Report report = m_comparison->report();
        result.hasDifferences = report.differences() > 0;
        result.lines += report.lines + report.summary();
    }
    return result;
}

} // namespace simulated

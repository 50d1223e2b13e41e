#include "soakmodule.h"

#include <array>
#include <cmath>

namespace {

constexpr int tickMs = 5;
// If the whole machine pauses, the missed changes are sent slowly afterwards, so that no socket overflows.
constexpr quint64 mostPerTick = 200;
// With more changes in its socket, a slow engine would read and answer the packets of a file too late.
constexpr quint64 mostWaiting = 5000;
constexpr double fullScale = 70.0;
constexpr int mostProblems = 20;

using SetLevel = void (QConnectQmlPlugin::*)(uchar);
constexpr std::array<SetLevel, SoakEngine::levels> setters{
    &QConnectQmlPlugin::setDirectOut1Level, &QConnectQmlPlugin::setDirectOut2Level,
    &QConnectQmlPlugin::setDirectOut3Level, &QConnectQmlPlugin::setDirectOut4Level,
    &QConnectQmlPlugin::setDirectOut5Level, &QConnectQmlPlugin::setDirectOut6Level,
    &QConnectQmlPlugin::setDirectOut7Level, &QConnectQmlPlugin::setDirectOut8Level,
};

} // namespace

SoakModule::SoakModule(int changesPerSecond, const std::function<quint64()> &waiting)
    : m_changesPerSecond(changesPerSecond)
    , m_waiting(waiting)
{
    m_timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_timer, &QTimer::timeout, &m_plugin, [this] { changeSome(); });
    QObject::connect(&m_plugin, &QConnectQmlPlugin::outputLevelsChanged, &m_plugin, [this] { takeMeters(); });
    QObject::connect(&m_plugin, &QConnectQmlPlugin::noteChanged, &m_plugin, [this] { takeHit(); });
}

void SoakModule::introduce()
{
    for (int i = 0; i < SoakEngine::levels; ++i)
        change();
}

void SoakModule::start()
{
    m_startedAt = m_changes;
    m_since.start();
    m_lastTickMs = 0;
    m_timer.start(tickMs);
}

void SoakModule::stop()
{
    m_timer.stop();
}

void SoakModule::change()
{
    const auto level = std::size_t(m_changes % SoakEngine::levels);
    const auto value = uchar(m_changes / SoakEngine::levels % SoakEngine::values);
    (m_plugin.*setters.at(level))(value);
    ++m_changes;
    ++m_sent;
}

void SoakModule::changeSome()
{
    const qint64 now = m_since.elapsed();
    m_worstDelayMs = qMax(m_worstDelayMs, now - m_lastTickMs - tickMs);
    m_lastTickMs = now;
    if (m_waiting() > mostWaiting)
        return;
    const quint64 due = m_startedAt + quint64(now) * quint64(m_changesPerSecond) / 1000;
    for (quint64 i = 0; i < mostPerTick && m_changes < due; ++i)
        change();
}

void SoakModule::takeMeters()
{
    ++m_meters;
    const int value = int(std::lround(m_plugin.property("masterOutL").toDouble() * fullScale));
    const int last = int(std::lround(m_plugin.property("usbInRLevel").toDouble() * fullScale));
    if (value != last)
        addProblem(QStringLiteral("one meter report with two values: %1 and %2").arg(value).arg(last));
    const int count = SoakEngine::meterValues;
    m_missingMeters += quint64((value - m_nextMeter + count) % count);
    m_nextMeter = (value + 1) % count;
}

void SoakModule::takeHit()
{
    ++m_hits;
    const int velocity = int(m_plugin.property("note").toUInt() & 0xFF);
    const int count = SoakEngine::lastVelocity - SoakEngine::firstVelocity + 1;
    m_missingHits += quint64((velocity - m_nextVelocity + count) % count);
    m_nextVelocity = velocity == SoakEngine::lastVelocity ? SoakEngine::firstVelocity : velocity + 1;
}

void SoakModule::addProblem(const QString &line)
{
    if (m_problems.size() < mostProblems)
        m_problems.append(line);
}

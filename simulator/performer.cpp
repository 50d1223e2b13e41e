#include "performer.h"

#include <algorithm>
#include <cmath>

namespace simulated {

namespace {

constexpr int meterPeriodMs = 33; // 30 Hz
constexpr int stepsPerBeat = 4;
constexpr qint64 longestTapMs = 3000;
constexpr double msPerMinute = 60000.0;

} // namespace

Performer::Performer(QObject *parent)
    : QObject(parent)
    , m_clock(this)
    , m_lateTimer(this)
    , m_meterTimer(this)
{
    m_clock.setTimerType(Qt::PreciseTimer);
    m_clock.setSingleShot(true);
    m_lateTimer.setTimerType(Qt::PreciseTimer);
    m_lateTimer.setSingleShot(true);
    m_meterTimer.setTimerType(Qt::PreciseTimer);
    m_meterTimer.setInterval(meterPeriodMs);
    connect(&m_clock, &QTimer::timeout, this, &Performer::step);
    connect(&m_lateTimer, &QTimer::timeout, this, &Performer::playDue);
    connect(&m_meterTimer, &QTimer::timeout, this, &Performer::metersDue);
}

void Performer::setTempo(int beatsPerMinute)
{
    m_tempo = std::clamp(beatsPerMinute, slowest, fastest);
}

void Performer::setSeed(quint32 seed)
{
    m_seed = seed;
}

void Performer::setGroove(bool playing)
{
    if (playing && !m_grooving)
        m_groove.restart(m_seed);
    m_grooving = playing;
    if (!playing)
        m_late.clear();
    updateClock();
}

void Performer::setMetronome(bool running)
{
    if (running && !m_metronome)
        m_metronomeStep = 0;
    m_metronome = running;
    updateClock();
}

void Performer::setMeters(bool running)
{
    if (running)
        m_meterTimer.start();
    else
        m_meterTimer.stop();
}

bool Performer::tap()
{
    const bool first = !m_sinceTap.isValid();
    const qint64 interval = first ? 0 : m_sinceTap.elapsed();
    m_sinceTap.start();
    if (first || interval <= 0 || interval > longestTapMs)
        return false;
    const int before = m_tempo;
    setTempo(int(std::lround(msPerMinute / double(interval))));
    return m_tempo != before;
}

void Performer::updateClock()
{
    if (!m_grooving && !m_metronome) {
        m_clock.stop();
        return;
    }
    if (m_clock.isActive())
        return;
    m_sinceStart.start();
    m_late.clear();
    m_nextStepMs = 0.0;
    m_clock.start(0);
}

void Performer::step()
{
    // Counted from the start of the clock, so that delays do not add up.
    m_nextStepMs += msPerMinute / (m_tempo * stepsPerBeat);
    m_clock.start(std::max(0, int(m_nextStepMs - double(m_sinceStart.elapsed()))));

    if (m_grooving) {
        if (const int number = m_groove.beat())
            Q_EMIT beat(number);
        const QVector<Stroke> strokes = m_groove.next();
        for (const Stroke &stroke : strokes) {
            if (stroke.delayMs == 0)
                play(stroke);
            else
                playLater(stroke);
        }
    } else {
        if (m_metronomeStep % stepsPerBeat == 0)
            Q_EMIT beat(int(m_metronomeStep / stepsPerBeat % beatsPerBar) + 1);
        ++m_metronomeStep;
    }
}

void Performer::playLater(const Stroke &stroke)
{
    const LateStroke late{m_sinceStart.elapsed() + stroke.delayMs, stroke};
    const auto isEarlier = [](const LateStroke &a, const LateStroke &b) {
        return a.dueMs < b.dueMs;
    };
    m_late.insert(std::upper_bound(m_late.begin(), m_late.end(), late, isEarlier), late);
    waitForLate();
}

void Performer::waitForLate()
{
    if (!m_late.isEmpty())
        m_lateTimer.start(int(std::max<qint64>(0, m_late.constFirst().dueMs - m_sinceStart.elapsed())));
}

void Performer::playDue()
{
    while (!m_late.isEmpty() && m_late.constFirst().dueMs <= m_sinceStart.elapsed())
        play(m_late.takeFirst().stroke);
    waitForLate();
}

void Performer::play(const Stroke &stroke)
{
    switch (stroke.kind) {
    case Stroke::Kind::Hit: Q_EMIT hit(stroke.note, stroke.value); break;
    case Stroke::Kind::Choke: Q_EMIT choke(stroke.note, stroke.value); break;
    case Stroke::Kind::HiHatPosition: Q_EMIT hiHatMoved(stroke.value); break;
    }
}

} // namespace simulated

#include "groove.h"

#include <algorithm>

namespace simulated {

namespace {

constexpr int stepsPerBar = 16;
constexpr int stepsPerBeat = 4;
constexpr int barsPerPhrase = 8;

// Notes of the pads.
constexpr int kick = 36;
constexpr int snare = 38;
constexpr int crossStick = 37;
constexpr int rimShot = 40;
constexpr int closedHat = 42;
constexpr int chick = 44;
constexpr int openHat = 46;
constexpr int ride = 51;
constexpr int rideBell = 53;
constexpr int crash1 = 49;
constexpr int crash2 = 57;
constexpr int cowbell = 88;
constexpr int toms[] = {48, 45, 43, 41};

constexpr int pedalClosed = 127;
constexpr int pedalOpen = 20;

} // namespace

Groove::Groove(quint32 seed)
    : m_random(seed)
{}

void Groove::restart(quint32 seed)
{
    m_random.seed(seed);
    m_step = 0;
    m_pedal = -1;
}

int Groove::beat() const
{
    const int step = int(m_step % stepsPerBar);
    return step % stepsPerBeat == 0 ? step / stepsPerBeat + 1 : 0;
}

QVector<Stroke> Groove::next()
{
    const int bar = int(m_step / stepsPerBar % barsPerPhrase);
    const int step = int(m_step % stepsPerBar);
    ++m_step;

    QVector<Stroke> strokes;
    const bool shortFill = bar == 3 && step >= 12;
    const bool longFill = bar == 7 && step >= 8;
    if (shortFill || longFill)
        playFill(step, longFill, &strokes);
    else
        playHands(bar, step, &strokes);
    playFeet(bar, step, &strokes);
    return strokes;
}

void Groove::playHands(int bar, int step, QVector<Stroke> *strokes)
{
    const bool onRide = bar >= 4;

    // A crash after each fill, sometimes choked before the backbeat.
    const int crash = onRide ? crash2 : crash1;
    if (step == 0 && bar % 4 == 0)
        hit(crash, 118, strokes);
    if (step == 3 && bar % 4 == 0 && chance(40))
        strokes->append({Stroke::Kind::Choke, crash, 90 + int(m_random.bounded(37)), 0});

    if (onRide) {
        if (step % 4 == 0)
            hit(bar == 6 ? rideBell : ride, 100, strokes);
        else if (step % 4 == 2)
            hit(ride, 78, strokes);
        else if (step % 8 == 7 && chance(35))
            hit(ride, 55, strokes);
    } else if (bar % 2 == 1 && step == 14) {
        movePedal(pedalOpen, strokes);
        hit(openHat, 100, strokes);
    } else if (step % 2 == 0 && !(step == 0 && bar == 0)) {
        movePedal(pedalClosed, strokes);
        hit(closedHat, step % 4 == 0 ? 92 : 68, strokes);
    }

    if (step == 4 || step == 12)
        hit(bar == 2 && step == 12 ? rimShot : snare, 112, strokes);
    else if ((step == 7 || step == 9) && chance(55))
        hit(snare, 28, strokes);
    else if (step == 15 && chance(25))
        hit(crossStick, 60, strokes);
    if (bar == 5 && step % 4 == 2)
        hit(cowbell, 75, strokes);
}

void Groove::playFeet(int bar, int step, QVector<Stroke> *strokes)
{
    if (step == 0 || step == 8)
        hit(kick, 115, strokes);
    else if (step == 6 || (step == 10 && bar % 2 == 1))
        hit(kick, 96, strokes);
    else if (step == 3 && chance(25))
        hit(kick, 80, strokes);

    // With the hands on the ride, the left foot closes the hi-hat on two and four.
    if (bar >= 4 && step % 8 == 4) {
        movePedal(pedalClosed, strokes);
        hit(chick, 70, strokes);
    }
}

void Groove::playFill(int step, bool isLong, QVector<Stroke> *strokes)
{
    const int position = isLong ? step - 8 : step - 12;
    const int length = isLong ? 8 : 4;
    if (isLong && position < 2) {
        hit(snare, 84 + 8 * position, strokes);
        return;
    }
    const int tom = std::min(3, position * 4 / length);
    hit(toms[tom], 88 + 4 * position, strokes);
}

void Groove::movePedal(int position, QVector<Stroke> *strokes)
{
    if (position == m_pedal)
        return;
    m_pedal = position;
    strokes->append({Stroke::Kind::HiHatPosition, 0, position, 0});
}

void Groove::hit(int note, int velocity, QVector<Stroke> *strokes)
{
    const int varied = velocity + int(m_random.bounded(15)) - 7;
    strokes->append({Stroke::Kind::Hit, note, std::clamp(varied, 1, 127), int(m_random.bounded(8))});
}

bool Groove::chance(int percent)
{
    return int(m_random.bounded(100)) < percent;
}

} // namespace simulated

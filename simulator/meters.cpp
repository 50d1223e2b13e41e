#include "meters.h"

#include "kit.h"

#include <algorithm>
#include <cmath>

namespace simulated {

namespace {

constexpr double fullScale = 70.0;
constexpr double drumDecay = 0.80;
constexpr double cymbalDecay = 0.93;
constexpr double threshold = 0.5;
constexpr double ratio = 3.0;

// Position of each pad, from 0 (left) to 1 (right).
constexpr double padPositions[] = {0.5,  0.45, 0.35, 0.45, 0.65, 0.75, 0.8,
                                   0.25, 0.2,  0.85, 0.1,  0.3,  0.7,  0.9};

constexpr int firstCymbalPad = 6;

double leftOf(int pad)
{
    return std::min(1.0, 2.0 * (1.0 - padPositions[pad]));
}

double rightOf(int pad)
{
    return std::min(1.0, 2.0 * padPositions[pad]);
}

quint16 onWire(double level)
{
    return quint16(std::lround(std::clamp(level, 0.0, 1.0) * fullScale));
}

} // namespace

void Meters::hit(int note, int velocity)
{
    const Zone *zone = zoneOfNote(note);
    if (zone == nullptr)
        return;
    double &level = m_pads[zone->pad];
    level = std::max(level, std::clamp(velocity, 0, 127) / 127.0);
}

void Meters::choke(int note)
{
    const Zone *zone = zoneOfNote(note);
    if (zone != nullptr && zone->canBeChoked)
        m_pads[zone->pad] = 0.0;
}

void Meters::decay()
{
    for (int pad = 0; pad < padCount; ++pad) {
        double &level = m_pads[size_t(pad)];
        level *= pad >= firstCymbalPad ? cymbalDecay : drumDecay;
        if (level < 0.005)
            level = 0.0;
    }
}

void Meters::setFader(Section section, int level)
{
    m_faders[section] = std::clamp(level, 0, 127) / 127.0;
}

double Meters::sideLevel(double panOfSide(int pad)) const
{
    // The loudest pad determines the level; the others add a little.
    double loudest = 0.0;
    double sum = 0.0;
    for (int pad = 0; pad < padCount; ++pad) {
        const double level = m_pads[size_t(pad)] * panOfSide(pad);
        loudest = std::max(loudest, level);
        sum += level;
    }
    return std::min(1.0, loudest + 0.1 * (sum - loudest));
}

OutputLevels Meters::outputs() const
{
    const double left = sideLevel(leftOf);
    const double right = sideLevel(rightOf);
    OutputLevels levels{};
    size_t next = 0;
    for (Section section : {Master, Monitor, Headphone}) {
        levels[next++] = onWire(left * m_faders[section]);
        levels[next++] = onWire(right * m_faders[section]);
    }
    constexpr size_t directOuts = 8;
    for (size_t out = 0; out < directOuts; ++out)
        levels[next++] = onWire(m_pads[out]);
    levels[next++] = onWire(left);
    levels[next++] = onWire(right);
    return levels; // the USB inputs stay silent
}

CompressorLevels Meters::compressor(Section section, int note) const
{
    double left = sideLevel(leftOf) * m_faders[section];
    double right = sideLevel(rightOf) * m_faders[section];
    if (section == Pad) {
        const Zone *zone = zoneOfNote(note);
        left = right = zone != nullptr ? m_pads[zone->pad] : 0.0;
    }
    const auto reduction = [](double level) {
        return std::max(0.0, level - threshold) * (1.0 - 1.0 / ratio);
    };
    return {onWire(left),
            onWire(right),
            onWire(reduction(left)),
            onWire(reduction(right)),
            onWire(left - reduction(left)),
            onWire(right - reduction(right))};
}

} // namespace simulated

#pragma once

#include "wire.h"

namespace simulated {

/// Meter levels that follow the pads: a hit raises them, silence lets them fall.
class Meters
{
public:
    enum Section { Master, Monitor, Headphone, Pad, SectionCount };

    /// A pad hit on note with velocity 0 to 127.
    void hit(int note, int velocity);

    /// A choked cymbal falls silent at once.
    void choke(int note);

    /// Lets everything fall by the time that passes between two reports at 30 Hz.
    void decay();

    /// Fader of an output section, 0 to 127.
    void setFader(Section section, int level);

    /// Levels as the wire has them: 70 is full scale.
    OutputLevels outputs() const;

    /// Input, gain reduction and output of a section's compressor. For the pad section, of the pad that
    /// plays note.
    CompressorLevels compressor(Section section, int note) const;

private:
    static constexpr int padCount = 14;

    double sideLevel(double panOfSide(int pad)) const;

    std::array<double, padCount> m_pads{};
    std::array<double, SectionCount> m_faders{0.8, 0.8, 0.8, 1.0};
};

} // namespace simulated

#pragma once

#include "wire.h"

namespace simulated {

/// Meter levels of the pads: a hit raises a level, which falls with time.
class Meters
{
public:
    enum Section { Master, Monitor, Headphone, Pad, SectionCount };

    /// A hit on the pad zone with that note; velocity 0 to 127.
    void hit(int note, int velocity);

    /// Silences a cymbal at once.
    void choke(int note);

    /// Lowers all levels by one step of 1/30 s.
    void decay();

    /// Fader of an output section, 0 to 127.
    void setFader(Section section, int level);

    /// Levels on the wire: 70 is full scale.
    OutputLevels outputs() const;

    /// Input, gain reduction and output of a section's compressor; in section Pad, of the pad with that note.
    CompressorLevels compressor(Section section, int note) const;

private:
    static constexpr int padCount = 14;

    double sideLevel(double panOfSide(int pad)) const;

    std::array<double, padCount> m_pads{};
    std::array<double, SectionCount> m_faders{0.8, 0.8, 0.8, 1.0};
};

} // namespace simulated

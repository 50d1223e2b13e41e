#pragma once

class SoundEngine;

namespace simulated {

/// Starts what a listening engine sends without commands: output meters, reports of the tempo, beats, and
/// with groove the drums. When the module's address or port changes, and after the first datagram, the module
/// receives the tempo, and the groove starts again.
void playStandalone(SoundEngine *engine, bool groove);

} // namespace simulated

#include "standalone.h"

#include "soundengine.h"

namespace simulated {

void playStandalone(SoundEngine *engine, bool groove)
{
    engine->setLive(true);
    engine->setMeters(true);
    engine->setGroove(groove);
    // A module that starts later also receives the tempo, and the groove with its pedal from the beginning.
    QObject::connect(engine, &SoundEngine::moduleChanged, engine, [engine] {
        if (!engine->isAnswering())
            return;
        engine->sendTempo(quint16(engine->tempo()));
        if (engine->isGroovePlaying()) {
            engine->setGroove(false);
            engine->setGroove(true);
        }
    });
}

} // namespace simulated

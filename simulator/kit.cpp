#include "kit.h"

#include "commands.h"

namespace simulated {

const QVector<Zone> &kitZones()
{
    static const QVector<Zone> zones = {
        {"kick", 36, 0, 0, false},        {"snare", 38, 1, 0, false},      {"snare-cross", 37, 1, 1, false},
        {"snare-rim", 40, 1, 1, false},   {"tom1", 48, 2, 0, false},       {"tom1-rim", 50, 2, 1, false},
        {"tom2", 45, 3, 0, false},        {"tom2-rim", 47, 3, 1, false},   {"tom3", 43, 4, 0, false},
        {"tom3-rim", 58, 4, 1, false},    {"tom4", 41, 5, 0, false},       {"tom4-rim", 39, 5, 1, false},
        {"ride", 51, 6, 0, true},         {"ride-edge", 59, 6, 1, true},   {"ride-bell", 53, 6, 2, true},
        {"hihat", 42, 7, 0, true},        {"hihat-open", 46, 7, 0, true},  {"hihat-chick", 44, 7, 0, true},
        {"hihat-splash", 21, 7, 0, true}, {"hihat-edge", 26, 7, 1, true},  {"hihat-bell", 19, 7, 2, true},
        {"crash1", 49, 8, 0, true},       {"crash1-edge", 55, 8, 1, true}, {"crash1-bell", 17, 8, 2, true},
        {"crash2", 57, 9, 0, true},       {"crash2-edge", 52, 9, 1, true}, {"crash2-bell", 18, 9, 2, true},
        {"aux1", 88, 10, 0, true},        {"aux1-edge", 89, 10, 1, true},  {"aux1-bell", 22, 10, 2, true},
        {"aux2", 90, 11, 0, true},        {"aux2-edge", 91, 11, 1, true},  {"aux2-bell", 23, 11, 2, true},
        {"aux3", 92, 12, 0, true},        {"aux3-edge", 93, 12, 1, true},  {"aux3-bell", 24, 12, 2, true},
        {"aux4", 94, 13, 0, true},        {"aux4-edge", 95, 13, 1, true},  {"aux4-bell", 25, 13, 2, true},
    };
    return zones;
}

const Zone *zoneOfNote(int note)
{
    for (const Zone &zone : kitZones()) {
        if (zone.note == note)
            return &zone;
    }
    return nullptr;
}

QString zoneText(int note)
{
    const Zone *zone = zoneOfNote(note);
    return zone != nullptr ? QString::fromLatin1(zone->name) : QString::number(note);
}

int noteFromText(const QString &text)
{
    for (const Zone &zone : kitZones()) {
        if (text == QLatin1String(zone.name))
            return zone.note;
    }
    int note = 0;
    return readNumber(text, 127, &note) ? note : -1;
}

} // namespace simulated

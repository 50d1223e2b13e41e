#include "kit.h"

namespace simulated {

const QVector<Zone> &kitZones()
{
    static const QVector<Zone> zones = {
        {"kick", 36, 0, false},        {"snare", 38, 1, false},      {"snare-cross", 37, 1, false},
        {"snare-rim", 40, 1, false},   {"tom1", 48, 2, false},       {"tom1-rim", 50, 2, false},
        {"tom2", 45, 3, false},        {"tom2-rim", 47, 3, false},   {"tom3", 43, 4, false},
        {"tom3-rim", 58, 4, false},    {"tom4", 41, 5, false},       {"tom4-rim", 39, 5, false},
        {"ride", 51, 6, true},         {"ride-edge", 59, 6, true},   {"ride-bell", 53, 6, true},
        {"hihat", 42, 7, true},        {"hihat-open", 46, 7, true},  {"hihat-chick", 44, 7, true},
        {"hihat-splash", 21, 7, true}, {"hihat-edge", 26, 7, true},  {"hihat-bell", 19, 7, true},
        {"crash1", 49, 8, true},       {"crash1-edge", 55, 8, true}, {"crash1-bell", 17, 8, true},
        {"crash2", 57, 9, true},       {"crash2-edge", 52, 9, true}, {"crash2-bell", 18, 9, true},
        {"aux1", 88, 10, true},        {"aux1-edge", 89, 10, true},  {"aux1-bell", 22, 10, true},
        {"aux2", 90, 11, true},        {"aux2-edge", 91, 11, true},  {"aux2-bell", 23, 11, true},
        {"aux3", 92, 12, true},        {"aux3-edge", 93, 12, true},  {"aux3-bell", 24, 12, true},
        {"aux4", 94, 13, true},        {"aux4-edge", 95, 13, true},  {"aux4-bell", 25, 13, true},
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

int noteFromText(const QString &text)
{
    for (const Zone &zone : kitZones()) {
        if (text == QLatin1String(zone.name))
            return zone.note;
    }
    bool isNumber = false;
    const int note = text.toInt(&isNumber, 0);
    return isNumber && note >= 0 && note <= 127 ? note : -1;
}

} // namespace simulated

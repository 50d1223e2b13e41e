#include "controllers/padmap.h"

#include <array>

namespace zelta {

namespace {

struct StrikeNote
{
    quint8 note;
    PadZone where;
};

constexpr StrikeNote strikeNotes[] = {
    {36, {0, 0}},  {38, {1, 0}},  {37, {1, 1}},  {40, {1, 1}},  {48, {2, 0}},  {50, {2, 1}},  {45, {3, 0}},
    {47, {3, 1}},  {43, {4, 0}},  {58, {4, 1}},  {41, {5, 0}},  {39, {5, 1}},  {51, {6, 0}},  {59, {6, 1}},
    {53, {6, 2}},  {21, {7, 0}},  {42, {7, 0}},  {44, {7, 0}},  {46, {7, 0}},  {26, {7, 1}},  {19, {7, 2}},
    {49, {8, 0}},  {55, {8, 1}},  {17, {8, 2}},  {57, {9, 0}},  {52, {9, 1}},  {18, {9, 2}},  {88, {10, 0}},
    {89, {10, 1}}, {22, {10, 2}}, {90, {11, 0}}, {91, {11, 1}}, {23, {11, 2}}, {92, {12, 0}}, {93, {12, 1}},
    {24, {12, 2}}, {94, {13, 0}}, {95, {13, 1}}, {25, {13, 2}},
};

constexpr quint8 firstNote = 17;
constexpr quint8 noPad = 14;

// Indexed by note - 17. Aftertouch on a note without a pad is ignored.
constexpr std::array<quint8, 79> chokePads{{
    8,     9,     7,     noPad, 7,     10,    11,    12,    13,    7,            // 17 to 26
    noPad, noPad, noPad, noPad, noPad, noPad, noPad, noPad, noPad, noPad,        // 27 to 36
    noPad, noPad, noPad, noPad, noPad, 7,     noPad, 7,     noPad, 7,            // 37 to 46
    noPad, noPad, 8,     noPad, 6,     9,     6,     noPad, 8,     noPad,        // 47 to 56
    9,     noPad, 6,     noPad, noPad, noPad, noPad, noPad, noPad, noPad,        // 57 to 66
    noPad, noPad, noPad, noPad, noPad, noPad, noPad, noPad, noPad, noPad,        // 67 to 76
    noPad, noPad, noPad, noPad, noPad, noPad, noPad, noPad, noPad, noPad, noPad, // 77 to 87
    10,    10,    11,    11,    12,    12,    13,    13,                         // 88 to 95
}};

} // namespace

std::optional<PadZone> struckPad(quint8 note)
{
    for (const StrikeNote &strike : strikeNotes) {
        if (strike.note == note)
            return strike.where;
    }
    return std::nullopt;
}

std::optional<quint8> chokedPad(quint8 note)
{
    if (note < firstNote || note >= firstNote + chokePads.size())
        return std::nullopt;
    const quint8 pad = chokePads.at(note - firstNote);
    if (pad >= noPad)
        return std::nullopt;
    return pad;
}

} // namespace zelta

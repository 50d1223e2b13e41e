#include "kinds.h"

namespace {

// clang-format off
constexpr Kind kinds[] = {
    {"zelta",            "sound-engine firmware",     "EngineFirmware",    Kind::Extra::None,        true,  false},
    {"trigger",          "trigger-board firmware",    "TriggerFirmware",   Kind::Extra::None,        true,  false},
    {"soundbank",        "sound bank",                "SoundBank",         Kind::Extra::None,        false, false},
    {"triggerbank",      "trigger bank",              "TriggerBank",       Kind::Extra::None,        false, false},
    {"import-soundbank", "sound bank for a slot",     "SoundBankImport",   Kind::Extra::SlotAndName, false, false},
    {"import-wave",      "wave sample for a slot",    "WaveImport",        Kind::Extra::Slot,        false, false},
    {"bluetooth",        "bluetooth firmware",        "BluetoothFirmware", Kind::Extra::None,        false, true},
};
// clang-format on

} // namespace

const Kind *kindNamed(const QString &option)
{
    for (const Kind &kind : kinds) {
        if (option == QLatin1String(kind.option))
            return &kind;
    }
    return nullptr;
}

QStringList kindNames()
{
    QStringList names;
    for (const Kind &kind : kinds)
        names.append(QLatin1String(kind.option));
    return names;
}

#include "kinds.h"

namespace {

// clang-format off
constexpr Kind kinds[] = {
    {"zelta",            "sound-engine firmware",     "sendZeltaFirmware",    Kind::Extra::None,        true,  false},
    {"trigger",          "trigger-board firmware",    "sendTriggerFirmware",  Kind::Extra::None,        true,  false},
    {"soundbank",        "sound bank",                "sendSoundBank",        Kind::Extra::None,        false, false},
    {"triggerbank",      "trigger bank",              "sendTriggerBank",      Kind::Extra::None,        false, false},
    {"import-soundbank", "sound bank for a slot",     "sendImportSoundBank",  Kind::Extra::SlotAndName, false, false},
    {"import-wave",      "wave sample for a slot",    "sendImportWaveSample", Kind::Extra::Slot,        false, false},
    {"bluetooth",        "bluetooth firmware",        "sendBtFw",             Kind::Extra::None,        false, true},
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

#include "contract/surface.h"

namespace zelta {
namespace contract {

namespace {

constexpr Property rows[] = {
    {"note", "uint", "noteChanged", IsFinal},
    {"afterTouchNote", "uint", "afterTouchNoteChanged", IsFinal},
    {"position", "uint", "positionChanged", IsFinal},
    {"beat", "uint", "beatChanged", IsFinal},
    {"tempo", "uint", "tempoChanged", IsFinal},
    {"flashSize", "uint", "sampleFlashSizeChanged", IsFinal},
    {"totalFlashSize", "uint", "totalSampleFlashSizeChanged", IsFinal},
    {"padCpInL", "double", "padCpChanged", IsFinal},
    {"padCpInR", "double", "padCpChanged", IsFinal},
    {"padCpGrL", "double", "padCpChanged", IsFinal},
    {"padCpGrR", "double", "padCpChanged", IsFinal},
    {"padCpOutL", "double", "padCpChanged", IsFinal},
    {"padCpOutR", "double", "padCpChanged", IsFinal},
    {"masterCpInL", "double", "masterCpChanged", IsFinal},
    {"masterCpInR", "double", "masterCpChanged", IsFinal},
    {"masterCpGrL", "double", "masterCpChanged", IsFinal},
    {"masterCpGrR", "double", "masterCpChanged", IsFinal},
    {"masterCpOutL", "double", "masterCpChanged", IsFinal},
    {"masterCpOutR", "double", "masterCpChanged", IsFinal},
    {"monitorCpInL", "double", "monitorCpChanged", IsFinal},
    {"monitorCpInR", "double", "monitorCpChanged", IsFinal},
    {"monitorCpGrL", "double", "monitorCpChanged", IsFinal},
    {"monitorCpGrR", "double", "monitorCpChanged", IsFinal},
    {"monitorCpOutL", "double", "monitorCpChanged", IsFinal},
    {"monitorCpOutR", "double", "monitorCpChanged", IsFinal},
    {"headCpInL", "double", "headCpChanged", IsFinal},
    {"headCpInR", "double", "headCpChanged", IsFinal},
    {"headCpGrL", "double", "headCpChanged", IsFinal},
    {"headCpGrR", "double", "headCpChanged", IsFinal},
    {"headCpOutL", "double", "headCpChanged", IsFinal},
    {"headCpOutR", "double", "headCpChanged", IsFinal},
    {"masterOutL", "double", "outputLevelsChanged", IsFinal},
    {"masterOutR", "double", "outputLevelsChanged", IsFinal},
    {"monitorOutL", "double", "outputLevelsChanged", IsFinal},
    {"monitorOutR", "double", "outputLevelsChanged", IsFinal},
    {"headOutL", "double", "outputLevelsChanged", IsFinal},
    {"headOutR", "double", "outputLevelsChanged", IsFinal},
    {"out1Level", "double", "outputLevelsChanged", IsFinal},
    {"out2Level", "double", "outputLevelsChanged", IsFinal},
    {"out3Level", "double", "outputLevelsChanged", IsFinal},
    {"out4Level", "double", "outputLevelsChanged", IsFinal},
    {"out5Level", "double", "outputLevelsChanged", IsFinal},
    {"out6Level", "double", "outputLevelsChanged", IsFinal},
    {"out7Level", "double", "outputLevelsChanged", IsFinal},
    {"out8Level", "double", "outputLevelsChanged", IsFinal},
    {"spdifLLevel", "double", "outputLevelsChanged", IsFinal},
    {"spdifRLevel", "double", "outputLevelsChanged", IsFinal},
    {"usbInLLevel", "double", "outputLevelsChanged", IsFinal},
    {"usbInRLevel", "double", "outputLevelsChanged", IsFinal},
    {"powerPressed", "bool", "powerChanged", IsFinal},
    {"foot1Pressed", "bool", "foot1Changed", IsFinal},
    {"foot2Pressed", "bool", "foot2Changed", IsFinal},
    {"aux3Pressed", "bool", "aux3Changed", IsFinal},
    {"aux4Pressed", "bool", "aux4Changed", IsFinal},
    {"hpDetectPressed", "bool", "hpDetectChanged", IsFinal},
    {"mixInDetectPressed", "bool", "mixInDetectChanged", IsFinal},
    {"homeButtonPressed", "bool", "homeButtonChanged", IsFinal},
    {"zeltaFwVersion", "QString", "zeltaVersionChanged", NotFinal},
    {"triggerFwVersion", "QString", "triggerVersionChanged", NotFinal},
    {"soundBankVersion", "QString", "soundbankVersionChanged", NotFinal},
    {"triggerBankVersion", "QString", "triggerbankVersionChanged", NotFinal},
    {"soundBankProgress", "double", "soundProgressChanged", NotFinal},
    {"triggerBankProgress", "double", "triggerProgressChanged", NotFinal},
    {"btfwProgress", "double", "btfwProgressChanged", NotFinal},
};

} // namespace

const testsupport::Table<Property> properties{rows};

} // namespace contract
} // namespace zelta

#include "parametertable.h"

#include <QHash>

namespace simulated {

namespace {

struct Row
{
    quint8 msb;
    quint8 lsb;
    ValueForm form;
    const char *name;
};

struct PageRow
{
    quint8 msb;
    ValueForm form;
    const char *owner;
    const char *name;
};

struct SectionRow
{
    quint8 lsb;
    ValueForm form;
    const char *name;
};

constexpr ValueForm Byte = ValueForm::Byte;
constexpr ValueForm Tempo = ValueForm::Tempo;
constexpr ValueForm Frequency = ValueForm::Frequency;
constexpr ValueForm Routing = ValueForm::Routing;

constexpr Row globalRows[] = {
    {0x01, 0x00, Byte, "ambience level"},
    {0x01, 0x01, Byte, "ambience pre-delay"},
    {0x01, 0x02, Byte, "ambience active"},

    {0x02, 0x00, Byte, "instrument reverb level"},
    {0x02, 0x01, Byte, "instrument reverb pre-delay"},
    {0x02, 0x02, Byte, "instrument reverb time"},
    {0x02, 0x03, Byte, "instrument reverb pre high-pass"},
    {0x02, 0x04, Byte, "instrument reverb high shelf"},
    {0x02, 0x05, Byte, "instrument reverb high damp"},
    {0x02, 0x06, Byte, "instrument reverb gate threshold"},
    {0x02, 0x07, Byte, "instrument reverb type"},
    {0x02, 0x08, Byte, "instrument reverb send to room"},
    {0x02, 0x09, Byte, "instrument reverb active"},
    {0x02, 0x0F, Routing, "instrument reverb routing"},

    {0x03, 0x00, Byte, "room reverb level"},
    {0x03, 0x01, Byte, "room reverb pre-delay"},
    {0x03, 0x02, Byte, "room reverb time"},
    {0x03, 0x03, Byte, "room reverb pre high-pass"},
    {0x03, 0x04, Byte, "room reverb high shelf"},
    {0x03, 0x05, Byte, "room reverb high damp"},
    {0x03, 0x07, Byte, "room reverb type"},
    {0x03, 0x09, Byte, "room reverb active"},
    {0x03, 0x0F, Routing, "room reverb routing"},

    {0x04, 0x00, Byte, "multi-FX level"},
    {0x04, 0x01, Byte, "multi-FX type"},
    {0x04, 0x02, Byte, "multi-FX active"},
    {0x04, 0x03, Byte, "multi-FX send to room"},
    {0x04, 0x04, Byte, "multi-FX parameter 0"},
    {0x04, 0x05, Byte, "multi-FX parameter 1"},
    {0x04, 0x06, Byte, "multi-FX parameter 2"},
    {0x04, 0x07, Byte, "multi-FX parameter 3"},
    {0x04, 0x08, Byte, "multi-FX parameter 4"},
    {0x04, 0x0F, Routing, "multi-FX routing"},

    // The click uses three per-pad pages like a pad with note 1.
    {0x0F, 0x01, Routing, "metronome click routing"},
    {0x17, 0x01, Byte, "metronome click sound"},
    {0x1A, 0x01, Byte, "metronome click level"},

    {0x37, 0x03, Byte, "fixed hi-hat"},
    {0x37, 0x04, Byte, "mixer snare style"},
    {0x37, 0x05, Byte, "mixer crossfade balance"},
    {0x37, 0x06, Byte, "mixer mix-in level"},
    {0x37, 0x07, Byte, "mixer synth master level"},
    {0x37, 0x0F, Routing, "mixer playback routing"},
    {0x37, 0x10, Byte, "mixer USB in level"},
    {0x37, 0x20, Byte, "MIDI channel"},
    {0x37, 0x21, Byte, "MIDI local control"},
    {0x37, 0x22, Byte, "MIDI input"},
    {0x37, 0x23, Byte, "MIDI over USB"},
    {0x37, 0x24, Byte, "MIDI hi-hat pedal channel"},
    {0x37, 0x25, Byte, "MIDI snare channel"},
    {0x37, 0x26, Byte, "MIDI ride channel"},
    {0x37, 0x27, Byte, "MIDI tom and aux channel"},
    {0x37, 0x28, Byte, "MIDI kit volume channel"},
    {0x37, 0x40, Byte, "LED brightness"},
    {0x37, 0x41, Byte, "bluetooth switch"},
    {0x37, 0x42, Byte, "auto-off"},
    {0x37, 0x51, Byte, "auto test"},
    {0x37, 0x56, Byte, "deep erase"},
    {0x37, 0x5F, Byte, "mixer song level"},
    {0x37, 0x63, Byte, "metronome active"},
    {0x37, 0x64, Tempo, "metronome tempo"},
    {0x37, 0x65, Byte, "metronome time signature numerator"},
    {0x37, 0x66, Byte, "metronome time signature denominator"},
    {0x37, 0x67, Byte, "metronome interval"},
    {0x37, 0x68, Byte, "metronome accent"},
    {0x37, 0x6A, Byte, "metronome tap"},
    {0x37, 0x6B, Byte, "metronome tap note 1"},
    {0x37, 0x6C, Byte, "metronome tap note 2"},

    {0x38, 0x06, Byte, "mixer master out balance"},
    {0x38, 0x07, Byte, "mixer master out level"},
    {0x39, 0x06, Byte, "mixer monitor out balance"},
    {0x39, 0x07, Byte, "mixer monitor out level"},
    {0x3A, 0x06, Byte, "mixer headphone out balance"},
    {0x3A, 0x07, Byte, "mixer headphone out level"},

    {0x3B, 0x00, Byte, "mixer direct out 1 level"},
    {0x3B, 0x01, Byte, "mixer direct out 2 level"},
    {0x3B, 0x02, Byte, "mixer direct out 3 level"},
    {0x3B, 0x03, Byte, "mixer direct out 4 level"},
    {0x3B, 0x04, Byte, "mixer direct out 5 level"},
    {0x3B, 0x05, Byte, "mixer direct out 6 level"},
    {0x3B, 0x06, Byte, "mixer direct out 7 level"},
    {0x3B, 0x07, Byte, "mixer direct out 8 level"},
    {0x3B, 0x08, Byte, "mixer S/PDIF out level"},
    {0x3B, 0x1F, Byte, "output meters request"},

    {0x3C, 0x21, Byte, "mix input gain 1"},
    {0x3F, 0x21, Byte, "mix input gain 2"},

    {0x3D, 0x00, Byte, "sound bank slot info request"},
    {0x3D, 0x01, Byte, "wave slot info request"},
    {0x3D, 0x0F, Byte, "memory info request"},
    {0x3D, 0x70, Byte, "delete sound bank slot"},
    {0x3D, 0x71, Byte, "delete wave slot"},
    {0x3D, 0x7F, Byte, "delete all slots"},
};

// Equaliser and compressor of the three outputs: one page for each output.
constexpr const char *sectionNames[] = {"master", "monitor", "headphone"};
constexpr quint8 firstSectionPage = 0x38;
constexpr SectionRow sectionRows[] = {
    {0x08, Byte, "EQ low gain"},
    {0x09, Byte, "EQ mid 2 gain"},
    {0x0A, Byte, "EQ mid 1 gain"},
    {0x0B, Byte, "EQ high gain"},
    {0x0C, Frequency, "EQ low frequency"},
    {0x0D, Frequency, "EQ mid 2 frequency"},
    {0x0E, Frequency, "EQ mid 1 frequency"},
    {0x0F, Frequency, "EQ high frequency"},
    {0x10, Byte, "EQ mid 2 Q"},
    {0x11, Byte, "EQ mid 1 Q"},
    {0x55, Byte, "EQ active"},
    {0x18, Byte, "compressor active"},
    {0x19, Byte, "compressor attack time"},
    {0x1A, Byte, "compressor release time"},
    {0x1B, Byte, "compressor threshold"},
    {0x1C, Byte, "compressor ratio"},
    {0x1D, Byte, "compressor boost"},
    {0x1E, Byte, "compressor knee"},
    {0x1F, Byte, "compressor meters request"},
};

constexpr quint8 directOutPage = 0x3B;
constexpr quint8 firstDirectOutMode = 0x10;
constexpr quint8 lastDirectOutMode = 0x1E;

constexpr PageRow pageRows[] = {
    {0x07, Byte, "pad", "mixer volume"},
    {0x08, Byte, "pad", "second sound coarse tuning"},
    {0x09, Byte, "pad", "second sound fine tuning"},
    {0x0A, Byte, "pad", "external MIDI note"},
    {0x0B, Byte, "pad", "second sound attack time"},
    {0x0C, Byte, "pad", "second sound release time"},
    {0x0F, Routing, "pad", "multi-FX direct routing"},
    {0x10, Byte, "pad", "attack time"},
    {0x11, Byte, "pad", "envelope release time"},
    {0x12, Byte, "pad", "second sound select high"},
    {0x13, Byte, "pad", "second sound active"},
    {0x14, Byte, "pad", "second sound select low"},
    {0x15, Byte, "pad", "second sound volume"},
    {0x16, Byte, "pad", "sound group"},
    {0x17, Byte, "pad", "sound instrument"},
    {0x18, Byte, "pad", "coarse tuning"},
    {0x19, Byte, "pad", "fine tuning"},
    {0x1A, Byte, "pad", "instrument volume"},
    {0x1B, Byte, "pad", "ambience send"},
    {0x1C, Byte, "pad", "panning"},
    {0x1D, Byte, "pad", "room reverb send"},
    {0x1E, Byte, "pad", "instrument reverb send"},
    {0x1F, Byte, "pad", "multi-FX send"},
    {0x20, Byte, "pad", "EQ active"},
    {0x21, Byte, "pad", "EQ low gain"},
    {0x22, Byte, "pad", "EQ mid gain"},
    {0x23, Byte, "pad", "EQ high gain"},
    {0x24, Frequency, "pad", "EQ low frequency"},
    {0x25, Frequency, "pad", "EQ mid frequency"},
    {0x26, Frequency, "pad", "EQ high frequency"},
    {0x27, Byte, "pad", "EQ mid Q"},
    {0x28, Byte, "pad", "compressor active"},
    {0x29, Byte, "pad", "compressor attack time"},
    {0x2A, Byte, "pad", "compressor release time"},
    {0x2B, Byte, "pad", "compressor threshold"},
    {0x2C, Byte, "pad", "compressor ratio"},
    {0x2D, Byte, "pad", "compressor boost"},
    {0x2E, Byte, "pad", "compressor knee"},
    {0x2F, Byte, "pad", "compressor meters request"},
    {0x40, Byte, "trigger", "bank preset"},
    {0x41, Byte, "trigger", "gain"},
    {0x42, Byte, "trigger", "threshold"},
    {0x43, Byte, "trigger", "crosstalk"},
    {0x44, Byte, "trigger", "high level"},
    {0x45, Byte, "trigger", "hi-hat low position"},
    {0x46, Byte, "trigger", "hi-hat high position"},
    {0x47, Byte, "trigger", "scan time"},
    {0x48, Byte, "trigger", "retrigger mask"},
    {0x49, Byte, "trigger", "type"},
    {0x4A, Byte, "trigger", "positional sensing"},
    {0x4C, Byte, "trigger", "curve preset"},
    {0x4D, Byte, "trigger", "hi-hat chick sensitivity"},
    {0x4E, Byte, "trigger", "hi-hat splash sensitivity"},
    {0x4F, Byte, "trigger", "transfer end"},
    {0x50, Byte, "trigger", "dynamics level"},
    {0x51, Byte, "trigger", "dynamics time"},
};

int key(quint8 msb, quint8 lsb)
{
    return (msb << 8) | lsb;
}

QHash<int, ParameterInfo> buildGlobalIndex()
{
    QHash<int, ParameterInfo> index;
    for (const Row &row : globalRows)
        index.insert(key(row.msb, row.lsb), {QLatin1String(row.name), row.form});
    quint8 page = firstSectionPage;
    for (const char *section : sectionNames) {
        for (const SectionRow &row : sectionRows)
            index.insert(key(page, row.lsb),
                         {QLatin1String(section) + QLatin1Char(' ') + QLatin1String(row.name), row.form});
        ++page;
    }
    for (int lsb = firstDirectOutMode; lsb <= lastDirectOutMode; ++lsb)
        index.insert(key(directOutPage, quint8(lsb)),
                     {QStringLiteral("mixer direct out mode %1").arg(lsb - firstDirectOutMode), Byte});
    return index;
}

const PageRow *findPage(quint8 msb)
{
    for (const PageRow &row : pageRows) {
        if (row.msb == msb)
            return &row;
    }
    return nullptr;
}

} // namespace

ParameterInfo parameterInfo(quint8 msb, quint8 lsb)
{
    static const QHash<int, ParameterInfo> global = buildGlobalIndex();
    const auto found = global.constFind(key(msb, lsb));
    if (found != global.constEnd())
        return *found;
    if (const PageRow *page = findPage(msb)) {
        return {QStringLiteral("%1 %2 %3")
                    .arg(QLatin1String(page->owner))
                    .arg(lsb)
                    .arg(QLatin1String(page->name)),
                page->form};
    }
    return {};
}

QString parameterText(quint8 msb, quint8 lsb, quint8 value, int low)
{
    const ParameterInfo info = parameterInfo(msb, lsb);
    QString text = info.name;
    if (!info.isKnown()) {
        text = QStringLiteral("parameter 0x%1/0x%2 value")
                   .arg(msb, 2, 16, QLatin1Char('0'))
                   .arg(lsb, 2, 16, QLatin1Char('0'));
    }
    text += QLatin1Char(' ');
    if (low < 0)
        return text + QString::number(value);
    switch (info.form) {
    case ValueForm::Tempo: return text + QString::number(tempoFromBytes(value, quint8(low)));
    case ValueForm::Frequency: return text + QString::number((value << 7) | low);
    case ValueForm::Byte:
    case ValueForm::Routing: break;
    }
    return text + QStringLiteral("%1/%2").arg(value).arg(low);
}

int tempoFromBytes(quint8 value, quint8 low)
{
    // The 14-bit word is (bpm - 20) * 64, so bit 6 of the low byte is one beat per minute.
    return 20 + (value << 1) + ((low >> 6) & 1);
}

} // namespace simulated

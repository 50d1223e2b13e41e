#include "parametertable.h"

#include <QHash>

namespace simulated {

namespace {

struct Row
{
    quint8 msb;
    quint8 lsb;
    const char *name;
    ValueForm form;
};

struct PageRow
{
    quint8 msb;
    const char *owner;
    const char *name;
    ValueForm form;
};

struct SectionRow
{
    quint8 lsb;
    const char *name;
    ValueForm form;
};

constexpr ValueForm Byte = ValueForm::Byte;
constexpr ValueForm Tempo = ValueForm::Tempo;
constexpr ValueForm Frequency = ValueForm::Frequency;
constexpr ValueForm Routing = ValueForm::Routing;

constexpr Row globalRows[] = {
    {0x01, 0x00, "ambience level", Byte},
    {0x01, 0x01, "ambience pre-delay", Byte},
    {0x01, 0x02, "ambience active", Byte},

    {0x02, 0x00, "instrument reverb level", Byte},
    {0x02, 0x01, "instrument reverb pre-delay", Byte},
    {0x02, 0x02, "instrument reverb time", Byte},
    {0x02, 0x03, "instrument reverb pre high-pass", Byte},
    {0x02, 0x04, "instrument reverb high shelf", Byte},
    {0x02, 0x05, "instrument reverb high damp", Byte},
    {0x02, 0x06, "instrument reverb gate threshold", Byte},
    {0x02, 0x07, "instrument reverb type", Byte},
    {0x02, 0x08, "instrument reverb send to room", Byte},
    {0x02, 0x09, "instrument reverb active", Byte},
    {0x02, 0x0F, "instrument reverb routing", Routing},

    {0x03, 0x00, "room reverb level", Byte},
    {0x03, 0x01, "room reverb pre-delay", Byte},
    {0x03, 0x02, "room reverb time", Byte},
    {0x03, 0x03, "room reverb pre high-pass", Byte},
    {0x03, 0x04, "room reverb high shelf", Byte},
    {0x03, 0x05, "room reverb high damp", Byte},
    {0x03, 0x07, "room reverb type", Byte},
    {0x03, 0x09, "room reverb active", Byte},
    {0x03, 0x0F, "room reverb routing", Routing},

    {0x04, 0x00, "multi-FX level", Byte},
    {0x04, 0x01, "multi-FX type", Byte},
    {0x04, 0x02, "multi-FX active", Byte},
    {0x04, 0x03, "multi-FX send to room", Byte},
    {0x04, 0x04, "multi-FX parameter 0", Byte},
    {0x04, 0x05, "multi-FX parameter 1", Byte},
    {0x04, 0x06, "multi-FX parameter 2", Byte},
    {0x04, 0x07, "multi-FX parameter 3", Byte},
    {0x04, 0x08, "multi-FX parameter 4", Byte},
    {0x04, 0x0F, "multi-FX routing", Routing},

    // The click lives on three per-pad pages, as if it were a pad with note 1.
    {0x0F, 0x01, "metronome click routing", Routing},
    {0x17, 0x01, "metronome click sound", Byte},
    {0x1A, 0x01, "metronome click level", Byte},

    {0x37, 0x03, "fixed hi-hat", Byte},
    {0x37, 0x04, "mixer snare style", Byte},
    {0x37, 0x05, "mixer crossfade balance", Byte},
    {0x37, 0x06, "mixer mix-in level", Byte},
    {0x37, 0x07, "mixer synth master level", Byte},
    {0x37, 0x0F, "mixer playback routing", Routing},
    {0x37, 0x10, "mixer USB in level", Byte},
    {0x37, 0x20, "MIDI channel", Byte},
    {0x37, 0x21, "MIDI local control", Byte},
    {0x37, 0x22, "MIDI input", Byte},
    {0x37, 0x23, "MIDI over USB", Byte},
    {0x37, 0x24, "MIDI hi-hat pedal channel", Byte},
    {0x37, 0x25, "MIDI snare channel", Byte},
    {0x37, 0x26, "MIDI ride channel", Byte},
    {0x37, 0x27, "MIDI tom and aux channel", Byte},
    {0x37, 0x28, "MIDI kit volume channel", Byte},
    {0x37, 0x40, "LED brightness", Byte},
    {0x37, 0x41, "bluetooth switch", Byte},
    {0x37, 0x42, "auto-off", Byte},
    {0x37, 0x51, "auto test", Byte},
    {0x37, 0x56, "deep erase", Byte},
    {0x37, 0x5F, "mixer song level", Byte},
    {0x37, 0x63, "metronome active", Byte},
    {0x37, 0x64, "metronome tempo", Tempo},
    {0x37, 0x65, "metronome time signature numerator", Byte},
    {0x37, 0x66, "metronome time signature denominator", Byte},
    {0x37, 0x67, "metronome interval", Byte},
    {0x37, 0x68, "metronome accent", Byte},
    {0x37, 0x6A, "metronome tap", Byte},
    {0x37, 0x6B, "metronome tap note 1", Byte},
    {0x37, 0x6C, "metronome tap note 2", Byte},

    {0x38, 0x06, "mixer master out balance", Byte},
    {0x38, 0x07, "mixer master out level", Byte},
    {0x39, 0x06, "mixer monitor out balance", Byte},
    {0x39, 0x07, "mixer monitor out level", Byte},
    {0x3A, 0x06, "mixer headphone out balance", Byte},
    {0x3A, 0x07, "mixer headphone out level", Byte},

    {0x3B, 0x00, "mixer direct out 1 level", Byte},
    {0x3B, 0x01, "mixer direct out 2 level", Byte},
    {0x3B, 0x02, "mixer direct out 3 level", Byte},
    {0x3B, 0x03, "mixer direct out 4 level", Byte},
    {0x3B, 0x04, "mixer direct out 5 level", Byte},
    {0x3B, 0x05, "mixer direct out 6 level", Byte},
    {0x3B, 0x06, "mixer direct out 7 level", Byte},
    {0x3B, 0x07, "mixer direct out 8 level", Byte},
    {0x3B, 0x08, "mixer S/PDIF out level", Byte},
    {0x3B, 0x1F, "output meters request", Byte},

    {0x3C, 0x21, "mix input gain 1", Byte},
    {0x3F, 0x21, "mix input gain 2", Byte},

    {0x3D, 0x00, "sound bank slot info request", Byte},
    {0x3D, 0x01, "wave slot info request", Byte},
    {0x3D, 0x0F, "memory info request", Byte},
    {0x3D, 0x70, "delete sound bank slot", Byte},
    {0x3D, 0x71, "delete wave slot", Byte},
    {0x3D, 0x7F, "delete all slots", Byte},
};

// Equaliser and compressor of the three outputs: the page chooses the output.
constexpr const char *sectionNames[] = {"master", "monitor", "headphone"};
constexpr quint8 firstSectionPage = 0x38;
constexpr SectionRow sectionRows[] = {
    {0x08, "EQ low gain", Byte},
    {0x09, "EQ mid 2 gain", Byte},
    {0x0A, "EQ mid 1 gain", Byte},
    {0x0B, "EQ high gain", Byte},
    {0x0C, "EQ low frequency", Frequency},
    {0x0D, "EQ mid 2 frequency", Frequency},
    {0x0E, "EQ mid 1 frequency", Frequency},
    {0x0F, "EQ high frequency", Frequency},
    {0x10, "EQ mid 2 Q", Byte},
    {0x11, "EQ mid 1 Q", Byte},
    {0x55, "EQ active", Byte},
    {0x18, "compressor active", Byte},
    {0x19, "compressor attack time", Byte},
    {0x1A, "compressor release time", Byte},
    {0x1B, "compressor threshold", Byte},
    {0x1C, "compressor ratio", Byte},
    {0x1D, "compressor boost", Byte},
    {0x1E, "compressor knee", Byte},
    {0x1F, "compressor meters request", Byte},
};

constexpr quint8 directOutPage = 0x3B;
constexpr quint8 firstDirectOutMode = 0x10;
constexpr quint8 lastDirectOutMode = 0x1E;

constexpr PageRow pageRows[] = {
    {0x07, "pad", "mixer volume", Byte},
    {0x08, "pad", "second sound coarse tuning", Byte},
    {0x09, "pad", "second sound fine tuning", Byte},
    {0x0A, "pad", "external MIDI note", Byte},
    {0x0B, "pad", "second sound attack time", Byte},
    {0x0C, "pad", "second sound release time", Byte},
    {0x0F, "pad", "multi-FX direct routing", Routing},
    {0x10, "pad", "attack time", Byte},
    {0x11, "pad", "envelope release time", Byte},
    {0x12, "pad", "second sound select high", Byte},
    {0x13, "pad", "second sound active", Byte},
    {0x14, "pad", "second sound select low", Byte},
    {0x15, "pad", "second sound volume", Byte},
    {0x16, "pad", "sound group", Byte},
    {0x17, "pad", "sound instrument", Byte},
    {0x18, "pad", "coarse tuning", Byte},
    {0x19, "pad", "fine tuning", Byte},
    {0x1A, "pad", "instrument volume", Byte},
    {0x1B, "pad", "ambience send", Byte},
    {0x1C, "pad", "panning", Byte},
    {0x1D, "pad", "room reverb send", Byte},
    {0x1E, "pad", "instrument reverb send", Byte},
    {0x1F, "pad", "multi-FX send", Byte},
    {0x20, "pad", "EQ active", Byte},
    {0x21, "pad", "EQ low gain", Byte},
    {0x22, "pad", "EQ mid gain", Byte},
    {0x23, "pad", "EQ high gain", Byte},
    {0x24, "pad", "EQ low frequency", Frequency},
    {0x25, "pad", "EQ mid frequency", Frequency},
    {0x26, "pad", "EQ high frequency", Frequency},
    {0x27, "pad", "EQ mid Q", Byte},
    {0x28, "pad", "compressor active", Byte},
    {0x29, "pad", "compressor attack time", Byte},
    {0x2A, "pad", "compressor release time", Byte},
    {0x2B, "pad", "compressor threshold", Byte},
    {0x2C, "pad", "compressor ratio", Byte},
    {0x2D, "pad", "compressor boost", Byte},
    {0x2E, "pad", "compressor knee", Byte},
    {0x2F, "pad", "compressor meters request", Byte},
    {0x40, "trigger", "bank preset", Byte},
    {0x41, "trigger", "gain", Byte},
    {0x42, "trigger", "threshold", Byte},
    {0x43, "trigger", "crosstalk", Byte},
    {0x44, "trigger", "high level", Byte},
    {0x45, "trigger", "hi-hat low position", Byte},
    {0x46, "trigger", "hi-hat high position", Byte},
    {0x47, "trigger", "scan time", Byte},
    {0x48, "trigger", "retrigger mask", Byte},
    {0x49, "trigger", "type", Byte},
    {0x4A, "trigger", "positional sensing", Byte},
    {0x4C, "trigger", "curve preset", Byte},
    {0x4D, "trigger", "hi-hat chick sensitivity", Byte},
    {0x4E, "trigger", "hi-hat splash sensitivity", Byte},
    {0x4F, "trigger", "transfer end", Byte},
    {0x50, "trigger", "dynamics level", Byte},
    {0x51, "trigger", "dynamics time", Byte},
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
    // The word counts sixty-fourths of a beat per minute from 20; bit 6 of its low byte is the odd one.
    return 20 + (value << 1) + (low >> 6);
}

} // namespace simulated

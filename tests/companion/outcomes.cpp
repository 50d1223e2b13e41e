#include "outcomes.h"

#include <QMap>
#include <QVector>

namespace {

const QString done = QStringLiteral("Done");
const QString failed = QStringLiteral("Failed");
const QString refusedState = QStringLiteral("Refused");

Outcome arrives()
{
    return {done, QStringLiteral("NoReason"), QStringLiteral("The engine has the file."),
            0,    QStringLiteral("sent"),     true};
}

// zelta-send sends nothing to an engine that does not answer its first query.
Outcome arrivesUnanswered()
{
    Outcome outcome = arrives();
    outcome.exitStatus = 4;
    outcome.printed = QStringLiteral("the sound engine does not answer");
    return outcome;
}

Outcome refused(const char *code)
{
    return {refusedState,
            QStringLiteral("DataRefused"),
            QStringLiteral("he engine refused the data (%1).").arg(QLatin1String(code)),
            1,
            {},
            false};
}

Outcome memoryFull(const char *code)
{
    return {refusedState,
            QStringLiteral("MemoryFull"),
            QStringLiteral("he engine's memory is full (%1).").arg(QLatin1String(code)),
            1,
            {},
            false};
}

Outcome damaged()
{
    return {failed,
            QStringLiteral("Damaged"),
            QStringLiteral("hecksum error: the file did not arrive whole (0x01)."),
            1,
            {},
            false};
}

Outcome notAcknowledged(bool arrives)
{
    return {failed,
            QStringLiteral("NotAcknowledged"),
            QStringLiteral("he engine did not acknowledge the end."),
            1,
            {},
            arrives};
}

Outcome aborted()
{
    return {failed,
            QStringLiteral("Aborted"),
            QStringLiteral(
                "he transfer was aborted: the engine requested data beyond the end, or the file could not "
                "be read."),
            1,
            {},
            false};
}

// All kinds end in the same way.
const QMap<QString, Outcome> &table()
{
    static const QMap<QString, Outcome> outcomes = {
        {QStringLiteral("resend"), arrives()},
        {QStringLiteral("resend-twice"), arrives()},
        {QStringLiteral("resend-before-start"), arrives()},
        {QStringLiteral("resend-past-end"), aborted()},
        {QStringLiteral("unknown-low-byte"), arrives()},
        {QStringLiteral("refuse-e0"), refused("0xe0")},
        {QStringLiteral("memory-full-e1"), memoryFull("0xe1")},
        {QStringLiteral("memory-full-e2"), memoryFull("0xe2")},
        {QStringLiteral("memory-full-e3"), memoryFull("0xe3")},
        {QStringLiteral("refuse-e4"), refused("0xe4")},
        {QStringLiteral("refuse-e5"), refused("0xe5")},
        {QStringLiteral("refuse-e6"), refused("0xe6")},
        {QStringLiteral("refuse-e7"), refused("0xe7")},
        {QStringLiteral("refuse-e8"), refused("0xe8")},
        {QStringLiteral("refuse-e9"), refused("0xe9")},
        {QStringLiteral("refuse-ea"), refused("0xea")},
        {QStringLiteral("refuse-eb"), refused("0xeb")},
        {QStringLiteral("refuse-ec"), refused("0xec")},
        {QStringLiteral("refuse-ed"), refused("0xed")},
        {QStringLiteral("refuse-ee"), refused("0xee")},
        {QStringLiteral("refuse-ef"), refused("0xef")},
        {QStringLiteral("bad-checksum"), damaged()},
        {QStringLiteral("no-end-ack"), notAcknowledged(true)},
        {QStringLiteral("no-query-reply"), arrivesUnanswered()},
        {QStringLiteral("late-query-reply"), arrivesUnanswered()},
        {QStringLiteral("wrong-query-reply"), arrives()},
        {QStringLiteral("stray-acks"), arrives()},
        {QStringLiteral("vanish"), notAcknowledged(false)},
        {QStringLiteral("vanish-and-return"), arrives()},
        {QStringLiteral("drop"), arrives()},
        {QStringLiteral("duplicate"), arrives()},
        {QStringLiteral("reorder"), arrives()},
        {QStringLiteral("lose-once"), arrives()},
        {QStringLiteral("duplicate-once"), arrives()},
        {QStringLiteral("delay-once"), arrives()},
    };
    return outcomes;
}

} // namespace

const QVector<OutcomeKind> &outcomeKinds()
{
    static const QVector<OutcomeKind> kinds = {
        {"zelta", "FW", "EngineFirmware"},
        {"trigger", "TF", "TriggerFirmware"},
        {"soundbank", "SB", "SoundBank"},
        {"triggerbank", "TB", "TriggerBank"},
        {"import-soundbank", "IS", "SoundBankImport"},
        {"import-wave", "IW", "WaveImport"},
        {"bluetooth", "BF", "BluetoothFirmware"},
    };
    return kinds;
}

const OutcomeKind &outcomeKindOf(const QByteArray &content)
{
    for (const OutcomeKind &kind : outcomeKinds()) {
        if (content == kind.content)
            return kind;
    }
    qFatal("no kind %s", content.constData());
}

const Outcome *outcomeOf(const OutcomeKind & /*kind*/, const QString &mode)
{
    const auto found = table().find(mode);
    return found != table().end() ? &*found : nullptr;
}

bool outcomeVaries(const QString &mode)
{
    return mode == QLatin1String("drop") || mode == QLatin1String("duplicate") ||
           mode == QLatin1String("reorder");
}

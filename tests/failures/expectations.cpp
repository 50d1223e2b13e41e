#include "expectations.h"

#include <map>

namespace {

using End = Expectation::End;

constexpr Expectation arrives{End::Acknowledged, 0, 0};
constexpr Expectation arrivesAtSecondTry{End::Acknowledged, 0, 1};
constexpr Expectation varies{End::Varies, 0, 0};

constexpr Expectation refused(quint16 code)
{
    return {End::Acknowledged, code, 0};
}

constexpr Expectation memoryFull(quint16 code)
{
    return {End::BrokenOff, code, 0};
}

const std::map<QString, Expectation> &expectations()
{
    static const std::map<QString, Expectation> table = {
        {QStringLiteral("resend"), arrivesAtSecondTry},
        {QStringLiteral("resend-twice"), {End::Acknowledged, 0, 2}},
        {QStringLiteral("resend-before-start"), arrivesAtSecondTry},
        {QStringLiteral("resend-past-end"), {End::BrokenOff, 0, 1}},
        // Resent, but not counted.
        {QStringLiteral("unknown-low-byte"), arrives},
        {QStringLiteral("refuse-e0"), refused(0xE0)},
        {QStringLiteral("memory-full-e1"), memoryFull(0xE1)},
        {QStringLiteral("memory-full-e2"), memoryFull(0xE2)},
        {QStringLiteral("memory-full-e3"), memoryFull(0xE3)},
        {QStringLiteral("refuse-e4"), refused(0xE4)},
        {QStringLiteral("refuse-e5"), refused(0xE5)},
        {QStringLiteral("refuse-e6"), refused(0xE6)},
        {QStringLiteral("refuse-e7"), refused(0xE7)},
        {QStringLiteral("refuse-e8"), refused(0xE8)},
        {QStringLiteral("refuse-e9"), refused(0xE9)},
        {QStringLiteral("refuse-ea"), refused(0xEA)},
        {QStringLiteral("refuse-eb"), refused(0xEB)},
        {QStringLiteral("refuse-ec"), refused(0xEC)},
        {QStringLiteral("refuse-ed"), refused(0xED)},
        {QStringLiteral("refuse-ee"), refused(0xEE)},
        {QStringLiteral("refuse-ef"), refused(0xEF)},
        {QStringLiteral("bad-checksum"), {End::Acknowledged, 1, 0}},
        {QStringLiteral("no-end-ack"), {End::TimedOut, 0, 0}},
        {QStringLiteral("no-query-reply"), arrives},
        {QStringLiteral("late-query-reply"), arrives},
        {QStringLiteral("wrong-query-reply"), arrives},
        {QStringLiteral("stray-acks"), arrives},
        {QStringLiteral("vanish"), {End::TimedOut, 0, 0}},
        {QStringLiteral("vanish-and-return"), arrivesAtSecondTry},
        {QStringLiteral("drop"), varies},
        {QStringLiteral("duplicate"), varies},
        {QStringLiteral("reorder"), varies},
        {QStringLiteral("lose-once"), arrivesAtSecondTry},
        {QStringLiteral("duplicate-once"), arrives},
        {QStringLiteral("delay-once"), arrivesAtSecondTry},
    };
    return table;
}

// The signals before the data of firmware when the version query was not answered correctly.
QStringList beforeData(const TransferKind &kind, const QString &mode)
{
    QStringList before = kind.before;
    if (before.isEmpty())
        return before;
    const bool isEngine = before.first() == QLatin1String("zeltaVersionChanged()");
    if (mode == QLatin1String("no-query-reply") || mode == QLatin1String("late-query-reply")) {
        before.removeFirst();
        before.last().replace(QStringLiteral("65540"), QStringLiteral("0"));
    } else if (mode == QLatin1String("wrong-query-reply")) {
        // The value is used even if it is the version of another part: 1.4 of the trigger board, 1.0 of the
        // sound bank.
        before.first() = isEngine ? QStringLiteral("triggerVersionChanged()")
                                  : QStringLiteral("soundbankVersionChanged()");
        if (!isEngine)
            before.last().replace(QStringLiteral("65540"), QStringLiteral("65536"));
    }
    return before;
}

} // namespace

QStringList Expectation::signalsOf(const TransferKind &kind, const QString &mode) const
{
    QStringList expected = beforeData(kind, mode);
    if (!kind.progress.isEmpty())
        expected.append(kind.progress);
    const bool isEngineFirmware = qstrcmp(kind.content, "FW") == 0;
    switch (end) {
    case End::Acknowledged: {
        QStringList completed = kind.completed(status, resends);
        // Nothing is installed after an error.
        if (isEngineFirmware && status != 0)
            completed = completed.mid(2);
        expected.append(completed);
        break;
    }
    case End::TimedOut:
        expected.append(kind.completed(kind.passesStatusOn ? 0 : 0xFF).mid(isEngineFirmware ? 2 : 0));
        break;
    case End::BrokenOff:
        if (kind.passesStatusOn)
            expected.append(kind.completed(status));
        break;
    case End::Varies: break;
    }
    return expected;
}

const Expectation *expectationOf(const QString &mode)
{
    const auto found = expectations().find(mode);
    return found != expectations().end() ? &found->second : nullptr;
}

bool isAboutQueries(const QString &mode)
{
    return mode.endsWith(QStringLiteral("-query-reply"));
}

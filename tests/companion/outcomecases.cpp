#include "outcomecases.h"

#include "simulator/failures.h"
#include "transfer/session.h"

#include <QStringList>

namespace {

// The transfer takes three seconds if the outcome depends on an answer that arrives during it.
int packetsOf(const TransferKind &kind, const QString &mode)
{
    static const QStringList modes = {QStringLiteral("lose-once"), QStringLiteral("delay-once"),
                                      QStringLiteral("vanish-and-return"), QStringLiteral("resend-past-end")};
    const bool isEndedByAnAnswer =
        mode.startsWith(QLatin1String("memory-full")) || mode.startsWith(QLatin1String("refuse-"));
    return kind.packetsFor(isEndedByAnAnswer || modes.contains(mode) ? 3000 : 1000);
}

// Every gap takes four seconds, so there are only one or two.
QString modeText(const QString &mode, int packets)
{
    if (mode == QLatin1String("drop") || mode == QLatin1String("reorder"))
        return QStringLiteral("%1=%2").arg(mode).arg(packets * 2 / 3);
    return mode;
}

bool isFirmware(const TransferKind &kind)
{
    return !kind.before.isEmpty();
}

// The other kinds of a group differ only in names. They are sent with a few modes, and with all of them in
// the long test.
bool isRepresentative(const TransferKind &kind, const QString &mode)
{
    static const QStringList modes = {QStringLiteral("resend"), QStringLiteral("refuse-e4"),
                                      QStringLiteral("memory-full-e1"), QStringLiteral("bad-checksum")};
    const QByteArray content = kind.content;
    if (modes.contains(mode))
        return true;
    if (mode.startsWith(QLatin1String("refuse-")))
        return content == "TB";
    return content == "TF" || content == "TB" || content == "IW" || content == "BF";
}

} // namespace

QString OutcomeCase::write(const TestFiles &files) const
{
    return files.write(
        QStringLiteral("%1-%2/%3").arg(QLatin1String(kind.content)).arg(packets).arg(kind.fileName),
        kind.file(packets * kind.chunkBytes - 1));
}

QVector<OutcomeCase> outcomeCases(bool takesLong)
{
    QVector<TransferKind> kinds = quickKinds();
    kinds.append(zeltaFirmwareKind());
    QVector<OutcomeCase> cases;
    for (const simulated::FailureMode &failure : simulated::failureModes()) {
        const QString mode = QLatin1String(failure.name);
        for (const TransferKind &kind : qAsConst(kinds)) {
            // Only firmware begins with a query.
            if (mode.endsWith(QStringLiteral("-query-reply")) && !isFirmware(kind))
                continue;
            // After engine firmware, the module pauses for 20 s.
            const bool isLong = QByteArray(kind.content) == "FW" || !isRepresentative(kind, mode);
            const int packets = packetsOf(kind, mode);
            if (isLong == takesLong)
                cases.append({kind, mode, modeText(mode, packets), packets});
        }
    }
    return cases;
}

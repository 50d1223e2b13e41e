#include "report.h"

#include <QObject>
#include <QVariant>

namespace {

const QObject *child(const QObject *parent, const char *name)
{
    return parent ? qvariant_cast<QObject *>(parent->property(name)) : nullptr;
}

int count(const QObject *device, const char *name)
{
    return device ? device->property(name).toInt() : 0;
}

QString listed(const QObject *device, const QVector<QPair<QString, const char *>> &items)
{
    QStringList parts;
    for (const auto &item : items)
        parts.append(item.first + QLatin1Char(' ') + QString::number(count(device, item.second)));
    return parts.join(QStringLiteral(", "));
}

} // namespace

Report makeReport(const QObject *shell)
{
    const QObject *device = child(shell, "device");
    const QObject *masterLevel = child(child(child(shell, "settings"), "mixer"), "master");

    Report report;
    report.lines.append(QStringLiteral("to screen:   ") +
                        listed(device, {{QStringLiteral("pad hits"), "padHits"},
                                        {QStringLiteral("meter reports"), "meterReports"},
                                        {QStringLiteral("beats"), "beats"},
                                        {QStringLiteral("tempo changes"), "tempoReports"}}));
    report.lines.append(QStringLiteral("to screen:   ") +
                        listed(device, {{QStringLiteral("aftertouch"), "chokes"},
                                        {QStringLiteral("pedal moves"), "pedalMoves"},
                                        {QStringLiteral("compressor reports"), "compressorReports"},
                                        {QStringLiteral("switch changes"), "switchChanges"},
                                        {QStringLiteral("pot steps"), "potSteps"},
                                        {QStringLiteral("other events"), "otherEvents"}}));
    report.lines.append(QStringLiteral("from screen: %1 control changes, last master level %2")
                            .arg(count(device, "controlChanges"))
                            .arg(masterLevel ? masterLevel->property("value").toInt() : 0));
    if (shell)
        report.lines.append(QStringLiteral("connection:  ") + shell->property("connectionText").toString());

    if (const QObject *transfers = child(shell, "transfers"))
        report.lines.append(QStringLiteral("transfer:    ") + transfers->property("statusText").toString());

    if (count(device, "padHits") == 0)
        report.missing.append(QStringLiteral("pad hits"));
    if (count(device, "meterReports") == 0)
        report.missing.append(QStringLiteral("meter reports"));
    return report;
}

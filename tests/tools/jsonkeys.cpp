#include "jsonkeys.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

// In alphabetical order, as QJsonObject lists them.
const QStringList resultKeys = {
    QStringLiteral("action"),
    QStringLiteral("checks"),
    QStringLiteral("engine"),
    QStringLiteral("files"),
    QStringLiteral("message"),
    QStringLiteral("program"),
    QStringLiteral("result"),
    QStringLiteral("soundBankVersion"),
    QStringLiteral("status"),
    QStringLiteral("system"),
    QStringLiteral("triggerBankVersion"),
    QStringLiteral("version"),
    QStringLiteral("warnings"),
};
const QStringList fileKeys = {
    QStringLiteral("bytes"),       QStringLiteral("bytesPerSecond"),
    QStringLiteral("fileVersion"), QStringLiteral("installedVersion"),
    QStringLiteral("kind"),        QStringLiteral("looksLike"),
    QStringLiteral("message"),     QStringLiteral("name"),
    QStringLiteral("path"),        QStringLiteral("retransmissions"),
    QStringLiteral("seconds"),     QStringLiteral("slot"),
    QStringLiteral("state"),       QStringLiteral("status"),
};
const QStringList checkKeys = {QStringLiteral("finding"), QStringLiteral("mend"), QStringLiteral("name"),
                               QStringLiteral("state")};
const QStringList systemKeys = {QStringLiteral("architecture"), QStringLiteral("kernel"),
                                QStringLiteral("operatingSystem"), QStringLiteral("qt")};

QJsonObject onlyObject(const QByteArray &output)
{
    if (output.count('\n') != 1 || !output.endsWith('\n'))
        return {};
    return QJsonDocument::fromJson(output).object();
}

QList<QJsonObject> objectLines(const QByteArray &errors)
{
    QList<QJsonObject> objects;
    QList<QByteArray> lines = errors.split('\n');
    lines.removeLast(); // behind the last end of a line
    for (const QByteArray &line : qAsConst(lines))
        objects.append(QJsonDocument::fromJson(line).object());
    return objects;
}

bool hasDocumentedKeys(const QJsonObject &result)
{
    const auto haveKeys = [&result](const char *array, const QStringList &keys) {
        const QJsonArray items = result.value(QLatin1String(array)).toArray();
        return std::all_of(items.begin(), items.end(),
                           [&keys](const QJsonValue &item) { return item.toObject().keys() == keys; });
    };
    return result.keys() == resultKeys &&
           result.value(QLatin1String("system")).toObject().keys() == systemKeys &&
           haveKeys("files", fileKeys) && haveKeys("checks", checkKeys);
}

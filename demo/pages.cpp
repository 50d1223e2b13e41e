#include "pages.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

QJsonArray readList()
{
    QFile file(QStringLiteral(":/screen/pages.json"));
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).array() : QJsonArray();
}

Gesture gestureFrom(const QJsonObject &entry)
{
    const QJsonArray by = entry.value(QLatin1String("by")).toArray();
    return {entry.value(QLatin1String("control")).toString(), {by.at(0).toDouble(), by.at(1).toDouble()}};
}

Page pageFrom(const QJsonObject &entry)
{
    Page page{entry.value(QLatin1String("name")).toString(), {}};
    const QJsonArray tour = entry.value(QLatin1String("tour")).toArray();
    for (const QJsonValue &gesture : tour)
        page.tour.append(gestureFrom(gesture.toObject()));
    return page;
}

QVector<Page> readPages()
{
    QVector<Page> result;
    const QJsonArray list = readList();
    for (const QJsonValue &entry : list)
        result.append(pageFrom(entry.toObject()));
    return result;
}

} // namespace

const QVector<Page> &pages()
{
    static const QVector<Page> all = readPages();
    return all;
}

QStringList pageNames()
{
    QStringList names;
    for (const Page &page : pages())
        names.append(page.name);
    return names;
}

QVariantList pageList()
{
    return readList().toVariantList();
}

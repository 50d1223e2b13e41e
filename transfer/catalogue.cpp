#include "transfer/catalogue.h"

#include "transfer/inputfile.h"

#include <QFile>
#include <QJsonDocument>

namespace zelta {

namespace {

constexpr int replaced = 0;
constexpr int sourceUnreadable = -1;
constexpr int catalogueUnwritable = -2;

QByteArray readText(const QString &path)
{
    QFile file(path);
    return openForReading(file, QIODevice::Text) ? file.readAll() : QByteArray();
}

int replaceCatalogue(const QString &catalogue, const QString &path)
{
    QFile source(path);
    if (!openForReading(source, QIODevice::Text))
        return sourceUnreadable;
    // Read before the catalogue is truncated: the two may be the same file.
    const QByteArray content = source.readAll();
    QFile destination(catalogue);
    if (!destination.open(QIODevice::WriteOnly | QIODevice::Text))
        return catalogueUnwritable;
    destination.write(content);
    return replaced;
}

} // namespace

QString catalogueText(const QString &path)
{
    return QString::fromLatin1(readText(path).constData());
}

QJsonObject catalogueObject(const QString &path)
{
    return QJsonDocument::fromJson(readText(path)).object();
}

int replaceSoundBankCatalogue(const QString &path)
{
    return replaceCatalogue(QStringLiteral("/home/.local/share/E-Drum/soundBank.json"), path);
}

int replaceTriggerBankCatalogue(const QString &path)
{
    return replaceCatalogue(QStringLiteral("/home/.local/share/E-Drum/triggerBank.json"), path);
}

} // namespace zelta

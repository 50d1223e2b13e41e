#include "transfer/qconnectfirmware.h"

#include "transfer/inputfile.h"

#include <QFile>
#include <QJsonDocument>

namespace {

constexpr int backupDone = 0;
constexpr int sourceUnreadable = -1;
constexpr int catalogueUnwritable = -2;

// The whole file as text, nothing if it cannot be opened.
QByteArray readText(const QString &path)
{
    QFile file(path);
    return zelta::openForReading(file, QIODevice::Text) ? file.readAll() : QByteArray();
}

int copyToCatalogue(const QString &path, const QString &cataloguePath)
{
    QFile source(path);
    if (!zelta::openForReading(source, QIODevice::Text))
        return sourceUnreadable;
    // Read before the catalogue is truncated: the two may be the same file.
    const QByteArray content = source.readAll();
    QFile catalogue(cataloguePath);
    if (!catalogue.open(QIODevice::WriteOnly | QIODevice::Text))
        return catalogueUnwritable;
    catalogue.write(content);
    return backupDone;
}

} // namespace

QString qconnectfirmware::parseJsonFile(const QString &path)
{
    return QString::fromLatin1(readText(path).constData());
}

QJsonObject qconnectfirmware::parseSoundBankList(const QString &path)
{
    return parseTriggerBankList(path);
}

QJsonObject qconnectfirmware::parseTriggerBankList(const QString &path)
{
    return QJsonDocument::fromJson(readText(path)).object();
}

int qconnectfirmware::backupSoundBankList(const QString &path)
{
    return copyToCatalogue(path, QStringLiteral("/home/.local/share/E-Drum/soundBank.json"));
}

int qconnectfirmware::backupTriggerBankList(const QString &path)
{
    return copyToCatalogue(path, QStringLiteral("/home/.local/share/E-Drum/triggerBank.json"));
}

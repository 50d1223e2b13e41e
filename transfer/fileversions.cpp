#include "transfer/fileversions.h"

#include "transfer/inputfile.h"

#include <QByteArray>
#include <QFile>
#include <QtEndian>

namespace zelta {

namespace {

constexpr int noVersion = -1;

constexpr int textWindow = 100;
constexpr int headerLength = 8;
constexpr int minorOffset = 4;
constexpr int majorOffset = 6;

QByteArray firstBytes(const QString &path, int count)
{
    QFile file(path);
    return openForReading(file) ? file.read(count) : QByteArray();
}

quint16 littleEndianWord(const QByteArray &bytes, int offset)
{
    return qFromLittleEndian<quint16>(bytes.constData() + offset);
}

} // namespace

int zeltaFirmwareVersion(const QString &path)
{
    const QByteArray prefix = QByteArrayLiteral("4810QN-");
    constexpr int prefixToVersion = 10; // three characters between prefix and number

    const QByteArray window = firstBytes(path, textWindow);
    const int start = window.indexOf(prefix);
    if (start < 0)
        return noVersion;
    const QByteArray rest = window.mid(start + prefixToVersion);
    const int end = rest.indexOf(QByteArrayLiteral(" - "));
    if (end < 0)
        return noVersion;
    const QByteArray version = rest.left(end);
    const int point = version.indexOf('.');
    if (point < 0)
        return noVersion;
    return versionWord(quint32(version.left(point).toInt()), quint32(version.mid(point + 1).toInt()));
}

int triggerFirmwareVersion(const QString &path)
{
    QByteArray header = firstBytes(path, headerLength);
    if (!header.startsWith("TGFW"))
        return noVersion;
    header.append(headerLength - header.size(), '\0');
    return versionWord(littleEndianWord(header, majorOffset), littleEndianWord(header, minorOffset));
}

} // namespace zelta

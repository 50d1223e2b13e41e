#include "filelook.h"

#include "kinds.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

namespace {

constexpr int lookedAtBytes = 100;

constexpr char triggerMagic[] = "TGFW";
constexpr int triggerHeaderBytes = 8;
constexpr int triggerMinorOffset = 4;
constexpr int triggerMajorOffset = 6;

// "4810QN-", three more characters, "MAJOR.MINOR - "
constexpr char engineMagic[] = "4810QN-";
constexpr int engineVersionOffset = 10;

constexpr int waveFormatOffset = 12;
constexpr int waveFormatEnd = 36;
constexpr uint lastBluetoothPart = 15;

// A pipe could block the program.
QByteArray startOf(const QString &path)
{
    QFile file(path);
    return QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly) ? file.read(lookedAtBytes)
                                                                      : QByteArray();
}

int triggerVersion(const QByteArray &start)
{
    if (!start.startsWith(triggerMagic))
        return -1;
    // The module reads the missing bytes of a short header as zeros.
    const QByteArray header = start.leftJustified(triggerHeaderBytes, '\0');
    const quint32 major = qFromLittleEndian<quint16>(header.constData() + triggerMajorOffset);
    const quint32 minor = qFromLittleEndian<quint16>(header.constData() + triggerMinorOffset);
    return int(major << 16 | minor);
}

int engineVersion(const QByteArray &start)
{
    const int magic = start.indexOf(engineMagic);
    if (magic < 0)
        return -1;
    const QByteArray rest = start.mid(magic + engineVersionOffset);
    const QByteArray version = rest.left(qMax(0, rest.indexOf(" - ")));
    const int point = version.indexOf('.');
    if (point < 0)
        return -1;
    // The numbers are from a file: the arithmetic wraps.
    return int((quint32(version.left(point).toInt()) << 16) + quint32(version.mid(point + 1).toInt()));
}

// The format is the first chunk of nearly all WAV files. Others have no detail.
QString waveDetail(const QByteArray &start)
{
    if (start.size() < waveFormatEnd || start.mid(waveFormatOffset, 4) != "fmt ")
        return {};
    const auto word = [&start](int offset) {
        return qFromLittleEndian<quint16>(start.constData() + offset);
    };
    return QStringLiteral("channels: %1, %2 Hz, %3 bits")
        .arg(word(22))
        .arg(qFromLittleEndian<quint32>(start.constData() + 24))
        .arg(word(34));
}

} // namespace

FileLook lookAtFile(const QString &path)
{
    const QByteArray start = startOf(path);
    if (start.startsWith(triggerMagic))
        return {
            QStringLiteral("trigger"), QStringLiteral("trigger-board firmware"), triggerVersion(start), {}};
    if (start.contains(engineMagic))
        return {QStringLiteral("zelta"), QStringLiteral("sound-engine firmware"), engineVersion(start), {}};
    if (start.startsWith("RIFF") && start.mid(8, 4) == "WAVE")
        return {QStringLiteral("import-wave"), QStringLiteral("a WAV file"), -1, waveDetail(start)};
    return {};
}

int firmwareVersion(const QString &path, const Kind &kind)
{
    const QByteArray start = startOf(path);
    return qstrcmp(kind.option, "trigger") == 0 ? triggerVersion(start) : engineVersion(start);
}

bool isNamedAsBluetooth(const QString &path)
{
    const QString end = path.right(4);
    if (end == QLatin1String(".ipf"))
        return true;
    bool isNumber = false;
    const uint part = end.midRef(2).toUInt(&isNumber);
    return end.startsWith(QLatin1String(".b")) && isNumber && part <= lastBluetoothPart;
}

QString versionText(int version)
{
    return QStringLiteral("%1.%2").arg(version >> 16).arg(version & 0xFFFF, 2, 10, QLatin1Char('0'));
}

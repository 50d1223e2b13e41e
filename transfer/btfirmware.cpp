#include "transfer/btfirmware.h"

#include <QFile>

#include <algorithm>

namespace zelta {

namespace {

constexpr int indexOfIpf = 0x4950;
constexpr int noIndex = -1;

// Files 0 to 15 and one more.
constexpr int lastIndex = 15;
constexpr qreal fileCount = 17.0;

} // namespace

int btFileIndex(const QString &path)
{
    const QString extension = path.right(3);
    if (extension.startsWith(QLatin1Char('b')))
        return extension.rightRef(2).toInt();
    return extension == QLatin1String("ipf") ? indexOfIpf : noIndex;
}

qreal btSetProgress(int index)
{
    return index <= lastIndex ? (index + 1) / fileCount : 0.0;
}

bool allExist(const QStringList &files)
{
    return std::all_of(files.cbegin(), files.cend(), [](const QString &file) { return QFile::exists(file); });
}

} // namespace zelta

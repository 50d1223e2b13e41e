#include "fileproblem.h"

#include <QFile>
#include <QFileInfo>

#include <limits>

QString fileProblem(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return QStringLiteral("no such file: %1").arg(path);
    if (!info.isFile())
        return QStringLiteral("not a file: %1").arg(path);
    if (info.size() == 0)
        return QStringLiteral("the file is empty: %1").arg(path);
    if (info.size() > qint64(std::numeric_limits<quint32>::max()))
        return QStringLiteral("the file is 4 GiB or larger: %1").arg(path);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QStringLiteral("cannot read %1: %2").arg(path, file.errorString());
    return {};
}

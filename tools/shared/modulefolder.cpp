#include "modulefolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

QString moduleFolder(const QString &given)
{
    if (!given.isEmpty())
        return QDir(given).absolutePath();
    const QString beside = QCoreApplication::applicationDirPath() + QStringLiteral("/../qml");
    return QFileInfo::exists(beside + QStringLiteral("/ZeltaConnect/qmldir")) ? QDir::cleanPath(beside)
                                                                              : QString();
}

#include "toolsping.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

void useToolsPing()
{
    // The same relative path in the build tree and where the packages install it.
    const QString folder = QDir::cleanPath(QCoreApplication::applicationDirPath() +
                                           QStringLiteral("/../libexec/zeltaconnect-tools"));
    if (!QFileInfo(folder + QStringLiteral("/ping")).isExecutable())
        return;
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", path.isEmpty() ? folder.toLocal8Bit() : folder.toLocal8Bit() + ':' + path);
}

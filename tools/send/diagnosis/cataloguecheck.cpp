#include "cataloguecheck.h"

#include "systempath.h"

#include <QFile>
#include <QFileInfo>

#include <unistd.h>

Finding checkCatalogue()
{
    const QString folder = QStringLiteral("/home/.local/share/E-Drum");
    const QFileInfo info(systemPath(folder));
    const QString give = QStringLiteral("chown -R USER %1, with the user of the interface").arg(folder);
    if (!info.exists())
        return faultFinding(catalogueCheck, QStringLiteral("there is no folder %1").arg(folder),
                            QStringLiteral("mkdir -p %1; %2").arg(folder, give));
    if (!info.isDir())
        return faultFinding(catalogueCheck, QStringLiteral("%1 is not a folder").arg(folder),
                            QStringLiteral("remove it, then mkdir -p %1").arg(folder));
    if (::access(QFile::encodeName(info.filePath()).constData(), W_OK | X_OK) != 0)
        return faultFinding(catalogueCheck, QStringLiteral("this user may not write to %1").arg(folder),
                            give);
    for (const char *name : {"soundBank.json", "triggerBank.json"}) {
        const QFileInfo file(info.filePath() + QLatin1Char('/') + QLatin1String(name));
        const QString path = folder + QLatin1Char('/') + QLatin1String(name);
        if (file.exists() && !file.isFile())
            return faultFinding(catalogueCheck, QStringLiteral("%1 is not a file").arg(path),
                                QStringLiteral("remove it"));
        if (file.exists() && ::access(QFile::encodeName(file.filePath()).constData(), R_OK | W_OK) != 0)
            return faultFinding(catalogueCheck, QStringLiteral("this user may not write %1").arg(path), give);
    }
    return okFinding(catalogueCheck, QStringLiteral("this user can write to %1").arg(folder));
}

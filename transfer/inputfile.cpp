#include "transfer/inputfile.h"

#include "transfer/logging.h"

#include <QFile>

#include <sys/stat.h>

namespace zelta {

bool openForReading(QFile &file, QIODevice::OpenMode textMode)
{
    // QFile logs a warning for an empty name.
    if (file.fileName().isEmpty())
        return false;
    struct stat status = {};
    const QByteArray name = QFile::encodeName(file.fileName());
    if (::stat(name.constData(), &status) == 0 && !S_ISREG(status.st_mode))
        return false;
    return file.open(QIODevice::ReadOnly | textMode);
}

void logUnreadable(const QFile &file)
{
    QString reason = file.errorString();
    if (file.fileName().isEmpty())
        reason = QStringLiteral("no path");
    else if (file.error() == QFile::NoError)
        reason = QStringLiteral("not a regular file");
    qCInfo(lcTransfer) << file.fileName() << "cannot be opened:" << qPrintable(reason);
}

} // namespace zelta

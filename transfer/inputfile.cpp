#include "transfer/inputfile.h"

#include <QFile>

#include <sys/stat.h>

namespace zelta {

bool openForReading(QFile &file, QIODevice::OpenMode textMode)
{
    // QFile would log a warning.
    if (file.fileName().isEmpty())
        return false;
    struct stat status = {};
    const QByteArray name = QFile::encodeName(file.fileName());
    if (::stat(name.constData(), &status) == 0 && !S_ISREG(status.st_mode))
        return false;
    return file.open(QIODevice::ReadOnly | textMode);
}

} // namespace zelta

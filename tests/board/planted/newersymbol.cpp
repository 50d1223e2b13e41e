// Needs a function of Qt 5.15, which has to be noticed.

#include <QFile>

bool planted(const QString &path)
{
    return QFile::moveToTrash(path);
}

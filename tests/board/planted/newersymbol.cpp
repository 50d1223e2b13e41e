// Uses a function of Qt 5.15, which the test must find.

#include <QFile>

bool planted(const QString &path)
{
    return QFile::moveToTrash(path);
}

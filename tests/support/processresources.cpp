#include "support/processresources.h"

#include <QDir>
#include <QFile>
#include <QString>

#include <malloc.h>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define FOREIGN_HEAP
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define FOREIGN_HEAP
#endif
#endif

namespace testsupport {

namespace {

QStringList descriptors()
{
    return QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::System | QDir::Files | QDir::NoDotAndDotDot);
}

} // namespace

int threadCount()
{
    return QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size();
}

int descriptorCount()
{
    return descriptors().size();
}

int socketCount()
{
    int count = 0;
    const QStringList all = descriptors();
    for (const QString &descriptor : all) {
        const QString target = QFile::symLinkTarget(QStringLiteral("/proc/self/fd/") + descriptor);
        count += target.contains(QLatin1String("socket:")) ? 1 : 0;
    }
    return count;
}

qint64 waitingBytes(quint16 port)
{
    QFile file(QStringLiteral("/proc/self/net/udp"));
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    const QByteArray suffix = ':' + QByteArray::number(port, 16).rightJustified(4, '0').toUpper();
    qint64 waiting = 0;
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray &line : lines) {
        const QList<QByteArray> columns = line.simplified().split(' ');
        if (columns.size() > 4 && columns.at(1).endsWith(suffix))
            waiting += columns.at(4).split(':').value(1).toLongLong(nullptr, 16);
    }
    return waiting;
}

long long heapBytes()
{
#if defined(FOREIGN_HEAP) || !defined(__GLIBC_PREREQ)
    return -1;
#elif __GLIBC_PREREQ(2, 33)
    return static_cast<long long>(mallinfo2().uordblks);
#else
    return -1;
#endif
}

} // namespace testsupport

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

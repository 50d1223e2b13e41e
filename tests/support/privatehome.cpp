#include "support/privatehome.h"

#include <QByteArray>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

namespace {

bool writeProc(const char *path, const QByteArray &text)
{
    const int descriptor = ::open(path, O_WRONLY | O_CLOEXEC);
    if (descriptor < 0)
        return false;
    const bool written = ::write(descriptor, text.constData(), size_t(text.size())) == text.size();
    ::close(descriptor);
    return written;
}

QString failed(const char *what)
{
    return QString::fromLatin1(what) + QLatin1String(": ") + QString::fromLocal8Bit(strerror(errno));
}

} // namespace

QString testsupport::enterPrivateHome()
{
    const uid_t user = ::geteuid();
    const gid_t group = ::getegid();
    if (user == 0) {
        if (::unshare(CLONE_NEWNS) != 0)
            return failed("unshare");
    } else {
        if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
            return failed("unshare");
        // Kernels before 3.19 have no such file.
        writeProc("/proc/self/setgroups", "deny");
        if (!writeProc("/proc/self/uid_map", "0 " + QByteArray::number(user) + " 1") ||
            !writeProc("/proc/self/gid_map", "0 " + QByteArray::number(group) + " 1"))
            return failed("uid_map");
    }
    if (::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
        ::mount("tmpfs", "/home", "tmpfs", 0, nullptr) != 0)
        return failed("mount");
    return QString();
}

#include "systemroot.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

const QString socketTable = QStringLiteral("/proc/net/udp");

} // namespace

SystemRoot::SystemRoot()
    : m_sockets("  sl  local_address rem_address   st tx_queue rx_queue tr tm->when retrnsmt   uid  timeout "
                "inode ref "
                "pointer drops\n")
{
    write(socketTable, m_sockets);
    write(QStringLiteral("/proc/sys/net/core/rmem_max"), "1048576\n");
    write(QStringLiteral("/proc/timer_list"),
          "Timer List Version: v0.9\n  .index:      0\n  .resolution: 1 nsecs\n");
    makeFolder(QStringLiteral("/home/.local/share/E-Drum"));
}

bool SystemRoot::write(const QString &path, const QByteArray &contents)
{
    QFile file(place(path));
    return QDir().mkpath(QFileInfo(file).path()) && file.open(QIODevice::WriteOnly) &&
           file.write(contents) == contents.size();
}

bool SystemRoot::remove(const QString &path)
{
    const QFileInfo info(place(path));
    return info.isDir() && !info.isSymLink() ? QDir(info.filePath()).removeRecursively()
                                             : QFile::remove(info.filePath());
}

bool SystemRoot::makeFolder(const QString &path)
{
    return QDir().mkpath(place(path));
}

bool SystemRoot::addSocket(const QByteArray &address, int inode, int drops)
{
    m_sockets += "  100: " + address +
                 " 00000000:0000 07 00000000:00000000 00:00000000 00000000  1000        0 " +
                 QByteArray::number(inode) + " 2 0000000000000000 " + QByteArray::number(drops) + "\n";
    return write(socketTable, m_sockets);
}

bool SystemRoot::addProcess(int pid, const QByteArray &program, int inode, const QByteArray &library)
{
    const QString folder = QStringLiteral("/proc/%1").arg(pid);
    return makeFolder(folder + QStringLiteral("/fd")) &&
           write(folder + QStringLiteral("/comm"), program + '\n') &&
           write(folder + QStringLiteral("/maps"), "7f00-7f01 r-xp 00000000 08:01 123 " + library + '\n') &&
           QFile::link(QStringLiteral("socket:[%1]").arg(inode), place(folder + QStringLiteral("/fd/7")));
}

bool SystemRoot::useRealSockets()
{
    const QString process = QStringLiteral("/proc/%1").arg(QCoreApplication::applicationPid());
    return remove(QStringLiteral("/proc/net")) &&
           QFile::link(QStringLiteral("/proc/net"), place(QStringLiteral("/proc/net"))) &&
           QFile::link(process, place(process));
}

bool SystemRoot::writePing(const QByteArray &commands)
{
    m_hasPing = true;
    const QString path = QStringLiteral("/bin/ping");
    return write(path, "#!/bin/sh\n" + commands) &&
           QFile::setPermissions(place(path),
                                 QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
}

QProcessEnvironment SystemRoot::environment() const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("ZELTA_SEND_SYSTEM_ROOT"), m_dir.path());
    if (m_hasPing)
        environment.insert(QStringLiteral("PATH"),
                           place(QStringLiteral("/bin:")) + environment.value(QStringLiteral("PATH")));
    return environment;
}

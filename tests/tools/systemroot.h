#pragma once

#include <QByteArray>
#include <QProcessEnvironment>
#include <QString>
#include <QTemporaryDir>

/// A folder that zelta-send --diagnose examines in place of the root folder. It has what a healthy board has.
class SystemRoot
{
public:
    SystemRoot();

    /// Replaces a file. The path is absolute in the folder, like all paths here.
    bool write(const QString &path, const QByteArray &contents);
    bool remove(const QString &path);
    bool makeFolder(const QString &path);
    QString place(const QString &path) const { return m_dir.path() + path; }

    /// A line of /proc/net/udp. The address is written as there: "0100007F:4D55".
    bool addSocket(const QByteArray &address, int inode, int drops);
    /// A process that has the socket open.
    bool addProcess(int pid, const QByteArray &program, int inode, const QByteArray &library);
    /// The sockets of the network namespace of the reader, and this process.
    bool useRealSockets();

    /// A substitute for ping, first in the search path.
    bool writePing(const QByteArray &commands);

    QProcessEnvironment environment() const;

private:
    QTemporaryDir m_dir;
    QByteArray m_sockets;
    bool m_hasPing = false;
};

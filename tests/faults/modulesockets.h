#pragma once

#include <QList>

#include <sys/types.h>

/// A socket of a module in this process. A socket that replaces another one may get its descriptor, but has
/// an inode of its own.
struct ModuleSocket
{
    int descriptor;
    ino_t inode;
};

inline bool operator==(const ModuleSocket &first, const ModuleSocket &second)
{
    return first.descriptor == second.descriptor && first.inode == second.inode;
}

/// The sockets of all modules of this process, by descriptor. These are the UDP sockets that are not bound to
/// an address; sockets of engines are bound to one.
QList<ModuleSocket> moduleSockets();

/// Size of a send buffer in bytes, as setSendBuffer() takes it; -1 on failure.
int sendBuffer(const ModuleSocket &socket);
/// Sets the size of the send buffer, within the limits of the system. False on failure.
bool setSendBuffer(const ModuleSocket &socket, int bytes);

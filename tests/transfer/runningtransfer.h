#pragma once

#include "filestream.h"
#include "session.h"
#include "transferkinds.h"

#include <functional>
#include <memory>
#include <vector>

/// A file on its way to an engine. It takes two seconds and a half, so that what the engine says on its way
/// finds the sender at work.
class RunningTransfer
{
public:
    /// prepare tells the engine what to do, before the file is sent.
    RunningTransfer(const TransferKind &transferKind, const TestFiles &files,
                    const std::function<void(TransferPeer &)> &prepare);
    /// Sends the file. To be called when all is made ready: what the engine says is heard only in the event
    /// loop.
    void start();

    FileStream stream() const { return FileStream(session.peer().received(), kind.content); }
    /// Number of packets of the whole file.
    int packets() const { return content.size() / kind.chunkBytes; }
    /// The signals of a transfer that sent those packets and came to its end.
    QStringList expected(const FileStream &stream, quint16 status, int resends = 0) const;

    const TransferKind kind;
    const QByteArray content;
    const QString path;
    mutable Session session;
};
using RunningTransfers = std::vector<std::unique_ptr<RunningTransfer>>;

/// One transfer of every quick kind, each with an engine of its own.
RunningTransfers startAllKinds(const TestFiles &files, const std::function<void(TransferPeer &)> &prepare);

/// Position of the one place where the numbers do not go on by one, -1 for none, -2 for several.
int jump(const QVector<quint32> &numbers);

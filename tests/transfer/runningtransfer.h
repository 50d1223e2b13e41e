#pragma once

#include "filestream.h"
#include "session.h"
#include "transferkinds.h"

#include <functional>
#include <memory>
#include <vector>

/// A file that is sent to an engine. The transfer takes 2.5 s, so that the engine's answers arrive during it.
class RunningTransfer
{
public:
    /// prepare sets the engine's answers before the file is sent.
    RunningTransfer(const TransferKind &transferKind, const TestFiles &files,
                    const std::function<void(TransferPeer &)> &prepare);
    /// Sends the file. Call it when everything is prepared: answers are processed in the event loop only.
    void start();

    FileStream stream() const { return FileStream(session.peer().received(), kind.content); }
    /// Number of packets of the whole file.
    int packets() const { return content.size() / kind.chunkBytes; }
    /// The signals of a transfer that sent those packets and was acknowledged.
    QStringList expected(const FileStream &stream, quint16 status, int resends = 0) const;

    const TransferKind kind;
    const QByteArray content;
    const QString path;
    mutable Session session;
};
using RunningTransfers = std::vector<std::unique_ptr<RunningTransfer>>;

/// One transfer of every quick kind, each with an engine of its own.
RunningTransfers startAllKinds(const TestFiles &files, const std::function<void(TransferPeer &)> &prepare);

/// Index of the only number that does not follow its predecessor, -1 for none, -2 for several.
int jump(const QVector<quint32> &numbers);

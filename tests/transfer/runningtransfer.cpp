#include "runningtransfer.h"

#include "control/qconnectqmlplugin.h"

namespace {

// Much longer than an answer of the engine takes, even on a busy machine.
constexpr int durationMs = 2500;

// Each file has a folder of its own, so that the next one does not overwrite it while it is sent.
QString ownFolder()
{
    static int count = 0;
    return QStringLiteral("%1/").arg(++count);
}

} // namespace

RunningTransfer::RunningTransfer(const TransferKind &transferKind, const TestFiles &files,
                                 const std::function<void(TransferPeer &)> &prepare)
    : kind(transferKind)
    , content(kind.file(kind.chunkBytes * kind.packetsFor(durationMs)))
    , path(files.write(ownFolder() + kind.fileName, content))
{
    answerOldVersions(session.peer());
    prepare(session.peer());
}

void RunningTransfer::start()
{
    kind.send(session.plugin(), path);
}

QStringList RunningTransfer::expected(const FileStream &stream, quint16 status, int resends) const
{
    return kind.before + kind.progressed(stream.numbers.size()) + kind.completed(status, resends);
}

RunningTransfers startAllKinds(const TestFiles &files, const std::function<void(TransferPeer &)> &prepare)
{
    RunningTransfers all;
    const QVector<TransferKind> kinds = quickKinds();
    for (const TransferKind &kind : kinds)
        all.push_back(std::make_unique<RunningTransfer>(kind, files, prepare));
    for (const auto &running : all)
        running->start();
    return all;
}

int jump(const QVector<quint32> &numbers)
{
    int found = -1;
    for (int i = 1; i < numbers.size(); ++i) {
        if (numbers.at(i) == numbers.at(i - 1) + 1)
            continue;
        if (found >= 0)
            return -2;
        found = i;
    }
    return found;
}

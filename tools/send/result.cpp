#include "result.h"

#include "filelook.h"

#include <QFileInfo>

FileResult resultOf(const Job &job)
{
    const FileLook look = lookAtFile(job.path);
    const QFileInfo info(job.path);
    FileResult file;
    file.path = job.path;
    file.kind = job.kind ? QString::fromLatin1(job.kind->option) : QString();
    file.slot = job.slot;
    file.name = job.name;
    file.bytes = info.isFile() ? info.size() : -1;
    file.looksLike = look.kind;
    file.fileVersion = look.version;
    return file;
}

qint64 rateOf(const FileResult &file)
{
    const bool isSent = file.state == FileResult::State::Sent;
    return isSent && file.seconds > 0.0 ? qRound64(double(file.bytes) / file.seconds) : -1;
}

QString stateName(FileResult::State state)
{
    switch (state) {
    case FileResult::State::NotSent: return QStringLiteral("not-sent");
    case FileResult::State::Sent: return QStringLiteral("sent");
    case FileResult::State::Failed: return QStringLiteral("failed");
    case FileResult::State::WouldSend: return QStringLiteral("would-send");
    case FileResult::State::Inspected: return QStringLiteral("inspected");
    }
    return {};
}

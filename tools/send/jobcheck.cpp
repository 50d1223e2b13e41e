#include "jobcheck.h"

#include "filelook.h"
#include "fileproblem.h"
#include "options.h"
#include "reporter.h"

#include <QSet>

namespace {

void fail(FileResult *file, const QString &problem)
{
    file->state = FileResult::State::Failed;
    file->status = ExitStatus::BadFile;
    file->message = problem;
}

QString description(const Job &job, const FileResult &file)
{
    QString text = QStringLiteral("would send %1, %2 bytes, as %3")
                       .arg(file.path)
                       .arg(file.bytes)
                       .arg(QLatin1String(job.kind->noun));
    if (job.slot >= 0)
        text += QStringLiteral(", slot %1").arg(job.slot);
    if (job.kind->isFirmware)
        text += QStringLiteral(", if version %1 is newer").arg(versionText(file.fileVersion));
    return text;
}

// Firmware without a version is refused later, because only the module decides that it has none.
bool hasNoVersion(const Job &job, const FileResult &file)
{
    return job.kind->isFirmware &&
           (file.fileVersion < 0 || file.looksLike != QLatin1String(job.kind->option));
}

} // namespace

bool checkJobs(const Options &options, Reporter &reporter, Result *result)
{
    for (const Job &job : options.jobs)
        result->files.push_back(resultOf(job));
    for (FileResult &file : result->files) {
        const QString problem = fileProblem(file.path);
        if (problem.isEmpty())
            continue;
        fail(&file, problem);
        if (!options.keepGoing) {
            result->outcome = {ExitStatus::BadFile, problem};
            return false;
        }
        // With --dry-run it is part of the answer.
        if (options.action == Options::Action::Send)
            reporter.error(problem);
    }
    return true;
}

void warnOfOtherKinds(const Options &options, Reporter &reporter, Result *result)
{
    for (const Job &job : options.jobs) {
        const FileLook look = lookAtFile(job.path);
        if (look.kind.isEmpty() || look.kind == QLatin1String(job.kind->option))
            continue;
        const QString line = QStringLiteral("%1 looks like %2, but is sent as %3")
                                 .arg(job.path, look.noun, QLatin1String(job.kind->noun));
        reporter.warning(line);
        result->warnings.append(line);
    }
}

void rehearse(const Options &options, Reporter &reporter, Result *result)
{
    // Without --keep-going the first failure ends the run.
    QStringList problems;
    QSet<int> failedGroups;
    auto nextJob = options.jobs.cbegin();
    for (FileResult &file : result->files) {
        const Job &job = *nextJob++;
        if (file.state == FileResult::State::NotSent && hasNoVersion(job, file))
            fail(&file, QStringLiteral("%1: the file has no firmware version").arg(file.path));
        if (file.state == FileResult::State::Failed) {
            problems.append(file.message);
            failedGroups.insert(job.group);
        }
        if (failedGroups.contains(job.group) || (!problems.isEmpty() && !options.keepGoing))
            continue;
        file.state = FileResult::State::WouldSend;
        file.status = ExitStatus::Sent;
        reporter.answer(description(job, file));
    }
    if (problems.size() == 1) {
        result->outcome = {ExitStatus::BadFile, problems.constFirst()};
    } else if (!problems.isEmpty()) {
        for (const QString &problem : qAsConst(problems))
            reporter.error(problem);
        result->outcome = {ExitStatus::BadFile,
                           QStringLiteral("%1 files cannot be used").arg(problems.size())};
    }
}

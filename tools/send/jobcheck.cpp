#include "jobcheck.h"

#include "filelook.h"
#include "fileproblem.h"
#include "options.h"
#include "reporter.h"

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

// The module refuses such firmware too, but only after it has sent the files before it.
QString versionProblem(const Job &job)
{
    if (!job.kind->isFirmware || firmwareVersion(job.path, *job.kind) >= 0)
        return {};
    const QString problem = QStringLiteral("%1: the file has no firmware version").arg(job.path);
    const FileLook look = lookAtFile(job.path);
    return look.kind.isEmpty() || look.kind == QLatin1String(job.kind->option)
               ? problem
               : QStringLiteral("%1; it looks like %2").arg(problem, look.noun);
}

QString problemOf(const Job &job)
{
    const QString problem = fileProblem(job.path);
    return problem.isEmpty() ? versionProblem(job) : problem;
}

} // namespace

bool checkJobs(const Options &options, Reporter &reporter, Result *result)
{
    for (const Job &job : options.jobs)
        result->files.push_back(resultOf(job));
    auto nextJob = options.jobs.cbegin();
    for (FileResult &file : result->files) {
        const QString problem = problemOf(*nextJob++);
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

QSet<int> failedGroups(const Options &options, const Result &result)
{
    QSet<int> groups;
    auto nextJob = options.jobs.cbegin();
    for (const FileResult &file : result.files) {
        const Job &job = *nextJob++;
        if (file.state == FileResult::State::Failed)
            groups.insert(job.group);
    }
    return groups;
}

void warnOfOtherKinds(const Options &options, Reporter &reporter, Result *result)
{
    const QSet<int> failed = failedGroups(options, *result);
    for (const Job &job : options.jobs) {
        const FileLook look = lookAtFile(job.path);
        if (failed.contains(job.group) || look.kind.isEmpty() ||
            look.kind == QLatin1String(job.kind->option)) {
            continue;
        }
        const QString line = QStringLiteral("%1 looks like %2, but is sent as %3")
                                 .arg(job.path, look.noun, QLatin1String(job.kind->noun));
        reporter.warning(line);
        result->warnings.append(line);
    }
}

void rehearse(const Options &options, Reporter &reporter, Result *result)
{
    QStringList problems;
    const QSet<int> failed = failedGroups(options, *result);
    auto nextJob = options.jobs.cbegin();
    for (FileResult &file : result->files) {
        const Job &job = *nextJob++;
        if (file.state == FileResult::State::Failed)
            problems.append(file.message);
        if (failed.contains(job.group))
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

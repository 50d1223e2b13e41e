#include "inspection.h"

#include "filelook.h"
#include "fileproblem.h"
#include "options.h"
#include "reporter.h"

namespace {

QString nounOf(const QString &path, const FileLook &look)
{
    if (!look.kind.isEmpty())
        return look.noun;
    return isNamedAsBluetooth(path) ? QStringLiteral("a part of bluetooth firmware, by its name")
                                    : QStringLiteral("not recognised; a bank carries no mark");
}

FileResult inspect(const QString &path)
{
    const FileLook look = lookAtFile(path);
    FileResult file = resultOf(Job{path, nullptr, -1, {}, 0});
    file.message = nounOf(path, look);
    if (look.kind.isEmpty() && isNamedAsBluetooth(path))
        file.looksLike = QStringLiteral("bluetooth");
    const Kind *kind = kindNamed(file.looksLike);
    if (kind && kind->isFirmware) {
        file.message += look.version < 0 ? QStringLiteral(", without a version")
                                         : QStringLiteral(", version %1").arg(versionText(look.version));
    }
    if (!look.detail.isEmpty())
        file.message += QStringLiteral(", ") + look.detail;
    file.state = FileResult::State::Inspected;
    file.status = ExitStatus::Sent;
    return file;
}

} // namespace

void inspectFiles(const Options &options, Reporter &reporter, Result *result)
{
    QStringList problems;
    for (const QString &path : options.files) {
        const QString problem = fileProblem(path);
        if (problem.isEmpty()) {
            const FileResult file = inspect(path);
            const QString kind = file.looksLike.isEmpty() ? QStringLiteral("no --kind")
                                                          : QStringLiteral("--kind ") + file.looksLike;
            reporter.answer(
                QStringLiteral("%1: %2 (%3, %4 bytes)").arg(path, file.message, kind).arg(file.bytes));
            result->files.push_back(file);
            continue;
        }
        problems.append(problem);
        FileResult file;
        file.path = path;
        file.state = FileResult::State::Failed;
        file.status = ExitStatus::BadFile;
        file.message = problem;
        result->files.push_back(file);
    }
    if (problems.isEmpty())
        return;
    result->outcome = {ExitStatus::BadFile, problems.constFirst()};
    if (problems.size() == 1)
        return;
    for (const QString &problem : qAsConst(problems))
        reporter.error(problem);
    result->outcome.message = QStringLiteral("%1 files cannot be used").arg(problems.size());
}

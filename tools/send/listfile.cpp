#include "listfile.h"

#include "filegroups.h"
#include "tools/shared/commandline.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

constexpr qint64 largestList = 1024 * 1024;

// Returns false if a quotation mark is missing.
bool splitLine(const QString &line, QStringList *words)
{
    QString word;
    bool isQuoted = false;
    bool isOpen = false; // also of an empty word in quotation marks
    for (int i = 0; i < line.size(); ++i) {
        const QChar c = line.at(i);
        if (c == QLatin1Char('"')) {
            isQuoted = !isQuoted;
            isOpen = true;
        } else if (c.isSpace() && !isQuoted) {
            if (isOpen)
                words->append(word);
            word.clear();
            isOpen = false;
        } else {
            const bool isEscaped = isQuoted && c == QLatin1Char('\\') && i + 1 < line.size();
            word += isEscaped ? line.at(++i) : c;
            isOpen = true;
        }
    }
    if (isOpen)
        words->append(word);
    return !isQuoted;
}

QString readLine(const QString &line, const QDir &folder, QVector<Job> *jobs)
{
    QStringList words;
    if (!splitLine(line, &words))
        return QStringLiteral("a quotation mark is missing");
    QCommandLineParser parser;
    const FileOptions options;
    QString problem = parseCommandLine(parser, {options.kind, options.slot, options.name}, words);
    QVector<FileGroup> groups;
    if (problem.isEmpty())
        problem = groupFiles(parser, options, words, &groups);
    for (FileGroup &group : groups) {
        for (QString &file : group.files)
            file = folder.filePath(file);
        if (problem.isEmpty())
            problem = appendJobs(group, jobs);
    }
    return problem;
}

} // namespace

QString readListFile(const QString &path, QVector<Job> *jobs)
{
    QFile file(path);
    // A pipe could block the program.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return QStringLiteral("--list: cannot read %1").arg(path);
    if (file.size() > largestList)
        return QStringLiteral("--list: %1 is larger than 1 MiB").arg(path);
    const QStringList lines = QString::fromUtf8(file.read(largestList)).split(QLatin1Char('\n'));
    const QDir folder = QFileInfo(path).dir();
    for (int i = 0; i < lines.size(); ++i) {
        const QString line = lines.at(i).trimmed();
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        const QString problem = readLine(line, folder, jobs);
        if (!problem.isEmpty())
            return QStringLiteral("%1:%2: %3").arg(path).arg(i + 1).arg(problem);
    }
    return jobs->isEmpty() ? QStringLiteral("--list: %1 names no file").arg(path) : QString();
}

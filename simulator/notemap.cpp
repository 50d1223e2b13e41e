#include "notemap.h"

#include "commands.h"
#include "kit.h"

#include <QFile>
#include <QStringList>

#include <numeric>

namespace simulated {

namespace {

constexpr int mostProblems = 100;
constexpr int largestNote = 127;

} // namespace

NoteMap::NoteMap()
{
    std::iota(m_notes.begin(), m_notes.end(), 0);
}

bool NoteMap::load(const QString &path, QString *problem)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        *problem = QStringLiteral("note map %1: %2").arg(path, file.errorString());
        return false;
    }
    const QByteArray text = file.read(largestFile + 1);
    if (text.size() > largestFile) {
        *problem = QStringLiteral("note map %1: larger than %2 MiB").arg(path).arg(largestFile >> 20);
        return false;
    }
    QString reason;
    if (parse(QString::fromUtf8(text), &reason))
        return true;
    QStringList problems;
    const QStringList lines = reason.split(QLatin1Char('\n'));
    for (const QString &line : lines)
        problems.append(QStringLiteral("note map %1, %2").arg(path, line));
    *problem = problems.join(QLatin1Char('\n'));
    return false;
}

bool NoteMap::parse(const QString &text, QString *problem)
{
    std::array<int, 128> notes = m_notes;
    std::array<int, 128> definedIn{};
    QStringList problems;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i) {
        const QStringList words = wordsOf(lines.at(i));
        if (words.isEmpty())
            continue;
        const auto fault = [&problems, i](const QString &reason) {
            problems.append(QStringLiteral("line %1: %2").arg(i + 1).arg(reason));
        };
        int from = 0;
        if (words.size() != 2) {
            fault(QStringLiteral("usage: FROM TO"));
            continue;
        }
        if (!readNumber(words.at(0), largestNote, &from)) {
            fault(QStringLiteral("\"%1\" is not a note from 0 to %2").arg(words.at(0)).arg(largestNote));
            continue;
        }
        const bool isNone = words.at(1) == QLatin1String("none");
        const int to = isNone ? -1 : noteFromText(words.at(1));
        int &defined = definedIn.at(size_t(from));
        if (!isNone && to < 0) {
            fault(QStringLiteral("\"%1\" is neither a pad, nor a note from 0 to %2, nor none")
                      .arg(words.at(1))
                      .arg(largestNote));
        } else if (defined != 0) {
            fault(QStringLiteral("note %1 already stands in line %2").arg(from).arg(defined));
        } else {
            defined = i + 1;
            notes.at(size_t(from)) = to;
        }
    }
    if (problems.isEmpty()) {
        m_notes = notes;
        return true;
    }
    if (problems.size() > mostProblems) {
        const int more = problems.size() - mostProblems + 1;
        problems = problems.mid(0, mostProblems - 1);
        problems.append(QStringLiteral("and %1 more faults").arg(more));
    }
    *problem = problems.join(QLatin1Char('\n'));
    return false;
}

} // namespace simulated

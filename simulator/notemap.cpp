#include "notemap.h"

#include "commands.h"
#include "kit.h"
#include "textfile.h"

#include <QStringList>

#include <numeric>

namespace simulated {

namespace {

constexpr int largestNote = 127;

} // namespace

NoteMap::NoteMap()
{
    std::iota(m_notes.begin(), m_notes.end(), 0);
}

bool NoteMap::load(const QString &path, QString *problem)
{
    return loadTextFile(
        QStringLiteral("note map"), path, largestFile,
        [this](const QString &text, QString *reason) { return parse(text, reason); }, problem);
}

bool NoteMap::parse(const QString &text, QString *problem)
{
    std::array<int, 128> notes = m_notes;
    std::array<int, 128> definedIn{};
    LineFaults faults;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i) {
        const QStringList words = wordsOf(lines.at(i));
        if (words.isEmpty())
            continue;
        const auto fault = [&faults, i](const QString &reason) {
            faults.add(i + 1, reason);
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
    if (faults.isEmpty()) {
        m_notes = notes;
        return true;
    }
    *problem = faults.text();
    return false;
}

} // namespace simulated

#include "scenario.h"

#include "kit.h"
#include "switches.h"
#include "textfile.h"

namespace simulated {

namespace {

constexpr int longestMs = 24 * 60 * 60 * 1000;

bool readWaitParameter(const QStringList &words, ScenarioStep *step)
{
    int msb = 0;
    int lsb = 0;
    step->kind = ScenarioStep::Kind::WaitParameter;
    if (words.size() < 3 || words.size() > 4 || !readNumber(words.at(1), 0xFF, &msb) ||
        !readNumber(words.at(2), 0xFF, &lsb) ||
        (words.size() == 4 && !readNumber(words.at(3), 0xFF, &step->value)))
        return false;
    step->msb = quint8(msb);
    step->lsb = quint8(lsb);
    return true;
}

bool readWaitStrike(const QStringList &words, ScenarioStep *step)
{
    step->kind = ScenarioStep::Kind::WaitStrike;
    if (words.size() == 2)
        step->number = noteFromText(words.at(1));
    return words.size() == 1 || (words.size() == 2 && step->number >= 0);
}

bool readWaitSwitch(const QStringList &words, ScenarioStep *step)
{
    constexpr int largestValue = 0xFFFF;
    step->kind = ScenarioStep::Kind::WaitSwitch;
    if (words.size() == 1)
        return true;
    quint16 tag = 0;
    bool isNamed = false;
    if (words.size() > 3 || !readSwitch(words.at(1), &tag, &isNamed))
        return false;
    step->number = tag;
    return words.size() == 2 || readNumber(words.at(2), isNamed ? 1 : largestValue, &step->value);
}

struct WaitRow
{
    const char *what;
    const char *arguments;
    const char *help;
    bool (*read)(const QStringList &words, ScenarioStep *step);
};

constexpr WaitRow waits[] = {
    {"module", "", "waits until the module is known",
     [](const QStringList &words, ScenarioStep *step) {
         step->kind = ScenarioStep::Kind::WaitModule;
         return words.size() == 1;
     }},
    {"transfer", "", "waits for the end of a file",
     [](const QStringList &words, ScenarioStep *step) {
         step->kind = ScenarioStep::Kind::WaitTransfer;
         return words.size() == 1;
     }},
    {"param", " HIGH LOW [VALUE]", "waits for a parameter", readWaitParameter},
    {"strike", " [PAD|NOTE]", "waits for a strike by the groove, a person or a drum kit", readWaitStrike},
    {"switch", " [NAME [VALUE]]", "waits for a switch, likewise", readWaitSwitch},
};

bool parseWait(QStringList words, ScenarioStep *step, QString *problem)
{
    words.removeFirst();
    const int within = words.indexOf(QStringLiteral("within"));
    if (within >= 0) {
        if (within != words.size() - 2 || !readNumber(words.last(), longestMs, &step->ms) || step->ms == 0) {
            *problem = QStringLiteral("\"within\" is followed by milliseconds from 1 and nothing else");
            return false;
        }
        words = words.mid(0, within);
    }
    QStringList names;
    for (const WaitRow &row : waits) {
        if (words.value(0) == QLatin1String(row.what)) {
            *problem = QStringLiteral("usage: wait-for %1%2 [within MS]")
                           .arg(QLatin1String(row.what), QLatin1String(row.arguments));
            return row.read(words, step);
        }
        names.append(QLatin1String(row.what));
    }
    *problem = QStringLiteral("usage: wait-for %1 [...] [within MS]").arg(names.join(QLatin1Char('|')));
    return false;
}

} // namespace

bool parseStep(const QString &line, ScenarioStep *step, QString *problem)
{
    QStringList words = wordsOf(line);
    step->text = words.join(QLatin1Char(' '));
    const QString first = words.at(0);
    if (first == QLatin1String("wait-for"))
        return parseWait(words, step, problem);
    if (first == QLatin1String("at") || first == QLatin1String("after")) {
        step->kind = first == QLatin1String("at") ? ScenarioStep::Kind::At : ScenarioStep::Kind::After;
        if (words.size() < 3 || !readNumber(words.at(1), longestMs, &step->ms)) {
            *problem = QStringLiteral("usage: %1 MS COMMAND").arg(first);
            return false;
        }
        words = words.mid(2);
    }
    return parseCommand(words.join(QLatin1Char(' ')), &step->command, problem);
}

QStringList stepHelp()
{
    const auto line = [](const char *usage, const char *help) {
        return QStringLiteral("%1 %2").arg(QLatin1String(usage), -34).arg(QLatin1String(help));
    };
    QStringList lines{line("after MS COMMAND", "runs a command after the previous step"),
                      line("at MS COMMAND", "runs a command at a time since the start"),
                      line("repeat N", "plays the lines up to the matching end N times"),
                      line("end", "ends the lines of repeat")};
    for (const WaitRow &row : waits) {
        const QByteArray usage = QByteArray("wait-for ") + row.what + row.arguments + " [within MS]";
        lines.append(line(usage.constData(), row.help));
    }
    return lines;
}

bool StepReader::take(const QString &line, int number, QString *problem)
{
    const QStringList words = wordsOf(line);
    const QString first = words.value(0);
    bool good = true;
    if (first == QLatin1String("repeat")) {
        good = openBlock(words.join(QLatin1Char(' ')), number, problem);
    } else if (first == QLatin1String("end")) {
        good = takeEnd(words.join(QLatin1Char(' ')), problem);
    } else if (!words.isEmpty()) {
        ScenarioStep step;
        step.line = number;
        good = parseStep(line, &step, problem) && check(step, problem);
        if (good)
            add(step);
    }
    m_blockHasFault = m_blockHasFault || !good;
    return good;
}

bool StepReader::openBlock(const QString &line, int number, QString *problem)
{
    ScenarioStep block;
    block.kind = ScenarioStep::Kind::Repeat;
    block.line = number;
    block.text = line;
    bool good = false;
    const QStringList words = wordsOf(line);
    if (m_open.size() >= deepestBlock) {
        *problem = QStringLiteral("repeat within more than %1 others").arg(deepestBlock - 1);
    } else if (words.size() != 2 || !readNumber(words.at(1), mostRounds, &block.rounds) ||
               block.rounds == 0) {
        *problem = QStringLiteral("usage: repeat N, from 1 to %1").arg(mostRounds);
    } else {
        good = true;
    }
    if (good || m_source == Source::File) {
        m_open.append(block);
        m_blockHasFault = false;
    }
    return good;
}

bool StepReader::takeEnd(const QString &line, QString *problem)
{
    if (line != QLatin1String("end")) {
        *problem = QStringLiteral("usage: end");
        return false;
    }
    if (m_open.isEmpty()) {
        *problem = QStringLiteral("end without repeat");
        return false;
    }
    const bool hasNothing = m_open.constLast().body.isEmpty();
    if (hasNothing && !m_blockHasFault)
        *problem = QStringLiteral("nothing to repeat");
    const bool good = !hasNothing || m_blockHasFault;
    closeBlock();
    return good;
}

void StepReader::closeBlock()
{
    const ScenarioStep block = m_open.takeLast();
    // A block that is too deep is a fault, and not kept, because steps are destroyed recursively.
    if (!block.body.isEmpty() && m_open.size() < deepestBlock)
        add(block);
}

bool StepReader::check(const ScenarioStep &step, QString *problem)
{
    if (step.kind != ScenarioStep::Kind::At)
        return true;
    if (!m_open.isEmpty()) {
        *problem = QStringLiteral("at is not possible within repeat; use after");
        return false;
    }
    const int previous = m_latest;
    m_latest = step.ms;
    if (m_source == Source::Typed || step.ms >= previous)
        return true;
    *problem = QStringLiteral("time %1 is before the previous time %2").arg(step.ms).arg(previous);
    return false;
}

void StepReader::add(const ScenarioStep &step)
{
    if (m_open.isEmpty())
        m_steps.append(step);
    else
        m_open.last().body.append(step);
}

QVector<ScenarioStep> StepReader::takeSteps()
{
    QVector<ScenarioStep> steps;
    steps.swap(m_steps);
    return steps;
}

bool Scenario::load(const QString &path, QString *problem)
{
    return loadTextFile(
        QStringLiteral("scenario"), path, largestFile,
        [this](const QString &text, QString *reason) { return parse(text, reason); }, problem);
}

bool Scenario::parse(const QString &text, QString *problem)
{
    LineFaults faults;
    StepReader reader(StepReader::Source::File);
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i) {
        QString reason;
        if (!reader.take(lines.at(i), i + 1, &reason))
            faults.add(i + 1, reason);
    }
    for (; reader.openLine() >= 0; reader.closeBlock())
        faults.add(reader.openLine(), QStringLiteral("repeat without end"));
    m_steps = reader.takeSteps();
    if (faults.isEmpty())
        return true;
    m_steps.clear();
    *problem = faults.text();
    return false;
}

} // namespace simulated

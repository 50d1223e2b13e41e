#pragma once

#include "commands.h"

#include <QVector>

namespace simulated {

/// One line of a scenario, or a repeated block of lines.
struct ScenarioStep
{
    enum class Kind { At, After, WaitModule, WaitParameter, WaitTransfer, WaitStrike, WaitSwitch, Repeat };

    Kind kind = Kind::After;
    int line = 0; ///< in its file; 0 for a typed line
    int ms = 0;   ///< At: since the start. After: since the previous step. Waits: time limit, 0 for none
    quint8 msb = 0;
    quint8 lsb = 0;
    int number = -1; ///< WaitStrike: note. WaitSwitch: tag. -1 for any
    int value = -1;  ///< WaitParameter, WaitSwitch: the value to wait for, -1 for any
    Command command;
    int rounds = 0;             ///< Repeat: how often the steps are played
    QVector<ScenarioStep> body; ///< Repeat: the steps
    QString text;               ///< the line without its comment
};

/// Reads one line, except for "repeat" and "end". Returns false and sets problem to one line when it is
/// wrong. The line must not be blank.
bool parseStep(const QString &line, ScenarioStep *step, QString *problem);

/// One line for each kind of step, as commandHelp() has for commands.
QStringList stepHelp();

/// Reads lines one after the other and puts "repeat" and its lines together.
class StepReader
{
public:
    /// Where the lines come from. In a file, a wrong "repeat" still begins a block, so that its "end" is not
    /// a fault as well, and the times of "at" must not go back. A typed line that is wrong has no effect.
    enum class Source { File, Typed };

    static constexpr int mostRounds = 1000000;
    static constexpr int deepestBlock = 16;

    explicit StepReader(Source source)
        : m_source(source)
    {}

    /// Reads the line with this number, which may be blank. Returns false and sets problem when it is wrong.
    bool take(const QString &line, int number, QString *problem);

    /// Returns the complete steps that were read since the last call. The steps of a block are complete at
    /// its "end".
    QVector<ScenarioStep> takeSteps();

    /// The line of the innermost "repeat" whose "end" is missing; -1 if there is none.
    int openLine() const { return m_open.isEmpty() ? -1 : m_open.constLast().line; }
    void closeBlock();

private:
    bool openBlock(const QString &line, int number, QString *problem);
    bool takeEnd(const QString &line, QString *problem);
    bool check(const ScenarioStep &step, QString *problem);
    void add(const ScenarioStep &step);

    Source m_source;
    QVector<ScenarioStep> m_steps;
    QVector<ScenarioStep> m_open; // blocks without their end, the outermost first
    bool m_blockHasFault = false;
    int m_latest = 0; // time of the previous "at"
};

/// Commands and the times at which they run.
class Scenario
{
public:
    /// A larger file is refused.
    static constexpr qint64 largestFile = 16 * 1024 * 1024;

    /// Checks the whole text. Returns false when lines are wrong, and sets problem to one line for each of
    /// them, with its number, and at most 100 lines.
    bool load(const QString &path, QString *problem);
    bool parse(const QString &text, QString *problem);

    const QVector<ScenarioStep> &steps() const { return m_steps; }

private:
    QVector<ScenarioStep> m_steps;
};

} // namespace simulated

// The command table: one row and one reader function for each command.
#pragma once

#include "commands.h"
#include "wire.h"

#include <QVector>

#include <algorithm>
#include <iterator>
#include <limits>

namespace simulated {

constexpr int largestByte = 0x7F;
constexpr int largestWord = 0xFFFF;
constexpr int anyNumberOfWords = std::numeric_limits<int>::max();

using Run = std::function<CommandResult(SoundEngine &)>;

/// Input and output of a reader function. When it returns an empty Run, problem says why.
struct Reader
{
    const QStringList &arguments;
    QString problem;

    int count() const { return arguments.size(); }

    Run fail(const QString &line);
    bool number(int index, int largest, int *value);
};

struct CommandRow
{
    const char *name;
    const char *arguments;
    const char *help;
    int least; ///< smallest number of arguments
    int most;  ///< largest number of arguments
    Run (*read)(Reader &);
};

/// Commands that send something.
const QVector<CommandRow> &sendCommands();
/// Commands that set or show something.
const QVector<CommandRow> &stateCommands();

/// A command that changes the engine and shows nothing.
Run setting(const std::function<void(SoundEngine &)> &set);

bool readOnOff(const QString &text, bool *on);

/// Reads two letters, or a number of more than two characters.
bool readTag(const QString &word, quint16 *value);

struct Named
{
    const char *name;
    quint16 value;
};

template<size_t size>
const Named *findNamed(const Named (&names)[size], const QString &name)
{
    const auto found = std::find_if(std::begin(names), std::end(names),
                                    [&](const Named &named) { return name == QLatin1String(named.name); });
    return found != std::end(names) ? found : nullptr;
}

template<size_t size>
QString listed(const Named (&names)[size])
{
    QStringList texts;
    for (const Named &named : names)
        texts.append(QLatin1String(named.name));
    return texts.join(QLatin1String(", "));
}

} // namespace simulated

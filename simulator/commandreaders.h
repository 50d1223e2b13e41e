// How the command lines of the engine are read: one row and one reader for each command.
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

using Run = std::function<QStringList(SoundEngine &)>;

/// What a command's reader gets and gives back: an empty Run means that problem says why.
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
    int least; ///< words that must and may follow the name
    int most;
    Run (*read)(Reader &);
};

/// Commands that make the engine send something, and commands that set or show something.
const QVector<CommandRow> &sendCommands();
const QVector<CommandRow> &stateCommands();

/// A command that sets something.
Run setting(const std::function<void(SoundEngine &)> &set);

bool readOnOff(const QString &word, bool *on);

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

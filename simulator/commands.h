// The commands that drive the engine, the same on standard input and in a scenario.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class SoundEngine;

namespace simulated {

/// The result of a command: lines to show, and whether its datagrams were sent.
struct CommandResult
{
    CommandResult(const QStringList &shown = {})
        : lines(shown)
    {}

    QStringList lines;
    bool isSent = true; ///< false: lines say why not. True for commands that send nothing.
};

struct Command
{
    std::function<CommandResult(SoundEngine &)> run;
    bool isQuit = false;
};

/// Reads one command line without running it. Returns false and sets problem to one line when the command is
/// unknown or an argument is wrong.
bool parseCommand(const QString &line, Command *command, QString *problem);

/// Splits a line at its blanks; a # begins a comment.
QStringList wordsOf(const QString &line);

/// Reads a number from 0 to largest: decimal, or hexadecimal with 0x.
bool readNumber(const QString &text, int largest, int *number);

QStringList commandHelp();

} // namespace simulated

// The commands that drive the engine, the same on standard input and in a scenario.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class SoundEngine;

namespace simulated {

struct Command
{
    /// Carries the command out; returns lines to show.
    std::function<QStringList(SoundEngine &)> run;
    bool isQuit = false;
};

/// Reads one command line. False and one line in problem when it is none; nothing is carried out either way.
bool parseCommand(const QString &line, Command *command, QString *problem);

/// The words of a line: separated by blanks, a # begins a comment.
QStringList wordsOf(const QString &line);

/// A decimal number or one with 0x, from 0 to largest.
bool readNumber(const QString &word, int largest, int *number);

QStringList commandHelp();

} // namespace simulated

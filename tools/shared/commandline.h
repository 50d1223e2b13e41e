#pragma once

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QStringList>

/// Adds options to parser and parses arguments, which do not include the program's name. Returns an empty
/// text, or one line about an unknown option, a missing value or an unexpected one.
QString parseCommandLine(QCommandLineParser &parser, const QList<QCommandLineOption> &options,
                         const QStringList &arguments);

/// The parser's help text for the program of that name. Must not be called while an application object
/// exists.
QString commandLineHelp(const QCommandLineParser &parser, const char *program);

#pragma once

#include <QString>
#include <QStringList>

/// What the command line of zelta-demo asks for.
struct Options
{
    enum class Action { Run, Help, Version, Refuse };

    Action action = Action::Run;
    QString error; ///< one line, set with Refuse

    bool headless = false;
    double seconds = 10.0;
    QString screenshots;
    QString importDir;
    QString files;
    QString page = QStringLiteral("kit");
};

/// Reads the arguments after the program's name. Anything it does not understand ends in Refuse.
Options parseOptions(const QStringList &arguments);

/// The names that --page takes, in the order of the navigation bar.
QStringList pageNames();

QString helpText();

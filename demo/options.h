#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

/// The command line of zelta-demo.
struct Options
{
    enum class Action { Run, Help, Version, Refuse };

    Action action = Action::Run;
    QString error; ///< one line, set with Refuse

    bool headless = false;
    bool simulate = false;
    double seconds = 10.0;
    QString screenshots;
    QSize size{1280, 800};
    QString importDir;
    QString files;
    QString page = QStringLiteral("kit");
};

/// Reads the arguments, which do not include the program's name. A wrong argument gives Refuse.
Options parseOptions(const QStringList &arguments);

QString helpText();

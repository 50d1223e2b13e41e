#pragma once

#include <QHostAddress>
#include <QSize>
#include <QString>
#include <QStringList>

/// The command line of zelta-panel.
struct PanelOptions
{
    enum class Action { Run, Show, Refuse };

    Action action = Action::Run;
    QString text; ///< to show, or one line with the reason of a refusal

    QHostAddress address{QStringLiteral("127.20.21.22")};
    quint16 port = 19797;
    bool groove = false;
    bool headless = false;
    double seconds = 5.0;
    QString pictures; ///< folder
    QSize size{1024, 600};
};

/// Reads the arguments, which do not include the program's name.
PanelOptions parsePanelOptions(const QStringList &arguments);

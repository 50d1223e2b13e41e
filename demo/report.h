#pragma once

#include <QStringList>

class QObject;

/// What went both ways between the screen and the engine, as counted by the screen itself.
struct Report
{
    QStringList lines;   ///< one item per line, for people and for grep
    QStringList missing; ///< what a working engine sends and this one did not
};

/// `shell` is the screen's root item, or null when it never appeared.
Report makeReport(const QObject *shell);

#pragma once

#include <QStringList>

class QObject;

/// What the screen and the engine exchanged, as counted by the screen.
struct Report
{
    QStringList lines;   ///< one item per line
    QStringList missing; ///< what a working engine sends, but this one did not
};

/// `shell` is the root item of the screen, or null if the screen did not appear.
Report makeReport(const QObject *shell);

#pragma once

#include <QString>

/// Folder that a QML engine is to look for the ZeltaConnect module in: the given one, or the one of the same
/// build tree as the program. Empty where there is none; Qt's own folders are left to find it then.
/// Needs an application object.
QString moduleFolder(const QString &given);

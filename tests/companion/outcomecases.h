#pragma once

#include "transfer/transferkinds.h"

#include <QString>
#include <QVector>

class TestFiles;

/// A kind of file and a failure mode.
struct OutcomeCase
{
    TransferKind kind;
    QString mode;
    QString modeText; ///< with its number
    int packets;

    QString name() const { return QStringLiteral("%1, %2").arg(mode, QLatin1String(kind.name)); }
    /// Writes a valid file of that size and returns its path.
    QString write(const TestFiles &files) const;
};

/// All cases that take up to a minute, or all others.
QVector<OutcomeCase> outcomeCases(bool takesLong);

#pragma once

#include "transfer/transferkinds.h"

#include <QString>
#include <QStringList>

/// The expected outcome of a file that is sent to an engine with a failure mode.
struct Expectation
{
    enum class End {
        Acknowledged, ///< with status
        TimedOut,
        BrokenOff, ///< no end packet; imports report the status
        Varies,    ///< depends on the affected packet; any outcome except a false success is accepted
    };

    End end = End::Acknowledged;
    quint16 status = 0;
    int resends = 0; ///< number that sound banks report

    /// True when the next task stays in the queue.
    bool leavesNextTask() const { return end == End::BrokenOff; }
    /// True when the file arrives unchanged.
    bool arrivesWhole() const { return end == End::Acknowledged && status == 0; }
    /// Signals in their order, consecutive progress signals as one.
    QStringList signalsOf(const TransferKind &kind, const QString &mode) const;
};

/// Null for a mode that the table does not contain.
const Expectation *expectationOf(const QString &mode);

/// True for modes that change only the answers to queries. They affect only firmware.
bool isAboutQueries(const QString &mode);

#pragma once

#include "transfer/transferkinds.h"

#include <QString>
#include <QStringList>

/// What has to come of a file that is sent to an engine with a failure mode.
struct Expectation
{
    enum class End {
        Acknowledged, ///< with status
        TimedOut,
        BrokenOff, ///< no end is sent; status is what imports report
        Varies,    ///< by what the mode happens to hit: any, but no false success
    };

    End end = End::Acknowledged;
    quint16 status = 0;
    int resends = 0; ///< as counted for the sound bank

    /// True when the thread has left with the next task still queued.
    bool leavesNextTask() const { return end == End::BrokenOff; }
    /// True when the file has to arrive as it was sent.
    bool arrivesWhole() const { return end == End::Acknowledged && status == 0; }
    /// Signals that QML has to see in this order, progress counted once.
    QStringList signalsOf(const TransferKind &kind, const QString &mode) const;
};

/// Null when nothing is said about the mode; then it has been added to the simulator and not here.
const Expectation *expectationOf(const QString &mode);

/// Modes that change what the engine says to queries, and nothing else: of the files they only matter to
/// firmware.
bool isAboutQueries(const QString &mode);

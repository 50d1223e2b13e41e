#pragma once

#include "recording.h"
#include "sentsequence.h"

#include <QElapsedTimer>
#include <QStringList>
#include <QVector>

namespace simulated {

/// Compares what a module sends with what the module of a recording sent.
///
/// Settings and other datagrams are compared byte by byte and in their order, files by their content. Queries
/// and files are sent by another thread of the module than everything else, so the order between the two
/// groups is not compared. Times are not compared.
class Comparison
{
public:
    explicit Comparison(const Recording &recording);

    /// The next datagram of the module. Returns true if the recording has it, too, and it was still missing.
    bool receive(const QByteArray &datagram);

    /// Everything that the recording has was received, in any order and perhaps with other values in files.
    bool isComplete() const;

    struct Report
    {
        QStringList lines; ///< one for each difference
        int compared = 0;  ///< recorded datagrams without packets of files
        int files = 0;     ///< recorded files
        int missing = 0;
        int extra = 0;
        int changed = 0;
        int order = 0;
        int changedFiles = 0;

        int differences() const { return missing + extra + changed + order + changedFiles; }
        /// The counts as lines "summary NAME VALUE", and a line with the result.
        QStringList summary() const;
    };

    Report report() const;

private:
    SentTable m_table;
    SentSequence m_recorded{&m_table};
    SentSequence m_received{&m_table};
    QVector<int> m_outstanding; // by number: how often a recorded datagram is still missing
    int m_outstandingSum = 0;
    QElapsedTimer m_sinceFirst;
    bool m_isOverfull = false;
    qint64 m_receivedCount = 0;
};

} // namespace simulated

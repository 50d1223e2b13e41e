#pragma once

#include "failures.h"

#include <QByteArray>
#include <QHash>
#include <QRandomGenerator>
#include <QSet>
#include <QVector>

namespace simulated {

/// Simulates a bad network between module and engine: drops, duplicates and delays received datagrams.
class DatagramFilter
{
public:
    explicit DatagramFilter(quint32 seed = 1);

    void setSeed(quint32 seed);
    void setFailures(const FailureSet &failures);

    /// The datagrams that the engine receives when `datagram` arrives, in order. May be empty.
    QVector<QByteArray> pass(const QByteArray &datagram);

    /// Releases the delayed datagrams when no further datagram arrives.
    QVector<QByteArray> flush();

    int heldBack() const { return m_held.size(); }

    /// True while a failure mode makes the engine unreachable in both directions.
    bool isGone() const { return m_deafFor != 0; }

    /// Number of dropped datagrams.
    quint64 lost() const { return m_lost; }

private:
    struct Held
    {
        QByteArray datagram;
        int behind; // number of datagrams to deliver first
    };

    // One datagram of every block of N, chosen at random.
    struct Choice
    {
        int position = 0;
        int chosen = 0;
    };

    bool isChosen(Failure failure);
    bool happensOnce(Failure failure, qint64 number);
    void noteVanishing(const QByteArray &datagram);

    FailureSet m_failures;
    QRandomGenerator m_random;
    QHash<int, Choice> m_choices; // by the failure's id
    QSet<int> m_happened;         // ids of the failures that have happened in this transfer
    QVector<Held> m_held;
    int m_deafFor = 0; // number of datagrams still to drop; -1: all
    quint64 m_lost = 0;
};

} // namespace simulated

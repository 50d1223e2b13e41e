#pragma once

#include "failures.h"

#include <QByteArray>
#include <QRandomGenerator>
#include <QVector>

namespace simulated {

/// A bad network between module and engine: what arrives is lost, doubled or late.
class DatagramFilter
{
public:
    explicit DatagramFilter(quint32 seed = 1);

    void setSeed(quint32 seed);
    void setFailures(const FailureSet &failures);

    /// What the engine hears when datagram arrives, in this order; may be nothing.
    QVector<QByteArray> pass(const QByteArray &datagram);

    /// What is still held back, for when nothing follows any more.
    QVector<QByteArray> flush();

    int heldBack() const { return m_held.size(); }

    /// True while the engine is gone: it neither hears nor speaks.
    bool isGone() const { return m_deafFor != 0; }

    /// Datagrams that never got through.
    quint64 lost() const { return m_lost; }

private:
    struct Held
    {
        QByteArray datagram;
        int behind; // datagrams to let by first
    };

    // One datagram of every block of N, chosen at random.
    struct Choice
    {
        int position = 0;
        int chosen = 0;
    };

    bool isChosen(Failure failure, Choice *choice);
    void noteVanishing(const QByteArray &datagram);

    FailureSet m_failures;
    QRandomGenerator m_random;
    Choice m_drop;
    Choice m_duplicate;
    Choice m_reorder;
    QVector<Held> m_held;
    bool m_onceDone = false;
    bool m_vanishDone = false;
    int m_deafFor = 0; // datagrams still to miss; -1: all
    quint64 m_lost = 0;
};

} // namespace simulated

#include "datagramfilter.h"

#include "wire.h"

namespace simulated {

namespace {

constexpr int missedWhileAway = 20;
constexpr int lateBy = 3;

// Number of a data packet, -1 for any other datagram.
qint64 packetNumber(const QByteArray &datagram)
{
    return datagram.size() >= 10 && wordAt(datagram, 0) == Tag::TransferData ? qint64(longAt(datagram, 4))
                                                                             : -1;
}

} // namespace

DatagramFilter::DatagramFilter(quint32 seed)
    : m_random(seed)
{}

void DatagramFilter::setSeed(quint32 seed)
{
    m_random.seed(seed);
}

void DatagramFilter::setFailures(const FailureSet &failures)
{
    m_failures = failures;
    m_choices.clear();
    m_happened.clear();
    m_deafFor = 0;
}

bool DatagramFilter::isChosen(Failure failure)
{
    bool chosen = false;
    for (const ActiveFailure &active : m_failures.active()) {
        if (active.failure != failure)
            continue;
        Choice &choice = m_choices[active.id];
        if (choice.position == 0)
            choice.chosen = int(m_random.bounded(active.value));
        chosen = chosen || choice.position == choice.chosen;
        choice.position = (choice.position + 1) % active.value;
    }
    return chosen;
}

bool DatagramFilter::happensOnce(Failure failure, qint64 number)
{
    for (const ActiveFailure &active : m_failures.active()) {
        if (active.failure == failure && active.value == number && !m_happened.contains(active.id)) {
            m_happened.insert(active.id);
            return true;
        }
    }
    return false;
}

void DatagramFilter::noteVanishing(const QByteArray &datagram)
{
    const qint64 number = packetNumber(datagram);
    if (number < 0 || m_deafFor != 0)
        return;
    if (happensOnce(Failure::Vanish, number))
        m_deafFor = -1;
    else if (happensOnce(Failure::VanishAndReturn, number))
        m_deafFor = missedWhileAway;
}

QVector<QByteArray> DatagramFilter::pass(const QByteArray &datagram)
{
    if (wordAt(datagram, 0) == Tag::TransferStart)
        m_happened.clear();

    noteVanishing(datagram);
    if (m_deafFor != 0) {
        if (m_deafFor > 0)
            --m_deafFor;
        ++m_lost;
        return {};
    }

    QVector<QByteArray> passed;
    const qint64 number = packetNumber(datagram);
    const auto once = [&](Failure failure) {
        return number >= 0 && happensOnce(failure, number);
    };
    if (isChosen(Failure::Drop) || once(Failure::LoseOnce)) {
        ++m_lost;
    } else if (isChosen(Failure::Reorder)) {
        m_held.append({datagram, 1});
        return passed;
    } else if (once(Failure::DelayOnce)) {
        m_held.append({datagram, lateBy});
        return passed;
    } else {
        passed.append(datagram);
        if (isChosen(Failure::Duplicate) || once(Failure::DuplicateOnce))
            passed.append(datagram);
    }

    for (auto held = m_held.begin(); held != m_held.end();) {
        if (--held->behind > 0) {
            ++held;
        } else {
            passed.append(held->datagram);
            held = m_held.erase(held);
        }
    }
    return passed;
}

QVector<QByteArray> DatagramFilter::flush()
{
    QVector<QByteArray> passed;
    for (const Held &held : qAsConst(m_held))
        passed.append(held.datagram);
    m_held.clear();
    return passed;
}

} // namespace simulated

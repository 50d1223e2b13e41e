#include "datagramfilter.h"

#include "wire.h"

namespace simulated {

namespace {

constexpr int missedWhileAway = 20;
constexpr int lateBy = 3;

// Number of a data packet, -1 for every other datagram.
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
    m_drop = m_duplicate = m_reorder = {};
    m_onceDone = m_vanishDone = false;
    m_deafFor = 0;
}

bool DatagramFilter::isChosen(Failure failure, Choice *choice)
{
    if (!m_failures.has(failure))
        return false;
    if (choice->position == 0)
        choice->chosen = int(m_random.bounded(m_failures.value(failure)));
    const bool chosen = choice->position == choice->chosen;
    choice->position = (choice->position + 1) % m_failures.value(failure);
    return chosen;
}

void DatagramFilter::noteVanishing(const QByteArray &datagram)
{
    const qint64 number = packetNumber(datagram);
    if (number < 0 || m_deafFor != 0)
        return;
    if (m_failures.has(Failure::Vanish) && number == m_failures.value(Failure::Vanish))
        m_deafFor = -1;
    if (!m_vanishDone && m_failures.has(Failure::VanishAndReturn) &&
        number == m_failures.value(Failure::VanishAndReturn)) {
        m_vanishDone = true;
        m_deafFor = missedWhileAway;
    }
}

QVector<QByteArray> DatagramFilter::pass(const QByteArray &datagram)
{
    if (wordAt(datagram, 0) == Tag::TransferStart)
        m_onceDone = m_vanishDone = false;

    noteVanishing(datagram);
    if (m_deafFor != 0) {
        if (m_deafFor > 0)
            --m_deafFor;
        ++m_lost;
        return {};
    }

    QVector<QByteArray> heard;
    const qint64 number = packetNumber(datagram);
    const auto once = [&](Failure failure) {
        if (m_onceDone || number < 0 || !m_failures.has(failure) || number != m_failures.value(failure))
            return false;
        m_onceDone = true;
        return true;
    };
    if (isChosen(Failure::Drop, &m_drop) || once(Failure::LoseOnce)) {
        ++m_lost;
    } else if (isChosen(Failure::Reorder, &m_reorder)) {
        m_held.append({datagram, 1});
        return heard;
    } else if (once(Failure::DelayOnce)) {
        m_held.append({datagram, lateBy});
        return heard;
    } else {
        heard.append(datagram);
        if (isChosen(Failure::Duplicate, &m_duplicate) || once(Failure::DuplicateOnce))
            heard.append(datagram);
    }

    for (auto held = m_held.begin(); held != m_held.end();) {
        if (--held->behind > 0) {
            ++held;
        } else {
            heard.append(held->datagram);
            held = m_held.erase(held);
        }
    }
    return heard;
}

QVector<QByteArray> DatagramFilter::flush()
{
    QVector<QByteArray> heard;
    for (const Held &held : qAsConst(m_held))
        heard.append(held.datagram);
    m_held.clear();
    return heard;
}

} // namespace simulated

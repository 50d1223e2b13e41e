#include "failures.h"

#include "commands.h"

#include <algorithm>

namespace simulated {

namespace {

// Packets are numbered with 24 bits in acknowledgements.
constexpr int largestValue = 0xFFFFFF;

// Every data packet is compared with all of them.
constexpr int mostPackets = 1000;

// Numbers with commas between them.
bool readValues(const QString &text, QVector<int> *values)
{
    const QStringList words = text.split(QLatin1Char(','));
    for (const QString &word : words) {
        int value = 0;
        if (!readNumber(word, largestValue, &value))
            return false;
        values->append(value);
    }
    return true;
}

bool happensEveryNth(Failure failure)
{
    return failure == Failure::Drop || failure == Failure::Duplicate || failure == Failure::Reorder;
}

// For modes with N: the others count datagrams or milliseconds.
bool happensAtAPacket(Failure failure)
{
    return !happensEveryNth(failure) && failure != Failure::LateQueryReply;
}

bool refuse(const QString &line, QString *problem)
{
    if (problem != nullptr)
        *problem = line;
    return false;
}

const FailureMode *findMode(const QString &name)
{
    const auto &modes = failureModes();
    const auto mode = std::find_if(modes.begin(), modes.end(), [&name](const FailureMode &candidate) {
        return name == QLatin1String(candidate.name);
    });
    return mode != modes.end() ? &*mode : nullptr;
}

QString unknownMode(const QString &name)
{
    return QStringLiteral("unknown failure mode \"%1\"").arg(name);
}

} // namespace

const QVector<FailureMode> &failureModes()
{
    static const QVector<FailureMode> modes = {
        {"resend", Failure::Resend, 0, 5, "requests packet N again when it arrives, once in a transfer"},
        {"resend-twice", Failure::ResendTwice, 0, 5,
         "requests packet N again with two requests in a row, once in a transfer"},
        {"resend-before-start", Failure::ResendBeforeStart, 0, -1,
         "requests packet 0 when the start packet arrives"},
        {"resend-past-end", Failure::ResendPastEnd, 0, 5,
         "at packet N, requests a packet past the end of the file"},
        {"unknown-low-byte", Failure::UnknownLowByte, 0, 5,
         "at packet N, sends an acknowledgement with an undefined low byte, which acts as a resend"},
        {"refuse-e0", Failure::Refuse, 0xE0, 5, "refuses further data at packet N"},
        {"memory-full-e1", Failure::Refuse, 0xE1, 5, "reports memory full at packet N"},
        {"memory-full-e2", Failure::Refuse, 0xE2, 5, "reports memory full at packet N"},
        {"memory-full-e3", Failure::Refuse, 0xE3, 5, "reports memory full at packet N"},
        {"refuse-e4", Failure::Refuse, 0xE4, 5, "refuses further data at packet N"},
        {"refuse-e5", Failure::Refuse, 0xE5, 5, "refuses further data at packet N"},
        {"refuse-e6", Failure::Refuse, 0xE6, 5, "refuses further data at packet N"},
        {"refuse-e7", Failure::Refuse, 0xE7, 5, "refuses further data at packet N"},
        {"refuse-e8", Failure::Refuse, 0xE8, 5, "refuses further data at packet N"},
        {"refuse-e9", Failure::Refuse, 0xE9, 5, "refuses further data at packet N"},
        {"refuse-ea", Failure::Refuse, 0xEA, 5, "refuses further data at packet N"},
        {"refuse-eb", Failure::Refuse, 0xEB, 5, "refuses further data at packet N"},
        {"refuse-ec", Failure::Refuse, 0xEC, 5, "refuses further data at packet N"},
        {"refuse-ed", Failure::Refuse, 0xED, 5, "refuses further data at packet N"},
        {"refuse-ee", Failure::Refuse, 0xEE, 5, "refuses further data at packet N"},
        {"refuse-ef", Failure::Refuse, 0xEF, 5, "refuses further data at packet N"},
        {"bad-checksum", Failure::BadChecksum, 0, -1, "reports a checksum error at the end of a file"},
        {"no-end-ack", Failure::NoEndAck, 0, -1, "does not acknowledge the end of a file"},
        {"no-query-reply", Failure::NoQueryReply, 0, -1, "does not answer queries"},
        {"late-query-reply", Failure::LateQueryReply, 0, 21000, "answers queries after N milliseconds"},
        {"wrong-query-reply", Failure::WrongQueryReply, 0, -1,
         "answers every query with the reply to another one"},
        {"stray-acks", Failure::StrayAcks, 0, 5,
         "acknowledges packets that were not sent: at every query and start, and at packet N"},
        {"vanish", Failure::Vanish, 0, 5, "receives and sends nothing from packet N on"},
        {"vanish-and-return", Failure::VanishAndReturn, 0, 5,
         "misses packet N and the 19 datagrams after it, once in a transfer"},
        {"drop", Failure::Drop, 0, 50, "loses one datagram of every N; the seed selects which"},
        {"duplicate", Failure::Duplicate, 0, 50,
         "receives one datagram of every N twice; the seed selects which"},
        {"reorder", Failure::Reorder, 0, 50,
         "receives one datagram of every N after the next one; the seed selects which"},
        {"lose-once", Failure::LoseOnce, 0, 5, "loses data packet N the first time it is sent in a transfer"},
        {"duplicate-once", Failure::DuplicateOnce, 0, 5, "receives data packet N twice, once in a transfer"},
        {"delay-once", Failure::DelayOnce, 0, 5,
         "receives data packet N three datagrams late, once in a transfer"},
    };
    return modes;
}

QStringList failureHelp()
{
    QStringList lines;
    for (const FailureMode &mode : failureModes()) {
        QString usage = QLatin1String(mode.name);
        if (mode.defaultValue >= 0)
            usage += QStringLiteral("[=%1]").arg(mode.defaultValue);
        lines.append(QStringLiteral("%1 %2").arg(usage, -26).arg(QLatin1String(mode.description)));
    }
    return lines;
}

bool FailureSet::add(const QString &text, QString *problem)
{
    const int equals = text.indexOf(QLatin1Char('='));
    const QString name = text.left(equals);
    QVector<int> values;
    if (equals >= 0 && !readValues(text.mid(equals + 1), &values)) {
        return refuse(
            QStringLiteral("\"%1\": = is followed by a number from 0 to %2").arg(text).arg(largestValue),
            problem);
    }
    const FailureMode *mode = findMode(name);
    if (mode == nullptr)
        return refuse(unknownMode(name), problem);
    if (!values.isEmpty() && mode->defaultValue < 0)
        return refuse(QStringLiteral("failure mode \"%1\" takes no number").arg(name), problem);
    if (values.size() > 1 && !happensAtAPacket(mode->failure))
        return refuse(QStringLiteral("failure mode \"%1\" takes one number").arg(name), problem);
    if (values.size() > mostPackets) {
        return refuse(QStringLiteral("failure mode \"%1\" takes up to %2 numbers").arg(name).arg(mostPackets),
                      problem);
    }
    if (values.contains(0) && happensEveryNth(mode->failure))
        return refuse(QStringLiteral("failure mode \"%1\" needs a number from 1").arg(name), problem);
    if (values.isEmpty())
        values.append(mode->defaultValue);
    for (const int value : qAsConst(values))
        m_active.append({name, mode->failure, value, mode->code, m_nextId++});
    return true;
}

bool FailureSet::remove(const QString &name, QString *problem)
{
    if (findMode(name) == nullptr)
        return refuse(unknownMode(name), problem);
    m_active.erase(std::remove_if(m_active.begin(), m_active.end(),
                                  [&name](const ActiveFailure &active) { return active.name == name; }),
                   m_active.end());
    return true;
}

void FailureSet::clear()
{
    m_active.clear();
}

bool FailureSet::has(Failure failure) const
{
    return std::any_of(m_active.begin(), m_active.end(),
                       [failure](const ActiveFailure &active) { return active.failure == failure; });
}

int FailureSet::value(Failure failure) const
{
    const auto last =
        std::find_if(m_active.rbegin(), m_active.rend(),
                     [failure](const ActiveFailure &active) { return active.failure == failure; });
    return last != m_active.rend() ? last->value : -1;
}

} // namespace simulated

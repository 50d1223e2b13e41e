#include "failures.h"

namespace simulated {

const QVector<FailureMode> &failureModes()
{
    static const QVector<FailureMode> modes = {
        {"resend", Failure::Resend, 0, 5, "asks again for packet N when it arrives, once in a transfer"},
        {"resend-twice", Failure::ResendTwice, 0, 5, "the same, with two requests in a row"},
        {"resend-before-start", Failure::ResendBeforeStart, 0, -1,
         "asks for packet 0 before any packet has come"},
        {"resend-past-end", Failure::ResendPastEnd, 0, 5,
         "at packet N, asks for a packet past the end of the file"},
        {"unknown-low-byte", Failure::UnknownLowByte, 0, 5,
         "at packet N, an acknowledgement whose low byte means nothing; it acts as a resend"},
        {"refuse-e0", Failure::Refuse, 0xE0, 5, "refuses further data at packet N"},
        {"memory-full-e1", Failure::Refuse, 0xE1, 5, "memory full at packet N"},
        {"memory-full-e2", Failure::Refuse, 0xE2, 5, "memory full at packet N"},
        {"memory-full-e3", Failure::Refuse, 0xE3, 5, "memory full at packet N"},
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
        {"bad-checksum", Failure::BadChecksum, 0, -1, "reports a checksum error at the end"},
        {"no-end-ack", Failure::NoEndAck, 0, -1, "does not acknowledge the end"},
        {"no-query-reply", Failure::NoQueryReply, 0, -1, "does not answer queries"},
        {"late-query-reply", Failure::LateQueryReply, 0, 21000, "answers queries after N milliseconds"},
        {"wrong-query-reply", Failure::WrongQueryReply, 0, -1,
         "answers every query with the reply to another"},
        {"stray-acks", Failure::StrayAcks, 0, 5,
         "acknowledges what was never sent: at every query and start, and at packet N"},
        {"vanish", Failure::Vanish, 0, 5, "from packet N on hears and says nothing"},
        {"vanish-and-return", Failure::VanishAndReturn, 0, 5,
         "misses packet N and the 19 datagrams after it, once in a transfer"},
        {"drop", Failure::Drop, 0, 50, "loses one datagram of every N, which one by the seed"},
        {"duplicate", Failure::Duplicate, 0, 50, "hears one datagram of every N twice"},
        {"reorder", Failure::Reorder, 0, 50, "hears one datagram of every N after the one that follows it"},
        {"lose-once", Failure::LoseOnce, 0, 5, "loses data packet N the first time it is sent in a transfer"},
        {"duplicate-once", Failure::DuplicateOnce, 0, 5, "hears data packet N twice, once in a transfer"},
        {"delay-once", Failure::DelayOnce, 0, 5,
         "hears data packet N three datagrams late, once in a transfer"},
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
    if (equals < 0)
        return add(text, -1, problem);
    bool isNumber = false;
    const int value = text.midRef(equals + 1).toInt(&isNumber);
    if (isNumber && value >= 0)
        return add(text.left(equals), value, problem);
    if (problem != nullptr)
        *problem = QStringLiteral("\"%1\": what follows = must be a number from 0").arg(text);
    return false;
}

bool FailureSet::add(const QString &name, int value, QString *problem)
{
    const auto fail = [problem](const QString &line) {
        if (problem != nullptr)
            *problem = line;
        return false;
    };
    for (const FailureMode &mode : failureModes()) {
        if (name != QLatin1String(mode.name))
            continue;
        if (value >= 0 && mode.defaultValue < 0)
            return fail(QStringLiteral("failure mode \"%1\" takes no number").arg(name));
        const bool everyNth = mode.failure == Failure::Drop || mode.failure == Failure::Duplicate ||
                              mode.failure == Failure::Reorder;
        if (value == 0 && everyNth)
            return fail(QStringLiteral("failure mode \"%1\" needs a number from 1").arg(name));
        m_values.insert(mode.failure, value >= 0 ? value : mode.defaultValue);
        if (mode.failure == Failure::Refuse)
            m_refusalCode = mode.code;
        return true;
    }
    return fail(QStringLiteral("unknown failure mode \"%1\"").arg(name));
}

void FailureSet::clear()
{
    m_values.clear();
}

} // namespace simulated

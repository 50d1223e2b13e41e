// The ways in which the engine can be told to fail.
#pragma once

#include <QHash>
#include <QStringList>
#include <QVector>

namespace simulated {

enum class Failure {
    Resend,
    ResendTwice,
    ResendBeforeStart,
    ResendPastEnd,
    UnknownLowByte,
    Refuse, ///< its low byte is part of the mode
    BadChecksum,
    NoEndAck,
    NoQueryReply,
    LateQueryReply,
    WrongQueryReply,
    StrayAcks,
    Vanish,
    VanishAndReturn,
    Drop,
    Duplicate,
    Reorder,
    LoseOnce,
    DuplicateOnce,
    DelayOnce
};

struct FailureMode
{
    const char *name;
    Failure failure;
    quint8 code;      ///< low byte of a refusal
    int defaultValue; ///< N when none is given; -1: takes no N
    const char *description;
};

const QVector<FailureMode> &failureModes();

/// One line for each mode: name, N with its default where it takes one, what happens.
QStringList failureHelp();

/// The failures that are switched on, with their N.
class FailureSet
{
public:
    /// text is NAME or NAME=N; false and a line in problem when it names nothing or N does not fit.
    bool add(const QString &text, QString *problem = nullptr);
    bool add(const QString &name, int value, QString *problem = nullptr);
    void clear();

    bool has(Failure failure) const { return m_values.contains(failure); }
    /// N of a failure that is on, or -1.
    int value(Failure failure) const { return m_values.value(failure, -1); }
    quint8 refusalCode() const { return m_refusalCode; }

private:
    QHash<Failure, int> m_values;
    quint8 m_refusalCode = 0;
};

inline uint qHash(Failure failure, uint seed = 0)
{
    return ::qHash(int(failure), seed);
}

} // namespace simulated

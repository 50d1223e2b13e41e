// Failure modes: faults of the engine and of the network that a test or a person switches on.
#pragma once

#include <QStringList>
#include <QVector>

namespace simulated {

enum class Failure {
    Resend,
    ResendTwice,
    ResendBeforeStart,
    ResendPastEnd,
    UnknownLowByte,
    Refuse, ///< one mode for each refusal code
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
    quint8 code;      ///< refusal code, 0 in other modes
    int defaultValue; ///< N when none is given; -1: the mode takes no N
    const char *description;
};

const QVector<FailureMode> &failureModes();

/// One line for each mode: name, default of N where the mode takes one, description.
QStringList failureHelp();

/// A failure mode that is switched on.
struct ActiveFailure
{
    QString name; ///< of the mode
    Failure failure;
    int value;   ///< N; -1 in modes without
    quint8 code; ///< refusal code
    int id;      ///< distinguishes two of the same mode
};

/// The failure modes that are switched on. A mode that is added twice applies twice.
class FailureSet
{
public:
    /// text is NAME, NAME=N or, for modes that happen at a packet, NAME=N,N,... with up to 1000 packets,
    /// which adds the mode once for each. Returns false and sets problem to one line when the name is unknown
    /// or a number is out of range; nothing is added then.
    bool add(const QString &text, QString *problem = nullptr);
    /// Removes every failure of the mode with that name. Returns false and sets problem to one line when the
    /// name is unknown.
    bool remove(const QString &name, QString *problem = nullptr);
    void clear();

    /// In the order in which they were added.
    const QVector<ActiveFailure> &active() const { return m_active; }
    bool has(Failure failure) const;
    /// N of a failure; of the last one when the mode is on twice, -1 when it is off.
    int value(Failure failure) const;

private:
    QVector<ActiveFailure> m_active;
    int m_nextId = 0;
};

} // namespace simulated

#pragma once

#include <QString>
#include <QVector>

/// How a file ends that is sent to an engine with a failure mode: what a screen gets from FileTransfer, and
/// what zelta-send returns and prints.
struct Outcome
{
    QString state;   ///< name of the value of FileTransfer.State
    QString reason;  ///< name of the value of FileTransfer.Reason
    QString message; ///< the end of FileTransfer.message; zelta-send prints the same sentence
    int exitStatus;  ///< of zelta-send
    /// What zelta-send prints instead of the message; empty: the message.
    QString printed;
    bool arrives; ///< the engine has the complete file
};

/// Names of the kinds as zelta-send and the simulator's tags have them.
struct OutcomeKind
{
    const char *option;     ///< for --kind
    const char *content;    ///< tag on the wire
    const char *enumerator; ///< of FileTransfer.Kind
};

const QVector<OutcomeKind> &outcomeKinds();
/// The kind with this content tag.
const OutcomeKind &outcomeKindOf(const QByteArray &content);

/// The expected outcome of a kind of file with a failure mode of the simulator, without its number. Null for
/// a mode that the table does not contain.
const Outcome *outcomeOf(const OutcomeKind &kind, const QString &mode);

/// True for modes whose outcome depends on the packet that they affect: success exactly if the file arrived.
bool outcomeVaries(const QString &mode);

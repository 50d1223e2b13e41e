#pragma once

#include "failures.h"
#include "message.h"
#include "receivedfile.h"
#include "streamsum.h"

#include <QObject>
#include <QVector>

#include <memory>

namespace simulated {

/// Status in the acknowledgement of an end packet. A refused transfer ends with its refusal code instead.
namespace EndStatus {
constexpr quint16 Success = 0;
constexpr quint16 ChecksumError = 1;
constexpr quint16 Incomplete = 2;
constexpr quint16 NothingStarted = 3;
} // namespace EndStatus

/// The engine's side of a file transfer.
class TransferReceiver : public QObject
{
    Q_OBJECT

public:
    explicit TransferReceiver(QObject *parent = nullptr);
    ~TransferReceiver() override;

    void setFailures(const FailureSet &failures);

    /// Directory to write files to; empty: files are kept in memory.
    void setStoreDirectory(const QString &directory) { m_directory = directory; }

    /// Bytes of the latest files to keep in memory. The data of a larger file is not kept.
    void setKeptBytes(qint64 bytes);

    /// A start, data or end packet of the module.
    void take(const Message &message);

    /// Every transfer that has ended, in order, with any outcome. The data of older files is dropped.
    const QVector<ReceivedFile> &files() const { return m_files; }
    bool isReceiving() const { return m_current != nullptr; }

Q_SIGNALS:
    void reply(quint16 id, quint16 a, quint16 b);
    void noted(const QString &line);
    void violated(const QString &line);
    void fileStarted(const QString &content, quint32 size);
    void fileEnded(const simulated::ReceivedFile &file);

private:
    struct Transfer;

    void start(const Message &message);
    void data(const Message &message);
    void end(const Message &message);

    void takeChunk(const Message &message);
    void failOnPacket(quint32 number);
    void failNow(const ActiveFailure &active, quint32 number);
    void askForResend(quint32 number, quint8 lowByte);
    quint16 conclude(const Message &message);
    void close(ReceivedFile::Outcome outcome);
    void dropOldData();
    bool networkRepeats() const;
    QString freeFileName(const Message &message) const;

    FailureSet m_failures;
    QString m_directory;
    std::unique_ptr<Transfer> m_current;
    QVector<ReceivedFile> m_files;
    qint64 m_keptBytes = 256 * 1024 * 1024;
    Message m_lastEnd;               // the end packet that closed the last transfer
    quint16 m_lastStatus = 0;        // and the answer to it
    bool m_expectStragglers = false; // data of a transfer that ended early may still arrive
};

} // namespace simulated

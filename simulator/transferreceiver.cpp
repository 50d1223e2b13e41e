#include "transferreceiver.h"

#include "wire.h"

#include <QFileInfo>
#include <QSet>

namespace simulated {

namespace {

constexpr quint8 resendByte = 0xBE;
constexpr quint8 meaninglessByte = 0x42;
constexpr quint32 pastEndBy = 100;

quint32 chunkSizeOf(quint16 content)
{
    return content == Tag::SoundBank ? 1024 : 512;
}

bool hasChecksum(quint16 content)
{
    return content != Tag::EngineFirmware && content != Tag::BluetoothFirmware;
}

} // namespace

struct TransferReceiver::Transfer
{
    ReceivedFile file;
    quint16 content = 0;
    quint32 chunkSize = 0;
    quint32 count = 0;    // packets for the announced size
    quint32 expected = 0; // next packet of the file
    StreamSum stream;
    std::unique_ptr<FileSink> sink;
    bool waiting = false; // a resend was requested because of a gap and has not started yet
    bool broken = false;  // a chunk had a wrong length
    QSet<int> happened;   // ids of the failure modes that have happened in this transfer
    quint16 refusal = 0;

    bool isWhole() const { return expected == count && !broken; }

    // Expected bytes of chunk number, padding included.
    quint32 chunkLength(quint32 number) const
    {
        const quint32 length = qMin(chunkSize, file.size - number * chunkSize);
        return length + length % 2;
    }
};

TransferReceiver::TransferReceiver(QObject *parent)
    : QObject(parent)
{}

TransferReceiver::~TransferReceiver() = default;

void TransferReceiver::setFailures(const FailureSet &failures)
{
    m_failures = failures;
}

void TransferReceiver::setKeptBytes(qint64 bytes)
{
    m_keptBytes = bytes;
    dropOldData();
}

void TransferReceiver::take(const Message &message)
{
    switch (message.kind) {
    case Message::Kind::TransferStart: start(message); break;
    case Message::Kind::TransferData: data(message); break;
    case Message::Kind::TransferEnd: end(message); break;
    default: break;
    }
}

void TransferReceiver::start(const Message &message)
{
    if (m_current) {
        // The network may duplicate a start packet.
        const ReceivedFile &open = m_current->file;
        if (open.packets == 0 && message.content == m_current->content && message.number == open.size &&
            message.slot == open.slot)
            return;
        close(ReceivedFile::Outcome::Abandoned);
    }
    m_lastEnd = {};
    m_expectStragglers = false;
    m_current = std::make_unique<Transfer>();
    Transfer &transfer = *m_current;
    transfer.content = message.content;
    transfer.chunkSize = chunkSizeOf(message.content);
    transfer.count = quint32((quint64(message.number) + transfer.chunkSize - 1) / transfer.chunkSize);
    transfer.file.content = tagText(message.content);
    transfer.file.slot = message.slot;
    transfer.file.name = QString::fromUtf8(message.payload);
    transfer.file.size = message.number;
    transfer.sink = std::make_unique<FileSink>(m_directory, freeFileName(message), m_keptBytes);
    Q_EMIT fileStarted(transfer.file.content, transfer.file.size);

    if (m_failures.has(Failure::StrayAcks)) {
        Q_EMIT reply(Tag::TransferData, 0xFFFF, 0xFF00);
        Q_EMIT noted(QStringLiteral("acknowledged packet 16777215, which was not sent"));
    }
    if (m_failures.has(Failure::ResendBeforeStart))
        askForResend(0, resendByte);
}

QString TransferReceiver::freeFileName(const Message &message) const
{
    if (m_directory.isEmpty())
        return {};
    QString slot;
    if (message.slot >= 0)
        slot = QStringLiteral("-slot%1").arg(message.slot);
    // File names never contain text from the network.
    for (int number = m_files.size() + 1;; ++number) {
        QString name = QStringLiteral("%1-%2%3.bin")
                           .arg(number, 3, 10, QLatin1Char('0'))
                           .arg(tagText(message.content), slot);
        const QString path = m_directory + QLatin1Char('/') + name;
        if (!QFileInfo::exists(path) && !QFileInfo::exists(path + QLatin1String(".part")))
            return name;
    }
}

void TransferReceiver::data(const Message &message)
{
    if (!m_current) {
        if (!m_expectStragglers)
            Q_EMIT violated(QStringLiteral("data packet %1 without a start packet").arg(message.number));
        return;
    }
    Transfer &transfer = *m_current;
    if (message.content != transfer.content) {
        Q_EMIT violated(QStringLiteral("%1 data packet within a transfer of %2")
                            .arg(tagText(message.content), transfer.file.content));
        return;
    }
    ++transfer.file.packets;
    if (transfer.refusal != 0)
        return;
    if (message.payload.isEmpty()) {
        // A sender that seeks past the end of its file sends one empty packet and aborts.
        Q_EMIT noted(QStringLiteral("empty data packet %1").arg(message.number));
        return;
    }
    if (message.number >= transfer.count) {
        transfer.broken = true;
        Q_EMIT violated(
            QStringLiteral("data packet %1 of a file of %2 packets").arg(message.number).arg(transfer.count));
        return;
    }
    if (quint32(message.payload.size()) != transfer.chunkLength(message.number)) {
        transfer.broken = true;
        Q_EMIT violated(QStringLiteral("data packet %1 carries %2 bytes instead of %3")
                            .arg(message.number)
                            .arg(message.payload.size())
                            .arg(transfer.chunkLength(message.number)));
        return;
    }
    takeChunk(message);
    failOnPacket(message.number);
}

bool TransferReceiver::networkRepeats() const
{
    return m_failures.has(Failure::Duplicate) || m_failures.has(Failure::DuplicateOnce);
}

void TransferReceiver::takeChunk(const Message &message)
{
    Transfer &transfer = *m_current;
    const quint32 number = message.number;
    bool resumed = false;
    const StreamSum::Place place = transfer.stream.arrived(number, &resumed);
    if (resumed)
        transfer.waiting = false;

    if (number < transfer.expected) {
        ++transfer.file.repeatedPackets;
        if (place == StreamSum::Place::Repeat && transfer.file.resendRequests == 0 && !networkRepeats())
            Q_EMIT violated(QStringLiteral("data packet %1 sent again without a resend request").arg(number));
        return;
    }
    if (number > transfer.expected) {
        if (transfer.waiting)
            return;
        ++transfer.file.gaps;
        transfer.waiting = true;
        askForResend(transfer.expected, resendByte);
        return;
    }
    transfer.stream.appendChunk(message.payload);
    const quint32 left = transfer.file.size - number * transfer.chunkSize;
    QByteArray bytes = message.payload;
    if (quint32(bytes.size()) > left) {
        if (bytes.at(bytes.size() - 1) != '\0')
            Q_EMIT violated(
                QStringLiteral("data packet %1 is padded with a byte other than zero").arg(number));
        bytes.chop(1);
    }
    transfer.sink->append(bytes);
    transfer.file.received += bytes.size();
    ++transfer.expected;
}

void TransferReceiver::failOnPacket(quint32 number)
{
    // A copy, because a handler of noted() may change the failures.
    const QVector<ActiveFailure> failures = m_failures.active();
    for (const ActiveFailure &active : failures) {
        if (quint32(active.value) != number || m_current->happened.contains(active.id))
            continue;
        m_current->happened.insert(active.id);
        failNow(active, number);
        if (m_current->refusal != 0)
            return;
    }
}

void TransferReceiver::failNow(const ActiveFailure &active, quint32 number)
{
    Transfer &transfer = *m_current;
    switch (active.failure) {
    case Failure::Resend: askForResend(number, resendByte); break;
    case Failure::ResendTwice:
        askForResend(number, resendByte);
        askForResend(number, resendByte);
        break;
    case Failure::ResendPastEnd: askForResend(transfer.count + pastEndBy, resendByte); break;
    case Failure::UnknownLowByte: askForResend(number, meaninglessByte); break;
    case Failure::Refuse:
        transfer.refusal = active.code;
        Q_EMIT noted(QStringLiteral("refused further data with 0x%1").arg(transfer.refusal, 2, 16));
        Q_EMIT reply(Tag::TransferData, quint16(number),
                     quint16(((number >> 8) & 0xFF00) | transfer.refusal));
        break;
    case Failure::StrayAcks:
        Q_EMIT noted(QStringLiteral("acknowledged an end packet that was not sent"));
        Q_EMIT reply(Tag::TransferEnd, 0, EndStatus::Success);
        Q_EMIT reply(tag("ZZ"), 0, 0);
        break;
    default: break; // not a failure of one packet
    }
}

void TransferReceiver::askForResend(quint32 number, quint8 lowByte)
{
    Transfer &transfer = *m_current;
    transfer.stream.requested(number);
    ++transfer.file.resendRequests;
    Q_EMIT noted(QStringLiteral("requested a resend from packet %1").arg(number));
    Q_EMIT reply(Tag::TransferData, quint16(number), quint16(((number >> 8) & 0xFF00) | lowByte));
}

void TransferReceiver::end(const Message &message)
{
    quint16 status = EndStatus::NothingStarted;
    if (m_current && message.content == m_current->content) {
        status = conclude(message);
        m_lastEnd = message;
        m_lastStatus = status;
    } else if (!m_current && m_lastEnd.content == message.content && m_lastEnd.number == message.number) {
        status = m_lastStatus;
        if (!networkRepeats())
            Q_EMIT violated(QStringLiteral("%1 end packet sent again").arg(tagText(message.content)));
    } else {
        Q_EMIT violated(QStringLiteral("%1 end packet without its start").arg(tagText(message.content)));
    }

    if (m_failures.has(Failure::NoEndAck))
        Q_EMIT noted(QStringLiteral("did not acknowledge the end"));
    else
        Q_EMIT reply(Tag::TransferEnd, 0, status);
}

quint16 TransferReceiver::conclude(const Message &message)
{
    Transfer &transfer = *m_current;
    const bool checked = hasChecksum(transfer.content);
    if (!checked && message.number != 0)
        Q_EMIT violated(QStringLiteral("%1 end packet with a checksum").arg(transfer.file.content));

    ReceivedFile::Outcome outcome = ReceivedFile::Outcome::Whole;
    quint16 status = EndStatus::Success;
    if (transfer.refusal != 0) {
        outcome = ReceivedFile::Outcome::Refused;
        status = transfer.refusal;
    } else if (!transfer.isWhole()) {
        outcome = ReceivedFile::Outcome::Incomplete;
        status = EndStatus::Incomplete;
    } else if (checked && !transfer.stream.matches(message.number)) {
        outcome = ReceivedFile::Outcome::ChecksumError;
        status = EndStatus::ChecksumError;
        // After a loss the sender may have counted packets that did not arrive here.
        if (transfer.file.gaps == 0)
            Q_EMIT violated(QStringLiteral("checksum 0x%1 does not match the data")
                                .arg(message.number, 8, 16, QLatin1Char('0')));
    } else if (m_failures.has(Failure::BadChecksum)) {
        outcome = ReceivedFile::Outcome::ChecksumError;
        status = EndStatus::ChecksumError;
    }
    transfer.sink->finish(outcome == ReceivedFile::Outcome::Whole, &transfer.file);
    if (!transfer.file.stored && outcome == ReceivedFile::Outcome::Whole) {
        outcome = ReceivedFile::Outcome::Incomplete;
        status = EndStatus::Incomplete;
    }
    transfer.sink.reset();
    transfer.file.status = status;
    close(outcome);
    return status;
}

void TransferReceiver::close(ReceivedFile::Outcome outcome)
{
    Transfer &transfer = *m_current;
    if (transfer.sink)
        transfer.sink->finish(false, &transfer.file);
    transfer.file.outcome = outcome;
    m_files.append(transfer.file);
    dropOldData();
    m_current.reset();
    m_expectStragglers = true;
    Q_EMIT fileEnded(m_files.constLast());
}

void TransferReceiver::dropOldData()
{
    qint64 bytes = 0;
    for (auto file = m_files.rbegin(); file != m_files.rend(); ++file) {
        bytes += file->data.size();
        if (bytes > m_keptBytes)
            file->data = QByteArray();
    }
}

} // namespace simulated

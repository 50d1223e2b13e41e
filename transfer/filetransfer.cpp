#include "transfer/filetransfer.h"

#include "control/qconnectqmlplugin.h"
#include "transfer/datapacket.h"
#include "transfer/inputfile.h"
#include "transfer/logging.h"
#include "transfer/qconnectfirmware.h"
#include "transfer/transferstate.h"
#include "transfer/transfertags.h"

#include <QDeadlineTimer>

namespace zelta {

namespace {

constexpr int noSlot = -1;
constexpr quint32 packetsPerPause = 10;
constexpr unsigned long retransmitPauseS = 4;

} // namespace

FileTransfer::FileTransfer(QConnectQmlPlugin &plugin, qconnectfirmware &engine, TransferState &state,
                           const FirmwareDesc &task, const FirmwareVersions &versions)
    : m_plugin(plugin)
    , m_engine(engine)
    , m_state(state)
    , m_task(task)
    , m_traits(*traitsOf(task.kind))
    , m_versions(versions)
    , m_file(task.path)
{}

bool FileTransfer::run()
{
    if (!openForReading(m_file)) {
        m_engine.pushLogLine(QStringLiteral("can't open file"));
        logUnreadable(m_file);
        m_state.noteUnopenedFile();
        return true;
    }
    m_engine.pushLogLine(QStringLiteral("file is open"));
    m_state.beginFile();
    m_size = m_file.size();
    if (!sendStart())
        return false;
    if (m_traits.started) {
        Q_EMIT m_engine.internalUpdateStarted();
        Q_EMIT(m_engine.*m_traits.started)(m_versions.device, m_versions.file);
    }
    Outcome outcome = sendData();
    m_file.close();

    // Decided here, once: a task that is queued later withdraws the abort, but not for this file.
    if ((outcome == Outcome::EndOfFile || outcome == Outcome::Refused) && !sendEnd())
        outcome = Outcome::Aborted;
    const bool aborted = outcome == Outcome::Aborted || outcome == Outcome::ReadFailed;
    const FileEnd end = m_state.fileEnd();
    if (aborted) {
        m_engine.pushLogLine(QStringLiteral("transfer was aborted no end packet"));
        QString reason = QStringLiteral("status 0x%1").arg(end.status, 0, 16);
        if (m_state.isStopped())
            reason = QStringLiteral("the object is deleted");
        else if (outcome == Outcome::ReadFailed)
            reason = QStringLiteral("read failed");
        qCInfo(lcTransfer) << m_task.path << "aborted:" << qPrintable(reason);
    }
    if (m_traits.reportEnd && (!aborted || m_traits.reportsAbort))
        m_traits.reportEnd(m_engine, end, m_task.slot, m_versions.file);
    return true;
}

bool FileTransfer::sendStart()
{
    DATA_PACKET packet(startPacketKind, m_traits.content);
    packet.setStart(quint32(m_size));
    if (m_task.slot == noSlot) {
        m_engine.pushLogLine(QStringLiteral("send start packet"));
    } else {
        packet.setSlot(quint32(m_task.slot));
        m_engine.pushLogLine(QStringLiteral("send start packet for slot based transfer"));
        if (!m_traits.appendName) {
            m_engine.pushLogLine(QStringLiteral("undefined Type use slot!!! ignore file"));
            return false;
        }
        m_traits.appendName(m_engine, packet, m_task);
    }
    m_plugin.writeBinaryData(packet);
    return true;
}

FileTransfer::Outcome FileTransfer::sendData()
{
    Outcome outcome = Outcome::EndOfFile;
    while (outcome == Outcome::EndOfFile && !atEnd()) {
        if (m_state.isAbortRequested())
            outcome = Outcome::Aborted;
        else if (m_state.isStopRequested())
            outcome = Outcome::Refused;
        else if (!sendNextData())
            outcome = Outcome::ReadFailed;
    }
    reportProgress();
    return outcome;
}

// QFile::atEnd() compares with a cached size and does not notice that a file has become shorter.
bool FileTransfer::atEnd()
{
    m_size = m_file.size();
    return m_file.pos() >= m_size;
}

// Sends one data packet, unless the engine has refused the data. Returns false when the file cannot be read;
// the packet is sent nevertheless, without a chunk if nothing was read.
bool FileTransfer::sendNextData()
{
    bool readable = true;
    if (const std::optional<quint32> packet = m_state.retransmitFrom())
        readable = rewind(*packet);
    if (m_state.isStopRequested()) {
        m_engine.pushLogLine(QStringLiteral("stop data transfer"));
        return readable;
    }
    const QByteArray chunk = m_file.read(m_traits.chunkBytes);
    if (chunk.isEmpty()) {
        m_engine.pushLogLine(QStringLiteral("read returns 0 bytes --> abort"));
        m_state.abort();
        readable = false;
    } else {
        // The position exceeds the size if the file has grown meanwhile, or has become shorter while its
        // content was buffered.
        m_size = qMax(m_size, m_file.pos());
    }
    sendChunk(chunk);
    if (m_traits.reportProgress && m_size > 0)
        m_newProgress.push_back(qreal(m_file.pos()) / qreal(m_size));
    if (m_currentPacket % packetsPerPause == 0)
        pause();
    return readable;
}

// Continues with this packet, after the pause before a resend.
bool FileTransfer::rewind(quint32 packet)
{
    const bool sought = m_file.seek(qint64(m_traits.chunkBytes) * packet);
    if (!sought) {
        m_engine.pushLogLine(QStringLiteral("seek failed --> abort"));
        m_state.abort();
    }
    m_currentPacket = packet;
    m_engine.pushLogLine(QStringLiteral("retransmit at %1").arg(m_currentPacket));
    reportProgress();
    QThread::sleep(retransmitPauseS);
    // Requests that arrived during the pause refer to the stream before it.
    m_state.clearRetransmit();
    return sought;
}

void FileTransfer::sendChunk(const QByteArray &chunk)
{
    m_engine.pushLogLine(QStringLiteral("current packet %1").arg(m_currentPacket));
    QByteArray padded = chunk;
    if (padded.size() % 2 != 0)
        padded.append('\0');
    // A chunk that is sent again counts again, as the protocol defines.
    if (m_traits.checksum)
        m_checksum += chunkChecksum(padded);
    m_state.whileLocked([&] {
        DATA_PACKET packet(dataPacketKind, m_traits.content);
        packet.setData(m_currentPacket, padded);
        m_plugin.writeBinaryData(packet);
        ++m_currentPacket;
    });
}

// Emits the progress signals within the pause.
void FileTransfer::pause()
{
    const QDeadlineTimer end(m_traits.pauseMs, Qt::PreciseTimer);
    reportProgress();
    const qint64 left = end.remainingTimeNSecs();
    if (left > 0)
        QThread::usleep(static_cast<unsigned long>(left / 1000 + 1));
}

// Reports every packet since the previous call. A signal wakes the GUI thread, which takes longer than
// sending a packet, so signals are emitted in pauses only.
void FileTransfer::reportProgress()
{
    for (const qreal fraction : m_newProgress)
        m_traits.reportProgress(m_engine, m_task.slot, fraction);
    m_newProgress.clear();
}

// Returns false after an abort; the end packet is not sent then.
bool FileTransfer::sendEnd()
{
    m_engine.pushLogLine(QStringLiteral("send end packet"));
    const std::optional<bool> answered = m_state.finish(
        [this] {
            DATA_PACKET packet(endPacketKind, m_traits.content);
            packet.setEnd(m_checksum);
            m_plugin.writeBinaryData(packet);
            m_engine.pushLogLine(QStringLiteral("wait for answer: %1").arg(m_traits.endWaitMs));
        },
        m_traits.endWaitMs);
    if (!answered)
        return false;
    if (!*answered)
        m_engine.pushLogLine(QStringLiteral("timeout"));
    if (m_traits.afterEndS > 0) {
        m_engine.pushLogLine(QStringLiteral("wait after update"));
        QThread::sleep(m_traits.afterEndS);
    }
    return true;
}

} // namespace zelta

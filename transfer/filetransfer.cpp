#include "transfer/qconnectfirmware.h"

#include "control/qconnectqmlplugin.h"
#include "transfer/datapacket.h"
#include "transfer/inputfile.h"
#include "transfer/pause.h"

#include <QFile>
#include <QMutexLocker>

namespace {

constexpr int noSlot = -1;
constexpr int statusNotOpened = -1;

constexpr quint32 packetsPerPause = 10;
// The engine takes its time to get ready for a stream that begins anew.
constexpr unsigned long retransmitPauseS = 4;

// A set of bluetooth files is numbered 0 to 15 and followed by one more; progress counts whole files.
constexpr int lastBtFileIndex = 15;
constexpr qreal btFileCount = 17.0;

} // namespace

// Returns false when the file is passed over without a word.
bool qconnectfirmware::sendFile(const FirmwareDesc &task, const zelta::TaskTraits &traits,
                                const Versions &versions)
{
    QFile file(task.path);
    if (!zelta::openForReading(file)) {
        pushLogLine(QStringLiteral("can't open file"));
        m_transferStatus = statusNotOpened;
        return true;
    }
    pushLogLine(QStringLiteral("file is open"));
    resetFileState();

    const qint64 announcedSize = file.size();
    if (!sendStart(task, traits.content, announcedSize))
        return false;
    reportStart(task.kind, versions);
    const quint32 checksum = sendData(file, announcedSize, task, traits);
    file.close();

    if (m_abortRequested) {
        pushLogLine(QStringLiteral("transfer was aborted no end packet"));
        if (task.kind == zelta::ImportSoundBankTask || task.kind == zelta::ImportWaveSampleTask)
            reportImportEnd(task.slot);
    } else {
        sendEnd(traits, checksum);
        reportEnd(task, versions);
    }
    return true;
}

void qconnectfirmware::resetFileState()
{
    m_currentPacket = 0;
    m_logLines.clear();
    const QMutexLocker locker(&m_retransmitMutex);
    m_retransmitCount = 0;
    m_retransmitRequested = false;
    m_stopRequested = false;
}

// Returns false, sending nothing, for content that has no form with a slot.
bool qconnectfirmware::sendStart(const FirmwareDesc &task, quint16 content, qint64 size)
{
    DATA_PACKET packet(zelta::startPacketKind, content);
    packet.setStart(quint32(size));
    if (task.slot == noSlot) {
        pushLogLine(QStringLiteral("send start packet"));
        m_plugin->writeBinaryData(packet);
        return true;
    }

    packet.setSlot(quint32(task.slot));
    pushLogLine(QStringLiteral("send start packet for slot based transfer"));
    switch (content) {
    case zelta::importSoundBankContent:
        pushLogLine(QStringLiteral("/ToDo set ID "));
        packet.setFileName(task.name);
        break;
    case zelta::importWaveSampleContent: {
        const QString fileName = task.path.mid(task.path.lastIndexOf(QLatin1Char('/')) + 1);
        pushLogLine(QStringLiteral("set fileName %1").arg(fileName));
        packet.setFileName(fileName);
        break;
    }
    case zelta::btFirmwareContent: break;
    default: pushLogLine(QStringLiteral("undefined Type use slot!!! ignore file")); return false;
    }
    m_plugin->writeBinaryData(packet);
    return true;
}

void qconnectfirmware::reportStart(int kind, const Versions &versions)
{
    if (kind == zelta::ZeltaFirmwareTask) {
        Q_EMIT internalUpdateStarted();
        Q_EMIT zeltaFirmwareUpdateStarted(versions.device, versions.file);
    } else if (kind == zelta::TriggerFirmwareTask) {
        Q_EMIT internalUpdateStarted();
        Q_EMIT triggerFirmwareUpdateStarted(versions.device, versions.file);
    }
}

// Streams the file until its end, a refusal or an abort. A pass that meets an abort is still completed: the
// engine sees the packet, empty if need be. Returns the checksum of all that was sent.
quint32 qconnectfirmware::sendData(QFile &file, qint64 announcedSize, const FirmwareDesc &task,
                                   const zelta::TaskTraits &traits)
{
    // A file that has become shorter is not at its end before the announced one: reading there yields nothing
    // and aborts, so that the engine does not take a part for the whole.
    const auto atEnd = [&file, announcedSize] {
        return file.pos() >= announcedSize && file.atEnd();
    };

    quint32 checksum = 0;
    qint64 size = announcedSize;
    while (!atEnd() && !m_abortRequested && !m_stopRequested) {
        DATA_PACKET packet(zelta::dataPacketKind, traits.content);
        if (!prepareData(file, task, traits.chunkBytes))
            continue;

        QByteArray chunk = file.read(traits.chunkBytes);
        if (chunk.isEmpty()) {
            pushLogLine(QStringLiteral("read returns 0 bytes --> abort"));
            m_abortRequested = true;
        }
        pushLogLine(QStringLiteral("current packet %1").arg(m_currentPacket));
        if (chunk.size() % 2 != 0)
            chunk.append('\0');
        // Chunks that are sent again count again; the engine sums up what it receives.
        if (traits.checksum)
            checksum += zelta::chunkChecksum(chunk);

        m_taskMutex.lock();
        packet.setData(m_currentPacket, chunk);
        m_plugin->writeBinaryData(packet);
        ++m_currentPacket;
        m_taskMutex.unlock();

        // The file may grow. Asking the file system for every packet would make the stream slower than its
        // pauses, so it is asked where the known size is exceeded.
        if (file.pos() > size)
            size = qMax(size, file.size());
        if (size > 0)
            m_untoldProgress.push_back(qreal(file.pos()) / qreal(size));
        if (m_currentPacket % packetsPerPause == 0) {
            const zelta::Pause pause(std::chrono::milliseconds(traits.pauseMs));
            reportProgress(task);
            pause.finish();
        }
    }
    reportProgress(task);
    return checksum;
}

// Goes back to where the engine wants the data from, if it asked. Returns false when it wants no more.
bool qconnectfirmware::prepareData(QFile &file, const FirmwareDesc &task, int chunkBytes)
{
    QMutexLocker locker(&m_retransmitMutex);
    if (m_retransmitRequested) {
        if (!file.seek(qint64(chunkBytes) * m_retransmitFrom)) {
            pushLogLine(QStringLiteral("seek failed --> abort"));
            m_abortRequested = true;
        }
        m_currentPacket = m_retransmitFrom;
        pushLogLine(QStringLiteral("retransmit at %1").arg(m_currentPacket));
        locker.unlock();
        reportProgress(task);
        sleep(retransmitPauseS);
        locker.relock();
        // Requests that came during the pause were about the stream before it.
        m_retransmitRequested = false;
    }
    if (m_stopRequested) {
        pushLogLine(QStringLiteral("stop data transfer"));
        return false;
    }
    return true;
}

// Tells of every packet since the last time. To wake the thread that hears of it takes longer than to send a
// packet, so it is done where the stream stands still.
void qconnectfirmware::reportProgress(const FirmwareDesc &task)
{
    for (const qreal fraction : m_untoldProgress) {
        switch (task.kind) {
        case zelta::SoundBankTask: Q_EMIT soundTransferProgress(fraction); break;
        case zelta::TriggerBankTask: Q_EMIT triggerTransferProgress(fraction); break;
        case zelta::ImportSoundBankTask:
        case zelta::ImportWaveSampleTask: Q_EMIT importSlotProgress(task.slot, fraction); break;
        case zelta::BtFirmwareTask:
            Q_EMIT btfwTransferProgress(task.slot <= lastBtFileIndex ? (task.slot + 1) / btFileCount : 0.0);
            break;
        default: break;
        }
    }
    m_untoldProgress.clear();
}

void qconnectfirmware::sendEnd(const zelta::TaskTraits &traits, quint32 checksum)
{
    DATA_PACKET packet(zelta::endPacketKind, traits.content);
    packet.setEnd(checksum);
    pushLogLine(QStringLiteral("send end packet"));
    {
        const QMutexLocker locker(&m_taskMutex);
        m_endFailed = false;
        m_endStatus = 0;
        m_plugin->writeBinaryData(packet);
        pushLogLine(QStringLiteral("wait for answer: %1").arg(traits.endWaitMs));
        if (!waitForAnswer(traits.endWaitMs)) {
            pushLogLine(QStringLiteral("timeout"));
            m_endFailed = true;
        }
    }
    if (traits.afterEndS > 0) {
        pushLogLine(QStringLiteral("wait after update"));
        sleep(traits.afterEndS);
    }
}

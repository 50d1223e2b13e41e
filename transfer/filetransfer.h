#pragma once

#include "transfer/firmwaredesc.h"
#include "transfer/taskkinds.h"

#include <QFile>

#include <vector>

class QConnectQmlPlugin;
class qconnectfirmware;

namespace zelta {

class TransferState;

/// The versions that a firmware update compares.
struct FirmwareVersions
{
    int device = 0;
    int file = 0;
};

/// Sends one file as a start packet, numbered data packets and an end packet. Reports progress and end
/// through signals of the transfer engine. Used by the transfer thread. One object sends one file once.
class FileTransfer
{
public:
    FileTransfer(QConnectQmlPlugin &plugin, qconnectfirmware &engine, TransferState &state,
                 const FirmwareDesc &task, const FirmwareVersions &versions);

    /// Returns after the end acknowledgement, its time-out or an abort, or at once if the file cannot be
    /// opened. Returns false if the task has a slot but its content has no start packet with a slot: the file
    /// is not sent and no signal is emitted.
    bool run();

private:
    /// What ended the data packets.
    enum class Outcome { EndOfFile, Refused, Aborted, ReadFailed };

    bool sendStart();
    Outcome sendData();
    bool atEnd();
    bool sendNextData();
    bool rewind(quint32 packet);
    void sendChunk(const QByteArray &chunk);
    void pause();
    void reportProgress();
    bool sendEnd();

    QConnectQmlPlugin &m_plugin;
    qconnectfirmware &m_engine;
    TransferState &m_state;
    const FirmwareDesc &m_task;
    const TaskTraits &m_traits;
    const FirmwareVersions m_versions;

    QFile m_file;
    qint64 m_size = 0;                ///< size of the file in bytes; it may change
    quint32 m_currentPacket = 0;      ///< number of the next data packet
    quint32 m_checksum = 0;           ///< sum of all chunks that were sent
    std::vector<qreal> m_newProgress; ///< progress that no signal has reported yet
};

} // namespace zelta

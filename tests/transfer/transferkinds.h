#pragma once

#include <QByteArray>
#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QVector>

class QConnectQmlPlugin;
class TransferPeer;

/// What a test has to know about a kind of file: how QML sends it, what the wire carries, what QML sees.
struct TransferKind
{
    const char *name;
    void (*send)(QConnectQmlPlugin &plugin, const QString &path);
    const char *content; ///< content word
    int chunkBytes;
    int pauseMs;            ///< after every ten packets
    bool checksum;          ///< false: the end packet carries 0
    QByteArray header;      ///< what the file must begin with
    QByteArray startFields; ///< hex of what follows the size in the start packet
    QString fileName;
    QStringList before;  ///< signals before the data
    QString progress;    ///< signal per data packet, empty for none
    QString complete;    ///< signal at the end; %1 stands for the status, %2 for the number of resends
    bool passesStatusOn; ///< the status is the engine's own word, also when the end failed

    /// A file of that size that is good to be sent.
    QByteArray file(int size, quint32 seed = 1) const;
    /// Number of packets whose pauses take that long.
    int packetsFor(int durationMs) const { return durationMs / pauseMs * 10; }
    /// The signals at the end when the engine acknowledged it with that word.
    QStringList completed(quint16 status, int resends = 0) const;
    /// The progress signals of that many packets.
    QStringList progressed(int packets) const;
};

/// All kinds but the firmware of the sound engine, which holds its sender up for another 20 s. Firmware needs
/// an engine that reports version 0x00010004; answerOldVersions() makes it so.
QVector<TransferKind> quickKinds();

TransferKind zeltaFirmwareKind();

/// Makes the engine report versions that are one older than those of the firmware files.
void answerOldVersions(TransferPeer &peer);

Q_DECLARE_METATYPE(TransferKind)

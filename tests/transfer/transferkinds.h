#pragma once

#include <QByteArray>
#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QVector>

class QConnectQmlPlugin;
class TransferPeer;

/// A kind of file: how QML sends it, what is on the wire, which signals QML gets.
struct TransferKind
{
    const char *name;
    void (*send)(QConnectQmlPlugin &plugin, const QString &path);
    const char *content; ///< content tag
    int chunkBytes;
    int pauseMs;            ///< after every ten packets
    bool checksum;          ///< false: the end packet carries 0
    QByteArray header;      ///< first bytes of a valid file
    QByteArray startFields; ///< start packet after the size, in hex
    QString fileName;
    QStringList before;  ///< signals before the data
    QString progress;    ///< signal per data packet, empty for none
    QString complete;    ///< signal at the end; %1 stands for the status, %2 for the number of resends
    bool passesStatusOn; ///< reports the engine's status unchanged, also when the end failed

    /// A valid file of that size.
    QByteArray file(int size, quint32 seed = 1) const;
    /// Number of packets that take that long to send.
    int packetsFor(int durationMs) const { return durationMs / pauseMs * 10; }
    /// The signals at the end when the engine acknowledges it with that status.
    QStringList completed(quint16 status, int resends = 0) const;
    /// The progress signals of that many packets.
    QStringList progressed(int packets) const;
};

/// All kinds except firmware of the sound engine, which pauses for 20 s after its end. Firmware needs an
/// engine that reports version 0x00010004, see answerOldVersions().
QVector<TransferKind> quickKinds();

TransferKind zeltaFirmwareKind();

/// Makes the engine report version 0x00010004, one less than the version of the firmware files.
void answerOldVersions(TransferPeer &peer);

Q_DECLARE_METATYPE(TransferKind)

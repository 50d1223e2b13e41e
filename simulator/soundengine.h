#pragma once

#include "failures.h"
#include "message.h"
#include "meters.h"
#include "receivedfile.h"
#include "wire.h"

#include <QHash>
#include <QHostAddress>
#include <QObject>
#include <QStringList>
#include <QVector>

#include <memory>

namespace simulated {
class Line;
class Performer;
class QueryResponder;
class TransferReceiver;
} // namespace simulated

/// A drum module's sound engine for tests and for screens without a module: the far end of the wire.
///
/// Lives in one thread and is driven by its event loop; all methods are to be called from that thread (move
/// it with moveToThread() before listen(), if it shall not be the caller's). Keeps what the module sends,
/// answers what is asked, and says nothing else unless told to: groove, meters and live reports are off.
/// Methods that send return false when no module is known yet, when a failure mode has made the engine
/// vanish, or when the socket refuses.
class SoundEngine : public QObject
{
    Q_OBJECT

public:
    using CompressorLevels = simulated::CompressorLevels;
    using OutputLevels = simulated::OutputLevels;
    using ReceivedFile = simulated::ReceivedFile;

    static constexpr quint16 defaultPort = 19797;

    enum class Version { SoundEngine, TriggerBoard, SoundBank, TriggerBank };
    enum class Section : quint16 { Master = 0, Monitor = 1, Headphone = 2, Pad = 3 };

    struct Parameter
    {
        quint8 msb;
        quint8 lsb;
        quint8 value;
        int low; ///< second data byte, -1 when there was none
    };

    struct Counters
    {
        quint64 datagrams = 0;  ///< heard
        quint64 lost = 0;       ///< missed because of a failure mode
        quint64 heldBack = 0;   ///< arrived but kept back by a failure mode so far
        quint64 parameters = 0; ///< parameter messages
        quint64 otherMessages = 0;
        quint64 violations = 0;
        quint64 padHits = 0; ///< sent from here on
        quint64 chokes = 0;
        quint64 outputMeters = 0;
        quint64 compressorMeters = 0;
        quint64 beats = 0;
        quint64 sent = 0; ///< datagrams of every kind
    };

    explicit SoundEngine(QObject *parent = nullptr);
    ~SoundEngine() override;

    /// Port 0 takes a free one. False when the address cannot be had; errorString() says why.
    bool listen(const QHostAddress &address, quint16 port = defaultPort);
    void close();
    QHostAddress address() const;
    quint16 port() const;
    QString errorString() const;

    /// Learned from whatever arrives; can be set for a module that only listens.
    void setModule(const QHostAddress &address, quint16 port);
    bool knowsModule() const;
    QHostAddress moduleAddress() const;
    quint16 modulePort() const;

    // What was received.

    /// Last value of a parameter (its last data byte), -1 if it never came.
    int parameter(quint8 msb, quint8 lsb) const;
    /// The second data byte that came with it, -1 if none did.
    int parameterLow(quint8 msb, quint8 lsb) const;
    /// All parameters that came, by number.
    QVector<Parameter> parameters() const;
    /// Value of a controller that is no part of a parameter (7: drum kit volume), -1 if it never came.
    int controller(quint8 number) const;
    /// -1: none yet.
    int program() const { return m_program; }
    QByteArray bluetoothName() const { return m_bluetoothName; }
    /// Points of a trigger curve, empty if it never came.
    QByteArray triggerCurve(quint16 id) const;
    /// -1: never switched.
    int led(quint16 id) const;
    bool isPoweredOff() const { return m_poweredOff; }
    /// Every transfer that has ended, whole or not, in order. Without a store directory the latest have their
    /// data, see setKeptBytes().
    const QVector<ReceivedFile> &receivedFiles() const;

    /// What the module did wrong, one line each; at most the first thousand. counters() has them all.
    QStringList violations() const { return m_violations; }
    void clearViolations();
    Counters counters() const;
    /// Stable lines "summary NAME VALUE".
    QStringList summary() const;

    // Sending, once each.

    /// Why a method that sends has last returned false, in one line.
    QString sendProblem() const;

    /// note 0 to 127, velocity and pressure 0 to 127
    bool strike(quint8 note, quint8 velocity);
    bool choke(quint8 note, quint8 pressure = 127);
    bool sendController(quint8 number, quint8 value);
    bool moveHiHat(quint8 position);
    bool sendProgram(quint8 program);
    bool sendTempo(quint16 beatsPerMinute);
    bool sendBeat(quint16 beat);
    /// name: two letters of a switch, for example tag("PW")
    bool setSwitch(quint16 name, quint16 value);
    bool turnPot(quint16 pot, bool up);
    bool sendFlashSize(quint16 high, quint16 low);
    bool sendOutputMeters(const OutputLevels &levels);
    bool sendCompressorMeters(quint16 section, const CompressorLevels &levels);
    /// The three messages of a test command, on the wire as parameter events.
    bool sendTestCommand(quint8 high, quint8 low, quint8 value);
    /// message includes F0 and F7
    bool sendSysEx(const QByteArray &message);
    /// Any three-word event.
    bool sendEvent(quint16 kind, quint16 index, quint16 data);
    /// Any bytes.
    bool sendRaw(const QByteArray &datagram);

    // What it answers.

    void setVersion(Version which, quint16 major, quint16 minor);
    void setHiHatRaw(quint16 value);
    /// Answer to the memory request, as sendFlashSize() sends it.
    void setFlashSize(quint16 high, quint16 low);
    /// Fixed answers to meter requests, in place of the ones that follow the hits.
    void setOutputLevels(const OutputLevels &levels);
    void setCompressorLevels(Section section, const CompressorLevels &levels);
    /// Back to levels that follow the hits.
    void followHits();

    // What it does by itself.

    /// Groove and datagram failures choose by this seed.
    void setSeed(quint32 seed);
    void setGroove(bool playing);
    bool isGroovePlaying() const;
    /// Output meters at 30 Hz.
    void setMeters(bool running);
    /// Behaves as the module in a room: reports the tempo when it is set or tapped, sends beats while the
    /// metronome is on.
    void setLive(bool live) { m_live = live; }
    int tempo() const;

    /// Failure modes by the names of simulated::failureModes(), with or without "=N". Several may be on.
    bool setFailure(const QString &text, QString *problem = nullptr);
    void clearFailures();

    /// Received files are written here while they arrive. Empty: they are kept in memory.
    void setStoreDirectory(const QString &directory);
    /// So many bytes of received files are kept in memory, of the latest ones: 256 MiB unless told otherwise.
    /// Older files keep all but their data, and so does a file larger than this or than 64 MiB.
    void setKeptBytes(qint64 bytes);

Q_SIGNALS:
    void moduleChanged(const QHostAddress &address, quint16 port);
    void datagramReceived(const QByteArray &datagram);
    /// For every parameter message, also one that repeats a value. low is -1 in the three-event form.
    void parameterReceived(int msb, int lsb, int value, int low);
    /// Every message in words.
    void messageReceived(const QString &line);
    /// What the engine does because of a transfer or a failure mode, in words.
    void noted(const QString &line);
    void violated(const QString &line);
    void transferStarted(const QString &content, quint32 size);
    void transferEnded(const simulated::ReceivedFile &file);

private:
    void take(const QByteArray &datagram);
    void takeParameter(const simulated::Message &message);
    void answerRequest(quint8 msb, quint8 lsb, quint8 value);
    void followParameter(quint8 msb, quint8 lsb, quint8 value, int low);
    void addViolation(const QString &line);
    void applyFailures();
    bool sendMidi(quint8 codeIndex, quint8 status, quint8 data1, quint8 data2);
    bool answerCompressor(Section section, int note);
    bool slotIsFilled(quint16 content, int slot) const;
    OutputLevels currentOutputs() const;

    simulated::Line *m_line;
    simulated::Performer *m_performer;
    simulated::QueryResponder *m_queries;
    simulated::TransferReceiver *m_transfers;
    simulated::Meters m_meters;
    simulated::FailureSet m_failures;

    struct Value
    {
        quint8 value;
        int low;
    };
    QHash<int, Value> m_parameters;
    QHash<quint8, quint8> m_controllers;
    QHash<quint16, QByteArray> m_curves;
    QHash<quint16, bool> m_leds;
    QByteArray m_bluetoothName;
    int m_program = -1;
    bool m_poweredOff = false;

    bool m_live = false;
    bool m_fixedOutputs = false;
    OutputLevels m_outputs{};
    QHash<quint16, CompressorLevels> m_compressors;
    quint16 m_flashHigh = 512;
    quint16 m_flashLow = 256;

    QStringList m_violations;
    Counters m_counters;
};

#pragma once

#include "failures.h"
#include "message.h"
#include "meters.h"
#include "receivedfile.h"
#include "wire.h"

#include <QHash>
#include <QHostAddress>
#include <QMap>
#include <QObject>
#include <QStringList>
#include <QVector>

#include <memory>

namespace simulated {
class Line;
class Performer;
class QueryResponder;
class Recorder;
class TransferReceiver;
} // namespace simulated

/// A simulated sound engine for tests and for screens without a drum module.
///
/// The object runs in the event loop of its thread, and all methods must be called from that thread. To use
/// another thread, call moveToThread() before listen(). The engine stores what the module sends and answers
/// its requests. It sends nothing else by default: groove, meters and live reports are off.
///
/// Methods that send return false when no module is known, a failure mode has made the engine vanish, or the
/// socket fails.
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
        int low; ///< second data byte, -1 in the three-event form
    };

    struct Counters
    {
        quint64 datagrams = 0;  ///< received
        quint64 lost = 0;       ///< dropped by a failure mode
        quint64 heldBack = 0;   ///< currently held back by a failure mode
        quint64 parameters = 0; ///< parameter messages
        quint64 otherMessages = 0;
        quint64 violations = 0;
        quint64 padHits = 0; ///< sent, like all below
        quint64 chokes = 0;
        quint64 outputMeters = 0;
        quint64 compressorMeters = 0;
        quint64 beats = 0;
        quint64 sent = 0; ///< datagrams of all kinds
    };

    explicit SoundEngine(QObject *parent = nullptr);
    ~SoundEngine() override;

    /// Port 0 selects a free port. Returns false when the address cannot be bound; errorString() has the
    /// reason.
    bool listen(const QHostAddress &address, quint16 port = defaultPort);
    void close();
    QHostAddress address() const;
    quint16 port() const;
    QString errorString() const;

    /// Sets the module's address for a module that does not send first. Each received datagram sets it, too.
    void setModule(const QHostAddress &address, quint16 port);
    bool knowsModule() const;
    QHostAddress moduleAddress() const;
    quint16 modulePort() const;

    // Received values.

    /// Last value of a parameter (its last data byte), -1 if it was never received.
    int parameter(quint8 msb, quint8 lsb) const;
    /// The second data byte of that value, -1 in the three-event form.
    int parameterLow(quint8 msb, quint8 lsb) const;
    /// All received parameters, ordered by number.
    QVector<Parameter> parameters() const;
    /// Value of a controller outside of parameters (7: drum kit volume), -1 if it was never received.
    int controller(quint8 number) const;
    /// -1: none received.
    int program() const { return m_program; }
    QByteArray bluetoothName() const { return m_bluetoothName; }
    /// Points of a trigger curve, empty if it was never received.
    QByteArray triggerCurve(quint16 id) const;
    /// 1 on, 0 off, -1 never switched.
    int led(quint16 id) const;
    bool isPoweredOff() const { return m_poweredOff; }
    /// Every transfer that has ended, in order, with any outcome. Without a store directory the latest files
    /// have their data, see setKeptBytes().
    const QVector<ReceivedFile> &receivedFiles() const;

    /// Protocol violations of the module, one line each; at most the first thousand. counters() counts all.
    QStringList violations() const { return m_violations; }
    void clearViolations();
    Counters counters() const;
    /// Stable lines "summary NAME VALUE".
    QStringList summary() const;

    // Sending one message each.

    /// One line with the reason of the last failed send.
    QString sendProblem() const;

    /// note, velocity and pressure: 0 to 127
    bool strike(quint8 note, quint8 velocity);
    bool choke(quint8 note, quint8 pressure = 127);
    bool sendController(quint8 number, quint8 value);
    bool moveHiHat(quint8 position);
    bool sendProgram(quint8 program);
    bool sendTempo(quint16 beatsPerMinute);
    bool sendBeat(quint16 beat);
    /// name: tag of a switch, for example tag("PW")
    bool setSwitch(quint16 name, quint16 value);
    bool turnPot(quint16 pot, bool up);
    bool sendFlashSize(quint16 high, quint16 low);
    bool sendOutputMeters(const OutputLevels &levels);
    bool sendCompressorMeters(quint16 section, const CompressorLevels &levels);
    /// A test command: three controller events.
    bool sendTestCommand(quint8 high, quint8 low, quint8 value);
    /// message includes F0 and F7.
    bool sendSysEx(const QByteArray &message);
    /// Any event.
    bool sendEvent(quint16 kind, quint16 index, quint16 data);
    /// Any bytes.
    bool sendRaw(const QByteArray &datagram);

    // Answers to requests.

    struct Pair
    {
        quint16 first;
        quint16 second;
    };

    void setVersion(Version which, quint16 major, quint16 minor);
    /// Major and minor number.
    Pair version(Version which) const;
    void setHiHatRaw(quint16 value);
    quint16 hiHatRaw() const;
    /// Answer to the memory request, see sendFlashSize().
    void setFlashSize(quint16 high, quint16 low);
    /// High and low.
    Pair flashSize() const { return {m_flashHigh, m_flashLow}; }
    /// Fixed answers to meter requests, instead of levels that follow the hits.
    void setOutputLevels(const OutputLevels &levels);
    void setCompressorLevels(Section section, const CompressorLevels &levels);
    /// The levels that setOutputLevels() has set, or nullptr while they follow the hits.
    const OutputLevels *fixedOutputLevels() const { return m_fixedOutputs ? &m_outputs : nullptr; }
    /// The levels that setCompressorLevels() has set, by section.
    const QMap<quint16, CompressorLevels> &fixedCompressorLevels() const { return m_compressors; }
    /// Returns to levels that follow the hits.
    void followHits();
    /// False while setOutputLevels() or setCompressorLevels() applies.
    bool isFollowingHits() const { return !m_fixedOutputs && m_compressors.isEmpty(); }

    // Timed output, failures, files.

    /// Seed of the groove and of failures that select datagrams at random.
    void setSeed(quint32 seed);
    void setGroove(bool playing);
    bool isGroovePlaying() const;
    /// Output meters at 30 Hz.
    void setMeters(bool running);
    bool areMetersRunning() const;
    /// Reports the tempo when it is set or tapped, and sends beats while the metronome is on.
    void setLive(bool live) { m_live = live; }
    int tempo() const;
    /// Off: the engine answers neither requests nor files and reports nothing by itself. It sends only what
    /// the methods above send.
    void setAnswering(bool answering) { m_answering = answering; }
    bool isAnswering() const { return m_answering; }

    // Recording.

    /// Records all datagrams in both directions, also those that a failure mode drops, into a capture file
    /// (pcap with nanoseconds), which is complete after each datagram. Replaces an existing file. Returns
    /// false and sets problem to one line when the file cannot be written.
    bool startRecording(const QString &path, QString *problem = nullptr);
    void stopRecording();

    /// Adds a failure mode: a name of simulated::failureModes(), with or without "=N", or with "=N,N,..." for
    /// several packets. Modes can be combined, and one that is added twice applies twice. Returns false and
    /// sets problem when text is wrong.
    bool setFailure(const QString &text, QString *problem = nullptr);
    /// Removes every failure of the mode with that name; unknown names have no effect.
    void clearFailure(const QString &name);
    void clearFailures();
    const simulated::FailureSet &failures() const { return m_failures; }

    /// Directory that received files are written to while they arrive. Empty: files are kept in memory.
    void setStoreDirectory(const QString &directory);
    /// Bytes of the latest files to keep in memory, 256 MiB by default. The data of older files is dropped,
    /// and so is that of a file larger than this or than 64 MiB.
    void setKeptBytes(qint64 bytes);

Q_SIGNALS:
    void moduleChanged(const QHostAddress &address, quint16 port);
    void datagramReceived(const QByteArray &datagram);
    /// Emitted for every datagram that has left the socket.
    void datagramSent(const QByteArray &datagram);
    /// Emitted for every parameter message, also when the value is the same. low is -1 in the three-event
    /// form.
    void parameterReceived(int msb, int lsb, int value, int low);
    /// Emitted for every readable message, as text.
    void messageReceived(const QString &line);
    /// An action of a transfer or a failure mode, as text.
    void noted(const QString &line);
    void violated(const QString &line);
    void transferStarted(const QString &content, quint32 size);
    void transferEnded(const simulated::ReceivedFile &file);
    /// A datagram could not be written to the recording, which ends before it.
    void recordingFailed(const QString &line);

private:
    void take(const QByteArray &datagram);
    void takeParameter(const simulated::Message &message);
    void answerRequest(quint8 msb, quint8 lsb, quint8 value);
    void followParameter(quint8 msb, quint8 lsb, quint8 value, int low);
    bool isLive() const { return m_live && m_answering; }
    void addViolation(const QString &line);
    void applyFailures();
    bool sendMidi(quint8 codeIndex, quint8 status, quint8 data1, quint8 data2);
    bool answerCompressor(Section section, int note);
    bool slotIsFilled(quint16 content, int slot) const;
    OutputLevels currentOutputs() const;

    simulated::Line *m_line;
    simulated::Recorder *m_recorder;
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
    bool m_answering = true;
    bool m_fixedOutputs = false;
    OutputLevels m_outputs{};
    QMap<quint16, CompressorLevels> m_compressors;
    quint16 m_flashHigh = 512;
    quint16 m_flashLow = 256;

    QStringList m_violations;
    Counters m_counters;
};

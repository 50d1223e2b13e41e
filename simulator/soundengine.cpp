#include "soundengine.h"

#include "line.h"
#include "parametertable.h"
#include "performer.h"
#include "queryresponder.h"
#include "recorder.h"
#include "transferreceiver.h"

#include <QMetaMethod>

#include <algorithm>

using namespace simulated;

namespace {

constexpr int keptViolations = 1000;
constexpr int shownBytes = 32;

int parameterKey(quint8 msb, quint8 lsb)
{
    return (msb << 8) | lsb;
}

quint16 queryFor(SoundEngine::Version which)
{
    switch (which) {
    case SoundEngine::Version::SoundEngine: return Tag::EngineVersion;
    case SoundEngine::Version::TriggerBoard: return Tag::TriggerVersion;
    case SoundEngine::Version::SoundBank: return Tag::SoundBankVersion;
    case SoundEngine::Version::TriggerBank: break;
    }
    return Tag::TriggerBankVersion;
}

// Parameters that the engine itself uses.
constexpr quint8 generalPage = 0x37;
constexpr quint8 masterPage = 0x38;
constexpr quint8 headphonePage = 0x3A;
constexpr quint8 directOutPage = 0x3B;
constexpr quint8 slotPage = 0x3D;
constexpr quint8 padMetersPage = 0x2F;

constexpr quint8 outLevel = 0x07;
constexpr quint8 metersRequest = 0x1F;
constexpr quint8 metronomeActive = 0x63;
constexpr quint8 metronomeTempo = 0x64;
constexpr quint8 metronomeTap = 0x6A;
constexpr quint8 soundBankSlotInfo = 0x00;
constexpr quint8 waveSlotInfo = 0x01;
constexpr quint8 memoryInfo = 0x0F;

} // namespace

SoundEngine::SoundEngine(QObject *parent)
    : QObject(parent)
    , m_line(new Line(this))
    , m_recorder(new Recorder(m_line, this))
    , m_performer(new Performer(this))
    , m_queries(new QueryResponder(this))
    , m_transfers(new TransferReceiver(this))
{
    connect(m_line, &Line::received, this, &SoundEngine::take);
    connect(m_line, &Line::moduleChanged, this, &SoundEngine::moduleChanged);
    connect(m_recorder, &Recorder::failed, this, &SoundEngine::recordingFailed);

    connect(m_performer, &Performer::hit, this,
            [this](int note, int velocity) { strike(quint8(note), quint8(velocity)); });
    connect(m_performer, &Performer::choke, this,
            [this](int note, int pressure) { choke(quint8(note), quint8(pressure)); });
    connect(m_performer, &Performer::hiHatMoved, this, [this](int position) { moveHiHat(quint8(position)); });
    connect(m_performer, &Performer::beat, this, [this](int number) { sendBeat(quint16(number)); });
    connect(m_performer, &Performer::metersDue, this, [this] {
        sendOutputMeters(currentOutputs());
        m_meters.decay();
    });

    connect(m_queries, &QueryResponder::reply, this, &SoundEngine::sendEvent);
    connect(m_queries, &QueryResponder::noted, this, &SoundEngine::noted);
    connect(m_transfers, &TransferReceiver::reply, this, &SoundEngine::sendEvent);
    connect(m_transfers, &TransferReceiver::noted, this, &SoundEngine::noted);
    connect(m_transfers, &TransferReceiver::violated, this, &SoundEngine::addViolation);
    connect(m_transfers, &TransferReceiver::fileStarted, this, &SoundEngine::transferStarted);
    connect(m_transfers, &TransferReceiver::fileEnded, this, &SoundEngine::transferEnded);
}

SoundEngine::~SoundEngine() = default;

bool SoundEngine::listen(const QHostAddress &address, quint16 port)
{
    return m_line->listen(address, port);
}

void SoundEngine::close()
{
    m_line->close();
}

QHostAddress SoundEngine::address() const
{
    return m_line->address();
}

quint16 SoundEngine::port() const
{
    return m_line->port();
}

QString SoundEngine::errorString() const
{
    return m_line->errorString();
}

void SoundEngine::setModule(const QHostAddress &address, quint16 port)
{
    m_line->setModule(address, port);
}

bool SoundEngine::knowsModule() const
{
    return m_line->knowsModule();
}

QHostAddress SoundEngine::moduleAddress() const
{
    return m_line->moduleAddress();
}

quint16 SoundEngine::modulePort() const
{
    return m_line->modulePort();
}

int SoundEngine::parameter(quint8 msb, quint8 lsb) const
{
    const auto found = m_parameters.constFind(parameterKey(msb, lsb));
    return found != m_parameters.constEnd() ? found->value : -1;
}

int SoundEngine::parameterLow(quint8 msb, quint8 lsb) const
{
    const auto found = m_parameters.constFind(parameterKey(msb, lsb));
    return found != m_parameters.constEnd() ? found->low : -1;
}

QVector<SoundEngine::Parameter> SoundEngine::parameters() const
{
    QVector<Parameter> all;
    all.reserve(m_parameters.size());
    for (auto it = m_parameters.constBegin(); it != m_parameters.constEnd(); ++it)
        all.append({quint8(it.key() >> 8), quint8(it.key() & 0xFF), it->value, it->low});
    std::sort(all.begin(), all.end(), [](const Parameter &a, const Parameter &b) {
        return parameterKey(a.msb, a.lsb) < parameterKey(b.msb, b.lsb);
    });
    return all;
}

int SoundEngine::controller(quint8 number) const
{
    return m_controllers.contains(number) ? m_controllers.value(number) : -1;
}

QByteArray SoundEngine::triggerCurve(quint16 id) const
{
    return m_curves.value(id);
}

int SoundEngine::led(quint16 id) const
{
    return m_leds.contains(id) ? int(m_leds.value(id)) : -1;
}

const QVector<ReceivedFile> &SoundEngine::receivedFiles() const
{
    return m_transfers->files();
}

void SoundEngine::clearViolations()
{
    m_violations.clear();
    m_counters.violations = 0;
}

SoundEngine::Counters SoundEngine::counters() const
{
    Counters counters = m_counters;
    counters.lost = m_line->filter().lost();
    counters.heldBack = quint64(m_line->filter().heldBack());
    return counters;
}

QStringList SoundEngine::summary() const
{
    const Counters c = counters();
    const auto line = [](const char *name, quint64 value) {
        return QStringLiteral("summary %1 %2").arg(QLatin1String(name)).arg(value);
    };
    return {line("received-datagrams", c.datagrams),
            line("received-parameters", c.parameters),
            line("received-other-messages", c.otherMessages),
            line("received-files", quint64(receivedFiles().size())),
            line("lost-datagrams", c.lost),
            line("sent-datagrams", c.sent),
            line("sent-pad-hits", c.padHits),
            line("sent-chokes", c.chokes),
            line("sent-output-meters", c.outputMeters),
            line("sent-compressor-meters", c.compressorMeters),
            line("sent-beats", c.beats),
            line("violations", c.violations)};
}

// --- sending

QString SoundEngine::sendProblem() const
{
    return m_line->sendProblem();
}

bool SoundEngine::sendRaw(const QByteArray &datagram)
{
    if (!m_line->send(datagram))
        return false;
    ++m_counters.sent;
    Q_EMIT datagramSent(datagram);
    return true;
}

bool SoundEngine::sendEvent(quint16 kind, quint16 index, quint16 data)
{
    return sendRaw(eventDatagram(kind, index, data));
}

bool SoundEngine::sendMidi(quint8 codeIndex, quint8 status, quint8 data1, quint8 data2)
{
    return sendRaw(midiEvent(codeIndex, status, data1, data2));
}

bool SoundEngine::strike(quint8 note, quint8 velocity)
{
    m_meters.hit(note, velocity);
    const bool sent = sendMidi(0x09, Midi::NoteOn, note, velocity);
    m_counters.padHits += sent ? 1 : 0;
    return sent;
}

bool SoundEngine::choke(quint8 note, quint8 pressure)
{
    m_meters.choke(note);
    const bool sent = sendMidi(0x0A, Midi::PolyPressure, note, pressure);
    m_counters.chokes += sent ? 1 : 0;
    return sent;
}

bool SoundEngine::sendController(quint8 number, quint8 value)
{
    return sendMidi(0x0B, Midi::ControlChange, number, value);
}

bool SoundEngine::moveHiHat(quint8 position)
{
    return sendController(Midi::HiHatPedal, position);
}

bool SoundEngine::sendProgram(quint8 program)
{
    return sendMidi(0x0C, Midi::ProgramChange, program, 0);
}

bool SoundEngine::sendTempo(quint16 beatsPerMinute)
{
    return sendEvent(Tag::Tempo, beatsPerMinute, 0);
}

bool SoundEngine::sendBeat(quint16 beat)
{
    const bool sent = sendEvent(Tag::Beat, beat, 0);
    m_counters.beats += sent ? 1 : 0;
    return sent;
}

bool SoundEngine::setSwitch(quint16 name, quint16 value)
{
    return sendEvent(Tag::Switch, name, value);
}

bool SoundEngine::turnPot(quint16 pot, bool up)
{
    return sendEvent(Tag::Pot, pot, up ? 1 : 0);
}

bool SoundEngine::sendFlashSize(quint16 high, quint16 low)
{
    return sendEvent(Tag::FlashSize, high, low);
}

bool SoundEngine::sendOutputMeters(const OutputLevels &levels)
{
    const bool sent = sendRaw(outputMeters(levels));
    m_counters.outputMeters += sent ? 1 : 0;
    return sent;
}

bool SoundEngine::sendCompressorMeters(quint16 section, const CompressorLevels &levels)
{
    const bool sent = sendRaw(compressorMeters(section, levels));
    m_counters.compressorMeters += sent ? 1 : 0;
    return sent;
}

bool SoundEngine::sendTestCommand(quint8 high, quint8 low, quint8 value)
{
    return sendController(Midi::ParameterHigh, high) && sendController(Midi::ParameterLow, low) &&
           sendController(Midi::Value, value);
}

bool SoundEngine::sendSysEx(const QByteArray &message)
{
    const QVector<QByteArray> events = sysExEvents(message);
    return std::all_of(events.begin(), events.end(), [this](const QByteArray &e) { return sendRaw(e); });
}

// --- answers

void SoundEngine::setVersion(Version which, quint16 major, quint16 minor)
{
    m_queries->setAnswer(queryFor(which), major, minor);
}

SoundEngine::Pair SoundEngine::version(Version which) const
{
    const QueryResponder::Answer answer = m_queries->answer(queryFor(which));
    return {answer.a, answer.b};
}

void SoundEngine::setHiHatRaw(quint16 value)
{
    m_queries->setAnswer(Tag::HiHatRaw, value, 0);
}

quint16 SoundEngine::hiHatRaw() const
{
    return m_queries->answer(Tag::HiHatRaw).a;
}

void SoundEngine::setFlashSize(quint16 high, quint16 low)
{
    m_flashHigh = high;
    m_flashLow = low;
}

void SoundEngine::setOutputLevels(const OutputLevels &levels)
{
    m_outputs = levels;
    m_fixedOutputs = true;
}

void SoundEngine::setCompressorLevels(Section section, const CompressorLevels &levels)
{
    m_compressors.insert(quint16(section), levels);
}

void SoundEngine::followHits()
{
    m_fixedOutputs = false;
    m_compressors.clear();
}

SoundEngine::OutputLevels SoundEngine::currentOutputs() const
{
    return m_fixedOutputs ? m_outputs : m_meters.outputs();
}

bool SoundEngine::answerCompressor(Section section, int note)
{
    const quint16 code = quint16(section);
    const auto fixed = m_compressors.constFind(code);
    if (fixed != m_compressors.constEnd())
        return sendCompressorMeters(code, *fixed);
    return sendCompressorMeters(code, m_meters.compressor(Meters::Section(code), note));
}

bool SoundEngine::slotIsFilled(quint16 content, int slot) const
{
    const auto &files = receivedFiles();
    return std::any_of(files.begin(), files.end(), [&](const ReceivedFile &file) {
        return file.outcome == ReceivedFile::Outcome::Whole && file.slot == slot &&
               file.content == tagText(content);
    });
}

// --- timed output and failures

void SoundEngine::setSeed(quint32 seed)
{
    m_performer->setSeed(seed);
    m_line->filter().setSeed(seed);
}

void SoundEngine::setGroove(bool playing)
{
    m_performer->setGroove(playing);
}

bool SoundEngine::isGroovePlaying() const
{
    return m_performer->isGroovePlaying();
}

void SoundEngine::setMeters(bool running)
{
    m_performer->setMeters(running);
}

bool SoundEngine::areMetersRunning() const
{
    return m_performer->areMetersRunning();
}

int SoundEngine::tempo() const
{
    return m_performer->tempo();
}

bool SoundEngine::startRecording(const QString &path, QString *problem)
{
    QString reason;
    return m_recorder->start(path, problem != nullptr ? problem : &reason);
}

void SoundEngine::stopRecording()
{
    m_recorder->stop();
}

bool SoundEngine::setFailure(const QString &text, QString *problem)
{
    if (!m_failures.add(text, problem))
        return false;
    applyFailures();
    return true;
}

void SoundEngine::clearFailure(const QString &name)
{
    m_failures.remove(name);
    applyFailures();
}

void SoundEngine::clearFailures()
{
    m_failures.clear();
    applyFailures();
}

void SoundEngine::applyFailures()
{
    m_line->filter().setFailures(m_failures);
    m_queries->setFailures(m_failures);
    m_transfers->setFailures(m_failures);
}

void SoundEngine::setStoreDirectory(const QString &directory)
{
    m_transfers->setStoreDirectory(directory);
}

void SoundEngine::setKeptBytes(qint64 bytes)
{
    m_transfers->setKeptBytes(bytes);
}

// --- receiving

void SoundEngine::take(const QByteArray &datagram)
{
    ++m_counters.datagrams;
    Q_EMIT datagramReceived(datagram);

    const Message message = decode(datagram);
    for (const QString &problem : message.violations) {
        addViolation(QStringLiteral("%1: %2%3")
                         .arg(problem, hexText(datagram.left(shownBytes)),
                              QLatin1String(datagram.size() > shownBytes ? " ..." : "")));
    }
    // The text is built only for connected receivers, because ten thousand lines a second are expensive.
    static const QMetaMethod asText = QMetaMethod::fromSignal(&SoundEngine::messageReceived);
    if (message.kind != Message::Kind::Unreadable && isSignalConnected(asText))
        Q_EMIT messageReceived(describe(message));

    if (message.kind == Message::Kind::Parameter)
        ++m_counters.parameters;
    else if (message.kind != Message::Kind::Unreadable)
        ++m_counters.otherMessages;

    switch (message.kind) {
    case Message::Kind::Parameter: takeParameter(message); break;
    case Message::Kind::ControlChange: m_controllers.insert(message.msb, message.value); break;
    case Message::Kind::NoteOn: m_meters.hit(message.msb, message.value); break;
    case Message::Kind::Program: m_program = message.msb; break;
    case Message::Kind::PowerOff: m_poweredOff = true; break;
    case Message::Kind::Led: m_leds.insert(quint16(message.number), message.value != 0); break;
    case Message::Kind::TriggerCurve: m_curves.insert(quint16(message.number), message.payload); break;
    case Message::Kind::BluetoothName: m_bluetoothName = message.payload; break;
    case Message::Kind::Query:
        if (m_answering)
            m_queries->take(message.content);
        break;
    case Message::Kind::TransferStart:
    case Message::Kind::TransferData:
    case Message::Kind::TransferEnd:
        if (m_answering)
            m_transfers->take(message);
        break;
    case Message::Kind::NoteOff:
    case Message::Kind::SysEx:
    case Message::Kind::Unreadable: break;
    }
}

void SoundEngine::takeParameter(const Message &message)
{
    m_parameters.insert(parameterKey(message.msb, message.lsb), {message.value, message.low});
    Q_EMIT parameterReceived(message.msb, message.lsb, message.value, message.low);
    followParameter(message.msb, message.lsb, message.value, message.low);
    if (m_answering)
        answerRequest(message.msb, message.lsb, message.value);
}

void SoundEngine::followParameter(quint8 msb, quint8 lsb, quint8 value, int low)
{
    if (msb >= masterPage && msb <= headphonePage && lsb == outLevel) {
        m_meters.setFader(Meters::Section(msb - masterPage), value);
    } else if (msb == generalPage && lsb == metronomeTempo && low >= 0) {
        const int before = m_performer->tempo();
        m_performer->setTempo(tempoFromBytes(value, quint8(low)));
        if (isLive() && m_performer->tempo() != before)
            sendTempo(quint16(m_performer->tempo()));
    } else if (msb == generalPage && lsb == metronomeTap && value != 0) {
        if (isLive() && m_performer->tap())
            sendTempo(quint16(m_performer->tempo()));
    } else if (msb == generalPage && lsb == metronomeActive) {
        m_performer->setMetronome(isLive() && value != 0);
    }
}

void SoundEngine::answerRequest(quint8 msb, quint8 lsb, quint8 value)
{
    if (msb >= masterPage && msb <= headphonePage && lsb == metersRequest)
        answerCompressor(Section(msb - masterPage), -1);
    else if (msb == directOutPage && lsb == metersRequest)
        sendOutputMeters(currentOutputs());
    else if (msb == padMetersPage)
        answerCompressor(Section::Pad, lsb);
    else if (msb == slotPage && lsb == soundBankSlotInfo)
        sendEvent(Tag::ImportedSoundBank, value, slotIsFilled(Tag::ImportedSoundBank, value) ? 1 : 0);
    else if (msb == slotPage && lsb == waveSlotInfo)
        sendEvent(Tag::ImportedWave, value, slotIsFilled(Tag::ImportedWave, value) ? 1 : 0);
    else if (msb == slotPage && lsb == memoryInfo)
        sendFlashSize(m_flashHigh, m_flashLow);
}

void SoundEngine::addViolation(const QString &line)
{
    ++m_counters.violations;
    if (m_violations.size() < keptViolations)
        m_violations.append(line);
    Q_EMIT violated(line);
}

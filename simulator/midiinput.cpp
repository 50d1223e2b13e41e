#include "midiinput.h"

#include "kit.h"
#include "soundengine.h"

#include <QFile>

#include <array>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace simulated {

namespace {

constexpr int retryMs = 1000;

// Timers and the network have their turn between two reads, however fast a device is.
constexpr int readSize = 4096;

} // namespace

MidiInput::MidiInput(const QString &path, SoundEngine *engine, QObject *parent)
    : QObject(parent)
    , m_path(path)
    , m_engine(engine)
    , m_retry(this)
{
    m_retry.setInterval(retryMs);
    connect(&m_retry, &QTimer::timeout, this, &MidiInput::retry);
}

MidiInput::~MidiInput()
{
    close();
}

void MidiInput::start()
{
    if (!isOpen() && open())
        read();
}

bool MidiInput::open()
{
    // Not blocking: a FIFO can be opened before anything writes to it, and a device in use is reported.
    m_descriptor =
        ::open(QFile::encodeName(m_path).constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    struct stat status = {};
    if (m_descriptor < 0 || ::fstat(m_descriptor, &status) != 0) {
        fail(QString::fromLocal8Bit(std::strerror(errno)));
        return false;
    }
    m_isFifo = S_ISFIFO(status.st_mode);
    if (!m_isFifo && !S_ISCHR(status.st_mode)) {
        fail(QStringLiteral("neither a device file nor a FIFO"));
        return false;
    }
    m_hasWriter = false;
    m_notifier = new QSocketNotifier(m_descriptor, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &MidiInput::onReadable);
    return true;
}

void MidiInput::close()
{
    dropNotifier();
    if (m_descriptor >= 0)
        ::close(m_descriptor);
    m_descriptor = -1;
    m_parser.reset();
}

void MidiInput::dropNotifier()
{
    if (m_notifier == nullptr)
        return;
    // Its signal may be the caller.
    m_notifier->setEnabled(false);
    m_notifier->deleteLater();
    m_notifier = nullptr;
}

void MidiInput::retry()
{
    if (isOpen())
        reopen();
    else
        start();
}

// The system reports the end of a FIFO until the next writer comes, but not for a descriptor that was opened
// after the end. The path may also name another FIFO by now. The old descriptor stays open meanwhile: without
// a reader, the bytes of a writer would be lost.
void MidiInput::reopen()
{
    const int old = m_descriptor;
    dropNotifier();
    m_parser.reset();
    const bool opened = open();
    ::close(old);
    if (opened)
        read();
}

void MidiInput::onReadable()
{
    if (read())
        return;
    if (m_hasWriter)
        reopen();
    else
        m_notifier->setEnabled(false); // a writer that wrote nothing; the timer opens the FIFO again
}

// Returns false at the end of a FIFO.
bool MidiInput::read()
{
    std::array<char, readSize> buffer;
    const ssize_t size = ::read(m_descriptor, buffer.data(), buffer.size());
    const int error = errno;
    if (size == 0 && m_isFifo) {
        enter(State::Waiting, QStringLiteral("waiting for a writer"));
        m_retry.start();
        return false;
    }
    if (size > 0 || (size < 0 && (error == EAGAIN || error == EINTR))) {
        m_hasWriter = true;
        m_retry.stop();
        enter(State::Open, QStringLiteral("open"));
        const auto messages = m_parser.take(QByteArray(buffer.data(), qMax(0, int(size))));
        for (const MidiMessage &message : messages)
            play(message);
    } else {
        fail(size == 0 ? QStringLiteral("at its end") : QString::fromLocal8Bit(std::strerror(error)));
    }
    return true;
}

void MidiInput::fail(const QString &reason)
{
    close();
    enter(State::Failed, reason);
    m_retry.start();
}

void MidiInput::enter(State state, const QString &text)
{
    if (state == m_state)
        return;
    m_state = state;
    Q_EMIT stateChanged(QStringLiteral("midi-in %1: %2").arg(m_path, text));
}

void MidiInput::play(const MidiMessage &message)
{
    const int note = m_map.map(message.data1);
    bool sent = false;
    QString command;
    switch (message.kind) {
    case MidiMessage::Kind::NoteOn:
        if (message.data2 > 0 && note >= 0) {
            sent = m_engine->strike(quint8(note), message.data2);
            command = QStringLiteral("strike %1 %2").arg(zoneText(note)).arg(message.data2);
        }
        break;
    case MidiMessage::Kind::PolyPressure:
        if (note >= 0) {
            sent = m_engine->choke(quint8(note), message.data2);
            command = QStringLiteral("choke %1 %2").arg(zoneText(note)).arg(message.data2);
        }
        break;
    case MidiMessage::Kind::Controller:
        if (message.data1 == Midi::HiHatPedal) {
            sent = m_engine->moveHiHat(message.data2);
            command = QStringLiteral("hihat %1").arg(message.data2);
        }
        break;
    case MidiMessage::Kind::Program:
        sent = m_engine->sendProgram(message.data1);
        command = QStringLiteral("program %1").arg(message.data1);
        break;
    case MidiMessage::Kind::NoteOff:
    case MidiMessage::Kind::ChannelPressure:
    case MidiMessage::Kind::PitchBend: break;
    }
    if (sent)
        Q_EMIT played(command);
}

} // namespace simulated

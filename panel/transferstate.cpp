#include "transferstate.h"

#include "simulator/soundengine.h"

namespace {

constexpr int changeEveryMs = 50;

// Offsets in a data packet.
constexpr int packetNumber = 4;
constexpr int packetWords = 8;
constexpr int packetHeader = 10;

QString outcomeText(const simulated::ReceivedFile &file)
{
    switch (file.outcome) {
    case simulated::ReceivedFile::Outcome::Whole: return QStringLiteral("arrived whole");
    case simulated::ReceivedFile::Outcome::ChecksumError: return QStringLiteral("checksum error");
    case simulated::ReceivedFile::Outcome::Incomplete: return QStringLiteral("incomplete");
    case simulated::ReceivedFile::Outcome::Refused:
        return QStringLiteral("refused with 0x%1").arg(file.status, 2, 16, QLatin1Char('0'));
    case simulated::ReceivedFile::Outcome::Abandoned: break;
    }
    return QStringLiteral("abandoned");
}

} // namespace

TransferState::TransferState(SoundEngine *engine, QObject *parent)
    : QObject(parent)
    , m_engine(engine)
    , m_timer(this)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(changeEveryMs);
    connect(&m_timer, &QTimer::timeout, this, &TransferState::changed);
    connect(engine, &SoundEngine::transferStarted, this, [this](const QString &content, quint32 size) {
        m_content = content;
        m_size = size;
        m_received = 0;
        m_packet = 0;
        m_running = true;
        changeSoon();
    });
    connect(engine, &SoundEngine::transferEnded, this, [this](const simulated::ReceivedFile &file) {
        m_running = false;
        m_received = quint64(file.received);
        ++m_files;
        m_whole += file.outcome == simulated::ReceivedFile::Outcome::Whole ? 1 : 0;
        m_result = QStringLiteral("%1, %2 bytes: %3").arg(file.content).arg(file.size).arg(outcomeText(file));
        if (file.resendRequests > 0)
            m_result += QStringLiteral(", resend requests: %1").arg(file.resendRequests);
        changeSoon();
    });
    connect(engine, &SoundEngine::datagramReceived, this, &TransferState::follow);
}

double TransferState::part() const
{
    if (m_size == 0)
        return 0.0;
    return qMin(1.0, double(m_received) / double(m_size));
}

QString TransferState::text() const
{
    if (m_running) {
        return QStringLiteral("%1: %2 of %3 bytes, packet %4")
            .arg(m_content)
            .arg(qMin(m_received, m_size))
            .arg(m_size)
            .arg(m_packet);
    }
    return m_files > 0 ? m_result : QStringLiteral("no file yet");
}

QString TransferState::history() const
{
    return m_files > 0 ? QStringLiteral("%1 of %2 whole").arg(m_whole).arg(m_files) : QString();
}

void TransferState::follow(const QByteArray &datagram)
{
    using namespace simulated;
    if (!m_running || wordAt(datagram, 0) != Tag::TransferData || datagram.size() < packetHeader)
        return;
    // All packets but the last have the same length.
    const quint64 length = 2 * quint64(wordAt(datagram, packetWords));
    m_packet = longAt(datagram, packetNumber);
    m_received = qMax(m_received, qMin(m_size, (quint64(m_packet) + 1) * length));
    changeSoon();
}

void TransferState::changeSoon()
{
    if (!m_timer.isActive())
        m_timer.start();
}

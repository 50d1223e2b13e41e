#include "transcript.h"

#include "message.h"
#include "soundengine.h"

namespace simulated {

namespace {

bool isFilePacket(const QByteArray &datagram)
{
    const quint16 tag = wordAt(datagram, 0);
    return tag == Tag::TransferStart || tag == Tag::TransferData || tag == Tag::TransferEnd;
}

} // namespace

Transcript::Transcript(SoundEngine *engine, Verbosity verbosity, QObject *parent)
    : QObject(parent)
    , m_verbosity(verbosity)
{
    if (verbosity == Verbosity::Silent)
        return;
    connect(engine, &SoundEngine::datagramReceived, this, &Transcript::takeReceived);
    connect(engine, &SoundEngine::noted, this,
            [this](const QString &text) { Q_EMIT line(QStringLiteral("note: ") + text); });
    if (verbosity < Verbosity::Said)
        return;
    connect(engine, &SoundEngine::datagramSent, this, [this](const QByteArray &datagram) {
        Q_EMIT line(QStringLiteral("sent: ") + m_sent.take(datagram));
    });
}

void Transcript::takeReceived(const QByteArray &datagram)
{
    // A file has thousands of packets. Those that are not printed are not decoded.
    if (m_verbosity < Verbosity::Packets && isFilePacket(datagram))
        return;
    const Message message = decode(datagram);
    if (message.kind != Message::Kind::Unreadable)
        Q_EMIT line(describe(message));
}

} // namespace simulated

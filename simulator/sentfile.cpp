#include "sentfile.h"

#include "wire.h"

#include <QCryptographicHash>
#include <QtEndian>

#include <algorithm>

namespace simulated {

namespace {

quint64 digestOf(const QByteArray &chunk)
{
    return qFromBigEndian<quint64>(QCryptographicHash::hash(chunk, QCryptographicHash::Sha1).constData());
}

// "packet 12", "12 packets from 3 on", or an empty text.
QString packetsText(const QVector<quint32> &numbers)
{
    if (numbers.isEmpty())
        return {};
    const quint32 first = *std::min_element(numbers.constBegin(), numbers.constEnd());
    if (numbers.size() == 1)
        return QStringLiteral("packet %1").arg(first);
    return QStringLiteral("%1 packets from %2 on").arg(numbers.size()).arg(first);
}

} // namespace

SentFile::SentFile(const Message &start)
    : m_content(start.content)
    , m_hasStart(start.kind == Message::Kind::TransferStart)
{
    if (!m_hasStart) {
        m_title = QStringLiteral("transfer %1 without a start packet").arg(tagText(m_content));
        return;
    }
    m_slot = start.slot;
    m_size = start.number;
    m_title = describe(start);
}

QString SentFile::subject() const
{
    return QStringLiteral("file %1 %2").arg(tagText(m_content)).arg(m_slot);
}

void SentFile::append(const Message &data)
{
    const auto known = m_digests.constFind(data.number);
    if (known != m_digests.constEnd())
        m_hasRepeats = true;
    else
        m_bytes += data.payload.size();
    m_digests.insert(data.number, digestOf(data.payload));
}

void SentFile::end(quint32 checksum)
{
    m_ended = true;
    m_checksum = checksum;
}

bool SentFile::isWhole() const
{
    return m_hasStart && m_bytes >= m_size;
}

QStringList SentFile::differences(const SentFile &recorded) const
{
    QVector<quint32> changed;
    QVector<quint32> missing;
    for (auto it = recorded.m_digests.constBegin(); it != recorded.m_digests.constEnd(); ++it) {
        const auto own = m_digests.constFind(it.key());
        if (own == m_digests.constEnd())
            missing.append(it.key());
        else if (*own != *it)
            changed.append(it.key());
    }
    QVector<quint32> extra;
    for (auto it = m_digests.constBegin(); it != m_digests.constEnd(); ++it) {
        if (!recorded.m_digests.contains(it.key()))
            extra.append(it.key());
    }

    QStringList lines;
    if (!changed.isEmpty())
        lines.append(packetsText(changed) + QStringLiteral(" with another content"));
    // How far a transfer got before it was refused depends on the time.
    if (!recorded.isWhole())
        return lines;
    if (!missing.isEmpty())
        lines.append(packetsText(missing) + QStringLiteral(" missing"));
    if (!extra.isEmpty())
        lines.append(packetsText(extra) + QStringLiteral(" more than recorded"));
    if (recorded.m_ended && !m_ended)
        lines.append(QStringLiteral("no end packet"));
    // The checksum counts packets that were sent again.
    const bool isComparable =
        m_ended && recorded.m_ended && isWhole() && !m_hasRepeats && !recorded.m_hasRepeats;
    if (isComparable && m_checksum != recorded.m_checksum) {
        lines.append(QStringLiteral("checksum 0x%1, recorded 0x%2")
                         .arg(m_checksum, 8, 16, QLatin1Char('0'))
                         .arg(recorded.m_checksum, 8, 16, QLatin1Char('0')));
    }
    return lines;
}

} // namespace simulated

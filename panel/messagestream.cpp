#include "messagestream.h"

#include "simulator/soundengine.h"

#include <QTime>

using namespace simulated;

namespace {

constexpr int showEveryMs = 50;
constexpr int shownBytes = 24;

bool isMeters(const QByteArray &datagram)
{
    const quint16 first = wordAt(datagram, 0);
    return first == Tag::OutputMeters || first == Tag::CompressorMeters;
}

} // namespace

MessageStream::MessageStream(SoundEngine *engine, QObject *parent)
    : QAbstractListModel(parent)
    , m_timer(this)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(showEveryMs);
    connect(&m_timer, &QTimer::timeout, this, &MessageStream::showWaiting);
    connect(engine, &SoundEngine::datagramReceived, this,
            [this](const QByteArray &datagram) { addDatagram(Kind::Received, datagram); });
    connect(engine, &SoundEngine::datagramSent, this,
            [this](const QByteArray &datagram) { addDatagram(Kind::Sent, datagram); });
    connect(engine, &SoundEngine::noted, this, [this](const QString &line) { add(Kind::Note, line); });
    connect(engine, &SoundEngine::violated, this,
            [this](const QString &line) { add(Kind::Violation, line); });
}

int MessageStream::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_lines.size());
}

QVariant MessageStream::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= int(m_lines.size()))
        return {};
    const Line &line = m_lines.at(size_t(index.row()));
    switch (role) {
    case TimeRole: return QTime::fromMSecsSinceStartOfDay(line.ms).toString(QStringLiteral("hh:mm:ss.zzz"));
    case KindRole: return int(line.kind);
    case TextRole: return line.text;
    case BytesRole:
        return hexText(line.datagram.left(shownBytes)) +
               QLatin1String(line.datagram.size() > shownBytes ? " ..." : "");
    default: return {};
    }
}

QHash<int, QByteArray> MessageStream::roleNames() const
{
    return {{TimeRole, "time"}, {KindRole, "kind"}, {TextRole, "words"}, {BytesRole, "bytes"}};
}

void MessageStream::setPaused(bool paused)
{
    if (paused == m_paused)
        return;
    m_paused = paused;
    Q_EMIT pausedChanged();
    if (!m_paused)
        showWaiting();
}

void MessageStream::setMeters(bool meters)
{
    m_meters = meters;
    Q_EMIT kindsChanged();
}

void MessageStream::setFileData(bool fileData)
{
    m_fileData = fileData;
    Q_EMIT kindsChanged();
}

void MessageStream::add(Kind kind, const QString &text)
{
    addLine({QTime::currentTime().msecsSinceStartOfDay(), kind, {}, text});
}

void MessageStream::clear()
{
    m_waiting.clear();
    beginResetModel();
    m_lines.clear();
    endResetModel();
}

void MessageStream::addDatagram(Kind kind, const QByteArray &datagram)
{
    const bool isSent = kind == Kind::Sent;
    if (isSent && !m_meters && isMeters(datagram))
        return;
    if (!isSent && !m_fileData && wordAt(datagram, 0) == Tag::TransferData)
        return;
    addLine({QTime::currentTime().msecsSinceStartOfDay(), kind, datagram, {}});
}

void MessageStream::addLine(const Line &line)
{
    if (m_waiting.size() == capacity)
        m_waiting.pop_front();
    m_waiting.push_back(line);
    if (!m_paused && !m_timer.isActive())
        m_timer.start();
}

void MessageStream::showWaiting()
{
    if (m_paused || m_waiting.empty())
        return;
    // The texts are made here, so that datagrams that no line is left for cost little.
    for (Line &line : m_waiting) {
        if (line.kind == Kind::Received)
            line.text = describe(decode(line.datagram));
        else if (line.kind == Kind::Sent)
            line.text = m_sent.take(line.datagram);
    }
    beginInsertRows({}, 0, int(m_waiting.size()) - 1);
    m_lines.insert(m_lines.begin(), m_waiting.rbegin(), m_waiting.rend());
    m_waiting.clear();
    endInsertRows();
    if (m_lines.size() <= capacity)
        return;
    beginRemoveRows({}, capacity, int(m_lines.size()) - 1);
    m_lines.resize(capacity);
    endRemoveRows();
}

FilteredStream::FilteredStream(MessageStream *stream, QObject *parent)
    : QSortFilterProxyModel(parent)
{
    setSourceModel(stream);
}

void FilteredStream::setSearch(const QString &search)
{
    m_search = search;
    apply();
}

void FilteredStream::setReceived(bool received)
{
    m_received = received;
    apply();
}

void FilteredStream::setSent(bool sent)
{
    m_sent = sent;
    apply();
}

void FilteredStream::apply()
{
    invalidateFilter();
    Q_EMIT changed();
}

bool FilteredStream::filterAcceptsRow(int row, const QModelIndex &parent) const
{
    const QModelIndex index = sourceModel()->index(row, 0, parent);
    const auto kind = MessageStream::Kind(index.data(MessageStream::KindRole).toInt());
    if ((kind == MessageStream::Kind::Received && !m_received) ||
        (kind == MessageStream::Kind::Sent && !m_sent))
        return false;
    return m_search.isEmpty() ||
           index.data(MessageStream::TextRole).toString().contains(m_search, Qt::CaseInsensitive) ||
           index.data(MessageStream::BytesRole).toString().contains(m_search, Qt::CaseInsensitive);
}

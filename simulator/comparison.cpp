#include "comparison.h"

#include "sequencediff.h"
#include "wire.h"

#include <algorithm>

namespace simulated {

namespace {

using Item = SentSequence::Item;

// Bytes are shown of unreadable datagrams, and where two different datagrams have the same text.
constexpr int shownBytes = 48;

QVector<int> idsOf(const QVector<Item> &items)
{
    QVector<int> ids;
    ids.reserve(items.size());
    for (const Item &item : items)
        ids.append(item.id);
    return ids;
}

QString bytesText(const QByteArray &datagram)
{
    return QStringLiteral(" [%1%2]").arg(hexText(datagram.left(shownBytes)),
                                         QLatin1String(datagram.size() > shownBytes ? " ..." : ""));
}

QString textOf(const SentTable::Entry &entry, bool withBytes = false)
{
    const bool isReadable = decode(entry.datagram).kind != Message::Kind::Unreadable;
    return entry.text +
           (withBytes || (!isReadable && !entry.datagram.isEmpty()) ? bytesText(entry.datagram) : QString());
}

QString timeText(qint64 ns)
{
    constexpr double nsPerSecond = 1e9;
    return QStringLiteral("%1 s").arg(double(ns) / nsPerSecond, 0, 'f', 3);
}

// Compares one sequence. The methods are called in the order in which they are declared.
class Differences
{
public:
    Differences(const SentTable &table, const SentSequence &recorded, const SentSequence &received,
                SentSequence::Thread thread, Comparison::Report *report)
        : m_table(table)
        , m_recordedSequence(recorded)
        , m_receivedSequence(received)
        , m_recorded(recorded.items(thread))
        , m_received(received.items(thread))
        , m_report(report)
    {}

    void align();
    void findMoved();
    void findChanged();
    void findMissingAndExtra();
    void compareFiles();
    void addLines();

private:
    struct Line
    {
        int position; // of the recorded item that the line concerns or precedes
        QString text;
    };
    // An item that only one side has. `place` is the position of the next recorded item that both have.
    struct Single
    {
        int position;
        int place;
        bool isExplained;
    };

    const SentTable::Entry &entryOf(const Item &item) const { return m_table.entry(item.id); }
    QString changeKey(const Single &single, const Item &item) const
    {
        return QString::number(single.place) + QLatin1Char(' ') + entryOf(item).subject;
    }

    const SentTable &m_table;
    const SentSequence &m_recordedSequence;
    const SentSequence &m_receivedSequence;
    const QVector<Item> &m_recorded;
    const QVector<Item> &m_received;
    Comparison::Report *m_report;

    QVector<QPair<int, int>> m_matches; // positions of the same datagram or file
    QVector<Single> m_lost;
    QVector<Single> m_added;
    QVector<Line> m_lines;
};

void Differences::align()
{
    m_matches = commonPositions(idsOf(m_recorded), idsOf(m_received));
    QPair<int, int> at(0, 0);
    const auto collect = [&](const QPair<int, int> &end) {
        for (; at.first < end.first; ++at.first)
            m_lost.append({at.first, end.first, false});
        for (; at.second < end.second; ++at.second)
            m_added.append({at.second, end.first, false});
    };
    for (const QPair<int, int> &pair : qAsConst(m_matches)) {
        collect(pair);
        at = {pair.first + 1, pair.second + 1};
    }
    collect({m_recorded.size(), m_received.size()});
}

// The same datagram at another place.
void Differences::findMoved()
{
    QHash<int, QVector<int>> spare; // indexes of m_added, the first one last
    for (int i = m_added.size() - 1; i >= 0; --i)
        spare[m_received.at(m_added.at(i).position).id].append(i);
    for (Single &lost : m_lost) {
        const Item &item = m_recorded.at(lost.position);
        const auto same = spare.find(item.id);
        if (same == spare.end() || same->isEmpty())
            continue;
        Single &added = m_added[same->takeLast()];
        lost.isExplained = added.isExplained = true;
        m_matches.append({lost.position, added.position});
        ++m_report->order;
        m_lines.append(
            {lost.position, QStringLiteral("order at %1: %2 was sent %3")
                                .arg(timeText(item.ns), textOf(entryOf(item)),
                                     QLatin1String(added.place > lost.position ? "later" : "earlier"))});
    }
}

// Another value at the same place.
void Differences::findChanged()
{
    QHash<QString, QVector<int>> candidates; // indexes of m_added, the first one last
    for (int i = m_added.size() - 1; i >= 0; --i) {
        if (!m_added.at(i).isExplained)
            candidates[changeKey(m_added.at(i), m_received.at(m_added.at(i).position))].append(i);
    }
    for (Single &lost : m_lost) {
        const Item &item = m_recorded.at(lost.position);
        const auto same = candidates.find(changeKey(lost, item));
        if (lost.isExplained || same == candidates.end() || same->isEmpty())
            continue;
        Single &added = m_added[same->takeLast()];
        lost.isExplained = added.isExplained = true;
        const SentTable::Entry &before = entryOf(item);
        const SentTable::Entry &now = entryOf(m_received.at(added.position));
        const bool withBytes = now.text == before.text;
        ++m_report->changed;
        m_lines.append(
            {lost.position, QStringLiteral("changed at %1: %2, recorded %3")
                                .arg(timeText(item.ns), textOf(now, withBytes), textOf(before, withBytes))});
    }
}

void Differences::findMissingAndExtra()
{
    const auto add = [this](const Single &single, int position, const char *what, const Item &item,
                            int *count) {
        if (single.isExplained)
            return;
        ++*count;
        m_lines.append({position, QStringLiteral("%1 at %2: %3")
                                      .arg(QLatin1String(what), timeText(item.ns), textOf(entryOf(item)))});
    };
    for (const Single &lost : qAsConst(m_lost))
        add(lost, lost.position, "missing", m_recorded.at(lost.position), &m_report->missing);
    for (const Single &added : qAsConst(m_added))
        add(added, added.place, "extra", m_received.at(added.position), &m_report->extra);
}

void Differences::compareFiles()
{
    for (const QPair<int, int> &pair : qAsConst(m_matches)) {
        const Item &item = m_recorded.at(pair.first);
        if (item.file < 0)
            continue;
        const SentFile &file = m_receivedSequence.files().at(m_received.at(pair.second).file);
        const QStringList texts = file.differences(m_recordedSequence.files().at(item.file));
        m_report->changedFiles += texts.isEmpty() ? 0 : 1;
        for (const QString &text : texts) {
            m_lines.append(
                {pair.first,
                 QStringLiteral("file at %1: %2: %3").arg(timeText(item.ns), entryOf(item).text, text)});
        }
    }
}

void Differences::addLines()
{
    std::stable_sort(m_lines.begin(), m_lines.end(),
                     [](const Line &a, const Line &b) { return a.position < b.position; });
    for (const Line &line : qAsConst(m_lines))
        m_report->lines.append(QStringLiteral("difference: ") + line.text);
    m_report->compared += int(
        std::count_if(m_recorded.begin(), m_recorded.end(), [](const Item &item) { return item.file < 0; }));
}

} // namespace

Comparison::Comparison(const Recording &recording)
{
    for (int i = 0; i < recording.size(); ++i) {
        if (recording.isFromEngine(i))
            continue;
        const int id = m_recorded.append(recording.datagram(i), recording.time(i));
        if (id < 0)
            continue;
        if (id >= m_outstanding.size())
            m_outstanding.resize(id + 1);
        ++m_outstanding[id];
        ++m_outstandingSum;
    }
}

bool Comparison::receive(const QByteArray &datagram)
{
    // The memory of a comparison is bounded as that of a recording is.
    if (++m_receivedCount > Recording::mostDatagrams) {
        m_isOverfull = true;
        return false;
    }
    if (!m_sinceFirst.isValid())
        m_sinceFirst.start();
    const int id = m_received.append(datagram, m_sinceFirst.nsecsElapsed());
    if (id < 0)
        return m_received.files().size() <= m_recorded.files().size();
    if (id >= m_outstanding.size() || m_outstanding.at(id) == 0)
        return false;
    --m_outstanding[id];
    --m_outstandingSum;
    return true;
}

bool Comparison::isComplete() const
{
    return m_outstandingSum == 0 && m_received.endedFiles() >= m_recorded.endedFiles();
}

Comparison::Report Comparison::report() const
{
    Report report;
    for (const SentSequence::Thread thread : {SentSequence::Settings, SentSequence::Transfers}) {
        Differences differences(m_table, m_recorded, m_received, thread, &report);
        differences.align();
        differences.findMoved();
        differences.findChanged();
        differences.findMissingAndExtra();
        differences.compareFiles();
        differences.addLines();
    }
    report.files = m_recorded.files().size();
    if (m_isOverfull) {
        ++report.extra;
        report.lines.append(
            QStringLiteral("difference: more than %1 datagrams were received; the others were not compared")
                .arg(Recording::mostDatagrams));
    }
    return report;
}

QStringList Comparison::Report::summary() const
{
    const auto line = [](const char *name, int value) {
        return QStringLiteral("summary %1 %2").arg(QLatin1String(name)).arg(value);
    };
    const int all = differences();
    return {line("compared-datagrams", compared),
            line("compared-files", files),
            line("missing", missing),
            line("extra", extra),
            line("changed", changed),
            line("order", order),
            line("changed-files", changedFiles),
            all == 0 ? QStringLiteral("comparison: no difference")
                     : QStringLiteral("comparison: %1 difference(s)").arg(all)};
}

} // namespace simulated

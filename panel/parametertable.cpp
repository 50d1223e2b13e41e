#include "parametertable.h"

#include "simulator/parametertable.h"
#include "simulator/soundengine.h"

#include <QTime>

#include <algorithm>

namespace {

constexpr int showEveryMs = 50;
// Above this number a view is quicker with a new list.
constexpr int mostMoves = 50;

quint8 high(int key)
{
    return quint8(key >> 8);
}

quint8 low(int key)
{
    return quint8(key & 0xFF);
}

QString numberText(int key)
{
    return QStringLiteral("0x%1/0x%2")
        .arg(high(key), 2, 16, QLatin1Char('0'))
        .arg(low(key), 2, 16, QLatin1Char('0'));
}

QString nameText(int key)
{
    const simulated::ParameterInfo info = simulated::parameterInfo(high(key), low(key));
    return info.isKnown() ? info.name : QStringLiteral("unknown");
}

} // namespace

ParameterTable::ParameterTable(SoundEngine *engine, QObject *parent)
    : QAbstractListModel(parent)
    , m_timer(this)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(showEveryMs);
    connect(&m_timer, &QTimer::timeout, this, &ParameterTable::showPending);
    connect(engine, &SoundEngine::parameterReceived, this, &ParameterTable::take);
}

int ParameterTable::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

QVariant ParameterTable::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_rows.size())
        return {};
    const Row &row = m_rows.at(index.row());
    // The text of a known parameter is its name and its value.
    const auto value = [&row] {
        const QString text =
            simulated::parameterText(high(row.key), low(row.key), quint8(row.value), row.low);
        return text.mid(text.lastIndexOf(QLatin1Char(' ')) + 1);
    };
    switch (role) {
    case NumberRole: return numberText(row.key);
    case NameRole: return nameText(row.key);
    case ValueRole: return value();
    case TimeRole:
        return QTime::fromMSecsSinceStartOfDay(int(row.ms)).toString(QStringLiteral("hh:mm:ss.zzz"));
    case SearchRole: return numberText(row.key) + QLatin1Char(' ') + nameText(row.key);
    default: return {};
    }
}

QHash<int, QByteArray> ParameterTable::roleNames() const
{
    return {{NumberRole, "number"}, {NameRole, "name"}, {ValueRole, "value"}, {TimeRole, "time"}};
}

void ParameterTable::take(int msb, int lsb, int value, int low)
{
    const Row row{(msb << 8) | lsb, value, low, QTime::currentTime().msecsSinceStartOfDay()};
    const auto same = std::find_if(m_pending.begin(), m_pending.end(),
                                   [&row](const Row &other) { return other.key == row.key; });
    if (same != m_pending.end())
        m_pending.erase(same);
    m_pending.append(row);
    if (!m_timer.isActive())
        m_timer.start();
}

void ParameterTable::showPending()
{
    const QVector<Row> pending = std::move(m_pending);
    m_pending = {};
    if (pending.size() <= mostMoves) {
        for (const Row &row : pending)
            moveToTop(row);
        return;
    }
    beginResetModel();
    QHash<int, bool> isNew;
    for (const Row &row : pending)
        isNew.insert(row.key, true);
    m_rows.erase(std::remove_if(m_rows.begin(), m_rows.end(),
                                [&isNew](const Row &row) { return isNew.contains(row.key); }),
                 m_rows.end());
    QVector<Row> rows(pending.rbegin(), pending.rend());
    m_rows = rows + m_rows;
    endResetModel();
}

void ParameterTable::moveToTop(const Row &row)
{
    const auto found =
        std::find_if(m_rows.begin(), m_rows.end(), [&row](const Row &other) { return other.key == row.key; });
    const int from = int(found - m_rows.begin());
    if (from == m_rows.size()) {
        beginInsertRows({}, 0, 0);
        m_rows.prepend(row);
        endInsertRows();
        return;
    }
    if (from > 0) {
        beginMoveRows({}, from, from, {}, 0);
        m_rows.move(from, 0);
        endMoveRows();
    }
    m_rows.first() = row;
    Q_EMIT dataChanged(index(0), index(0));
}

SearchedTable::SearchedTable(QAbstractItemModel *table, int searchRole, QObject *parent)
    : QSortFilterProxyModel(parent)
{
    setFilterRole(searchRole);
    setFilterCaseSensitivity(Qt::CaseInsensitive);
    setSourceModel(table);
}

void SearchedTable::setSearch(const QString &search)
{
    if (search == m_search)
        return;
    m_search = search;
    setFilterFixedString(search);
    Q_EMIT searchChanged();
}

#include "failurelist.h"

#include "simulator/soundengine.h"

using simulated::failureModes;

FailureList::FailureList(SoundEngine *engine, QObject *parent)
    : QAbstractListModel(parent)
    , m_engine(engine)
{
    for (const simulated::FailureMode &mode : failureModes())
        m_rows.append({mode.defaultValue, false});
    refresh();
}

int FailureList::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

QVariant FailureList::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_rows.size())
        return {};
    const simulated::FailureMode &mode = failureModes().at(index.row());
    const Row &row = m_rows.at(index.row());
    switch (role) {
    case NameRole: return QString::fromLatin1(mode.name);
    case DescriptionRole: return QString::fromLatin1(mode.description);
    case TakesNumberRole: return mode.defaultValue >= 0;
    case NumberRole: return row.number;
    case ActiveRole: return row.active;
    default: return {};
    }
}

QHash<int, QByteArray> FailureList::roleNames() const
{
    return {{NameRole, "name"},
            {DescriptionRole, "description"},
            {TakesNumberRole, "takesNumber"},
            {NumberRole, "number"},
            {ActiveRole, "active"}};
}

void FailureList::setNumber(int row, int number)
{
    if (row < 0 || row >= m_rows.size() || m_rows.at(row).number < 0 || m_rows.at(row).number == number)
        return;
    m_rows[row].number = number;
    Q_EMIT dataChanged(index(row), index(row));
}

void FailureList::refresh()
{
    const auto &active = m_engine->failures().active();
    int count = 0;
    for (int i = 0; i < m_rows.size(); ++i) {
        Row next{m_rows.at(i).number, false};
        for (const simulated::ActiveFailure &failure : active) {
            if (failure.name == QLatin1String(failureModes().at(i).name))
                next = {failure.value, true};
        }
        count += next.active ? 1 : 0;
        if (next.active == m_rows.at(i).active && next.number == m_rows.at(i).number)
            continue;
        m_rows[i] = next;
        Q_EMIT dataChanged(index(i), index(i));
    }
    if (count != m_activeCount) {
        m_activeCount = count;
        Q_EMIT activeCountChanged();
    }
}

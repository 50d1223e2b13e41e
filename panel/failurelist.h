#pragma once

#include <QAbstractListModel>
#include <QVector>

class SoundEngine;

/// The failure modes of the engine, in the order of simulated::failureModes().
class FailureList : public QAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(int activeCount READ activeCount NOTIFY activeCountChanged)

public:
    enum Role { NameRole = Qt::UserRole, DescriptionRole, TakesNumberRole, NumberRole, ActiveRole };

    explicit FailureList(SoundEngine *engine, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Number of modes that are on.
    int activeCount() const { return m_activeCount; }

    /// Sets N for the next time that the mode of that row is switched on.
    Q_INVOKABLE void setNumber(int row, int number);

    /// Reads from the engine which modes are on.
    void refresh();

Q_SIGNALS:
    void activeCountChanged();

private:
    struct Row
    {
        int number = -1; // -1: the mode takes none
        bool active = false;
    };

    SoundEngine *m_engine;
    QVector<Row> m_rows;
    int m_activeCount = 0;
};

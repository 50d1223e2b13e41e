#pragma once

#include <QAbstractListModel>
#include <QHash>
#include <QSortFilterProxyModel>
#include <QTimer>
#include <QVector>

class SoundEngine;

/// The parameters that the module set, the latest first. Changes appear together, several times a second.
class ParameterTable : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Role { NumberRole = Qt::UserRole, NameRole, ValueRole, TimeRole, SearchRole };

    explicit ParameterTable(SoundEngine *engine, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    struct Row
    {
        int key = 0; // number, high and low byte
        int value = 0;
        int low = -1;
        qint64 ms = 0; // time of day
    };

    void take(int msb, int lsb, int value, int low);
    void showPending();
    void moveToTop(const Row &row);

    QVector<Row> m_rows;
    QVector<Row> m_pending; // in the order of arrival, each number once
    QTimer m_timer;
};

/// A table without the rows that do not contain a text.
class SearchedTable : public QSortFilterProxyModel
{
    Q_OBJECT
    Q_PROPERTY(QString search READ search WRITE setSearch NOTIFY searchChanged)

public:
    SearchedTable(QAbstractItemModel *table, int searchRole, QObject *parent = nullptr);

    QString search() const { return m_search; }
    void setSearch(const QString &search);

Q_SIGNALS:
    void searchChanged();

private:
    QString m_search;
};

#pragma once

#include "simulator/enginetext.h"

#include <QAbstractListModel>
#include <QSortFilterProxyModel>
#include <QTimer>

#include <deque>

class SoundEngine;

/// The datagrams in both directions, notes of the engine and answers to commands, the latest first. The
/// latest capacity lines are kept. New lines appear together, several times a second.
class MessageStream : public QAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(bool paused READ isPaused WRITE setPaused NOTIFY pausedChanged)
    Q_PROPERTY(bool meters READ hasMeters WRITE setMeters NOTIFY kindsChanged)
    Q_PROPERTY(bool fileData READ hasFileData WRITE setFileData NOTIFY kindsChanged)

public:
    static constexpr int capacity = 2000;

    enum class Kind { Received, Sent, Note, Violation, Answer };
    Q_ENUM(Kind)

    enum Role { TimeRole = Qt::UserRole, KindRole, TextRole, BytesRole };

    explicit MessageStream(SoundEngine *engine, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// While paused, new lines wait; the oldest ones are dropped when more than capacity wait.
    bool isPaused() const { return m_paused; }
    void setPaused(bool paused);

    /// Meter reports and the data packets of files are not kept by default, because they push out all others.
    bool hasMeters() const { return m_meters; }
    void setMeters(bool meters);
    bool hasFileData() const { return m_fileData; }
    void setFileData(bool fileData);

    /// Adds lines that are not datagrams.
    void add(Kind kind, const QString &text);
    Q_INVOKABLE void clear();

Q_SIGNALS:
    void pausedChanged();
    void kindsChanged();

private:
    struct Line
    {
        int ms = 0; // time of day
        Kind kind = Kind::Note;
        QByteArray datagram; // empty for lines with a text
        QString text;
    };

    void addDatagram(Kind kind, const QByteArray &datagram);
    void addLine(const Line &line);
    void showWaiting();

    std::deque<Line> m_lines;   // the latest first
    std::deque<Line> m_waiting; // the latest last
    simulated::EngineText m_sent;
    QTimer m_timer;
    bool m_paused = false;
    bool m_meters = false;
    bool m_fileData = false;
};

/// The lines of a stream that contain a text and have a wanted direction.
class FilteredStream : public QSortFilterProxyModel
{
    Q_OBJECT
    Q_PROPERTY(QString search READ search WRITE setSearch NOTIFY changed)
    Q_PROPERTY(bool received READ hasReceived WRITE setReceived NOTIFY changed)
    Q_PROPERTY(bool sent READ hasSent WRITE setSent NOTIFY changed)

public:
    explicit FilteredStream(MessageStream *stream, QObject *parent = nullptr);

    QString search() const { return m_search; }
    void setSearch(const QString &search);
    bool hasReceived() const { return m_received; }
    void setReceived(bool received);
    bool hasSent() const { return m_sent; }
    void setSent(bool sent);

Q_SIGNALS:
    void changed();

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;

private:
    void apply();

    QString m_search;
    bool m_received = true;
    bool m_sent = true;
};

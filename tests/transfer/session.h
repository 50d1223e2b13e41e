#pragma once

#include "transferpeer.h"

#include "support/patience.h"
#include "support/signalrecorder.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

class QConnectQmlPlugin;

using testsupport::patienceMs;

/// A control object and the engine it talks to. Several can live side by side, each with a port of its own.
class Session
{
public:
    enum Recording { RecordSignals, NoRecording };

    explicit Session(Recording recording = RecordSignals);
    ~Session();

    TransferPeer &peer() { return m_peer; }
    QConnectQmlPlugin &plugin() { return *m_plugin; }

    /// What QML has seen, in order, as "name(value, ...)". Events that are passed on unread are left out,
    /// because every answer of the engine is one; runs of a progress signal are counted: "name x12".
    QStringList seen() const;
    void forgetSeen();
    bool waitFor(const QString &signal, int timeoutMs = patienceMs) const;

    /// Proves that the transfer thread works off its queue: a query is queued behind all else, answered with
    /// a value and seen. Whatever was to come before it has come then; seen() ends with settled().
    bool settle(int timeoutMs = patienceMs);
    static QString settled();
    /// Empty when exactly these signals were seen, all of them in the thread of QML, otherwise what differs.
    QString difference(const QStringList &expected) const;
    /// Settles and compares: these signals, then settled(), and nothing else.
    QString differenceWhenSettled(const QStringList &expected, int timeoutMs = patienceMs);

    /// Deletes the control object and returns how many milliseconds that took.
    qint64 destroyPlugin();

private:
    TransferPeer m_peer;
    std::unique_ptr<QConnectQmlPlugin> m_plugin;
    std::unique_ptr<testsupport::SignalRecorder> m_recorder;
};

/// Bytes without a pattern, the same ones every time.
QByteArray noise(int size, quint32 seed = 1);

/// A directory whose files are gone with it.
class TestFiles
{
public:
    /// Writes a file, making its folders, and returns its path.
    QString write(const QString &name, const QByteArray &content) const;
    QString path(const QString &name) const { return m_dir.filePath(name); }

private:
    QTemporaryDir m_dir;
};

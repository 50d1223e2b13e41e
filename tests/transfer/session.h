#pragma once

#include "transferpeer.h"

#include "support/noise.h"
#include "support/patience.h"
#include "support/signalrecorder.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

class QConnectQmlPlugin;

using testsupport::patienceMs;

/// A control object and its engine. Several can exist side by side, each with a port of its own.
class Session
{
public:
    enum Recording { RecordSignals, NoRecording };

    explicit Session(Recording recording = RecordSignals);
    ~Session();

    TransferPeer &peer() { return m_peer; }
    QConnectQmlPlugin &plugin() { return *m_plugin; }

    /// The signals that QML has received, in order, as "name(value, ...)". udpPacketArrived is left out:
    /// every answer of the engine emits it. Consecutive progress signals are counted: "name x12".
    QStringList seen() const;
    void forgetSeen();
    bool waitFor(const QString &signal, int timeoutMs = patienceMs) const;

    /// Queues a query behind everything else and waits for its answer. All earlier tasks have ended then, and
    /// seen() ends with tasksFinished().
    bool finishTasks(int timeoutMs = patienceMs);
    static QString tasksFinished();
    /// Empty when exactly these signals were emitted, all in the GUI thread; otherwise the difference.
    QString difference(const QStringList &expected) const;
    /// Finishes all tasks and compares: these signals, then tasksFinished(), and nothing else.
    QString differenceWhenFinished(const QStringList &expected, int timeoutMs = patienceMs);

    /// Deletes the control object. Returns the time that took, in milliseconds.
    qint64 destroyPlugin();

private:
    TransferPeer m_peer;
    std::unique_ptr<QConnectQmlPlugin> m_plugin;
    std::unique_ptr<testsupport::SignalRecorder> m_recorder;
};

using testsupport::noise;

/// A temporary directory; it is removed with its files.
class TestFiles
{
public:
    /// Writes a file and creates its folders. Returns its path.
    QString write(const QString &name, const QByteArray &content) const;
    QString path(const QString &name) const { return m_dir.filePath(name); }

private:
    QTemporaryDir m_dir;
};

#pragma once

#include "soakengine.h"

#include <QElapsedTimer>
#include <QStringList>
#include <QTemporaryDir>
#include <QTimer>
#include <QVector>

class QConnectQmlPlugin;

/// Sends files one after the other, of each kind and with each fault in turn, and checks that each reported
/// result is the real one.
class TransferLoop
{
public:
    TransferLoop(QConnectQmlPlugin &plugin, SoakEngine &engine);
    Q_DISABLE_COPY(TransferLoop)

    void start();
    /// Stops after the current transfer. True when no transfer is running.
    bool finish();

    int arrived() const { return m_arrived; }
    /// The number of files that did not arrive and were reported as failed.
    int failed() const { return m_failed; }
    QStringList problems() const { return m_problems; }

private:
    enum class End { Arrives, Fails, Either };
    struct Fault
    {
        const char *mode; ///< empty for no fault
        End end;
    };

    void sendNext();
    void completed(int kind, int status);
    void judge(const Fault &fault, int status);
    void watch();

    QConnectQmlPlugin &m_plugin;
    SoakEngine &m_engine;
    QTemporaryDir m_folder;
    QString m_path;
    QByteArray m_content;
    QTimer m_watch;
    QElapsedTimer m_since;
    bool m_sending = false;
    bool m_over = false;
    int m_next = 0;
    int m_filesBefore = 0;
    int m_arrived = 0;
    int m_failed = 0;
    QStringList m_problems;

    static const Fault faults[];
};

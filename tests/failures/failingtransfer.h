#pragma once

#include "crowd.h"
#include "enginethread.h"
#include "expectations.h"

#include "support/signalrecorder.h"
#include "transfer/transferkinds.h"

#include <QElapsedTimer>

#include <memory>

class QConnectQmlPlugin;

/// One file that is sent to an engine with one failure mode, and a task that is queued behind it.
class FailingTransfer : public CrowdMember
{
public:
    /// mode as NAME or NAME=N.
    FailingTransfer(EngineThread &thread, const QString &address, const TransferKind &kind,
                    const QString &mode, const QString &path, int timeoutMs);
    ~FailingTransfer() override;

    void start() override;
    bool isOver() override;

    /// Empty if the outcome is as expected, otherwise the difference. Call it when the job is over.
    QString verdict();

private:
    enum class Stage { Sending, TaskLeft, Over };

    bool advance();
    bool saw(const char *signal) const;
    bool hasCompleted();
    bool engineIsQuiet();
    QStringList seen() const;
    QStringList expectedSignals() const;
    QString signalVerdict() const;
    QString fileVerdict();

    const TransferKind m_kind;
    const QString m_mode;
    const QString m_modeText; ///< with N
    const QString m_path;
    const Expectation m_expectation;
    const int m_timeoutMs;
    RemoteEngine m_engine;
    std::unique_ptr<QConnectQmlPlugin> m_plugin;
    std::unique_ptr<testsupport::SignalRecorder> m_recorder;
    QElapsedTimer m_since;
    QElapsedTimer m_quietSince;
    quint64 m_heard = 0;
    int m_looked = 0; ///< number of signals that hasCompleted() has searched
    Stage m_stage = Stage::Sending;
    bool m_nextQueued = false;
    bool m_nextRanTooEarly = false;
};

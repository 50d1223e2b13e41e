#pragma once

#include "outcomes.h"

#include "failures/crowd.h"
#include "failures/enginethread.h"
#include "transfer/transferkinds.h"

#include <QElapsedTimer>
#include <QProcess>

/// One run of zelta-send with an engine that has one failure mode.
class SendingProgram : public CrowdMember
{
public:
    /// mode as NAME or NAME=N.
    SendingProgram(EngineThread &thread, const QString &address, const TransferKind &kind,
                   const QString &mode, const QString &path, int timeoutMs);
    ~SendingProgram() override;

    void start() override;
    bool isOver() override;

    /// Empty if the outcome is as expected, otherwise the difference. Call it when the job is over.
    QString verdict();

private:
    const TransferKind m_kind;
    const QString m_address;
    const QString m_mode;
    const QString m_modeText; ///< with N
    const QString m_path;
    const int m_timeoutMs;
    RemoteEngine m_engine;
    QProcess m_process;
    QElapsedTimer m_since;
};

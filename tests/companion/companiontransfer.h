#pragma once

#include "outcomes.h"

#include "failures/crowd.h"
#include "failures/enginethread.h"
#include "transfer/transferkinds.h"

#include <QElapsedTimer>
#include <QStringList>

#include <memory>

class QQmlEngine;

/// One file that a FileTransfer sends to an engine with one failure mode.
class CompanionTransfer : public CrowdMember
{
public:
    /// mode as NAME or NAME=N.
    CompanionTransfer(QQmlEngine &qml, EngineThread &thread, const QString &address, const TransferKind &kind,
                      const QString &mode, const QString &path, int timeoutMs);
    ~CompanionTransfer() override;

    void start() override;
    bool isOver() override;

    /// Empty if the outcome is as expected, otherwise the difference. Call it when the job is over.
    QString verdict();

private:
    QString text(const char *property) const { return m_screen->property(property).toString(); }

    const TransferKind m_kind;
    const QString m_mode;
    const QString m_modeText; ///< with N
    const QString m_path;
    const int m_timeoutMs;
    RemoteEngine m_engine;
    std::unique_ptr<QObject> m_screen;
    QElapsedTimer m_since;
};

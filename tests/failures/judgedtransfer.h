#pragma once

#include "crowd.h"
#include "enginethread.h"

#include "control/qconnectqmlplugin.h"
#include "support/signalrecorder.h"
#include "transfer/transferkinds.h"

#include <QElapsedTimer>
#include <QString>

/// A control object and its engine. Transfers share them one after the other, because creating a control
/// object takes time.
struct Station
{
    Station(EngineThread &thread, const QString &address, quint16 port = SoundEngine::defaultPort)
        : engine(thread, address, port)
        , recorder(&plugin)
    {}

    RemoteEngine engine;
    QConnectQmlPlugin plugin;
    testsupport::SignalRecorder recorder;
};

/// One file whose reported outcome is compared with the file that the engine received. For kinds whose end
/// signal carries the status.
class JudgedTransfer : public CrowdMember
{
public:
    enum class Result {
        Arrived,
        Failed,       ///< failed, and reported as failed
        Unproven,     ///< an import that failed with status 0 and without an acknowledgement
        FalseSuccess, ///< failed, but reported as arrived
        FalseFailure, ///< arrived, but reported as failed
        Silent,       ///< not reported, or reported twice
    };

    /// Replaces the engine of the station.
    JudgedTransfer(Station &station, const TransferKind &kind, const QString &path, const QByteArray &content,
                   int timeoutMs);

    void start() override;
    bool isOver() override;

    /// Call it when the job is over.
    Result result();

private:
    int endSignals() const;

    Station &m_station;
    const TransferKind m_kind;
    const QString m_path;
    const QByteArray m_content;
    const int m_timeoutMs;
    QElapsedTimer m_since;
};

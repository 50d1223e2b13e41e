#pragma once

#include "crowd.h"
#include "enginethread.h"

#include "control/qconnectqmlplugin.h"
#include "support/signalrecorder.h"
#include "transfer/transferkinds.h"

#include <QElapsedTimer>
#include <QString>

/// A control object and its engine; transfers take turns here, because making a control object takes its
/// time.
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

/// One file, sent whatever befalls it, and what QML heard of it beside what the engine has. For kinds whose
/// end signal carries the status.
class JudgedTransfer : public CrowdMember
{
public:
    enum class Result {
        Arrived,
        Failed,   ///< and told so
        Unproven, ///< an import that failed with status 0, which counts only with the engine's word for it
        FalseSuccess, ///< told to have arrived
        FalseFailure, ///< it has arrived, but the module could not know
        Silent,       ///< not told anything, or told twice
    };

    /// Takes a new engine at the station.
    JudgedTransfer(Station &station, const TransferKind &kind, const QString &path, const QByteArray &content,
                   int timeoutMs);

    void start() override;
    bool isOver() override;

    /// To be asked when it is over.
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

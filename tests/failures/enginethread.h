#pragma once

#include "simulator/soundengine.h"

#include <QThread>

#include <functional>

/// The thread of all simulated engines of a test program. Work of the module in the GUI thread therefore does
/// not delay their answers.
class EngineThread
{
public:
    EngineThread();
    ~EngineThread();
    Q_DISABLE_COPY(EngineThread)

    /// Runs a function in the thread and waits until it returns.
    void run(const std::function<void()> &function);

private:
    QThread m_thread;
    QObject m_context;
};

/// A simulated engine in that thread. All methods may be called from the thread of the test.
class RemoteEngine
{
public:
    /// Listens at the address and makes it the engine of the control objects that are created afterwards.
    RemoteEngine(EngineThread &thread, const QString &address, quint16 port = SoundEngine::defaultPort);
    ~RemoteEngine();
    Q_DISABLE_COPY(RemoteEngine)

    /// Replaces the engine by a new one at the same address, without the state of the old one.
    void replace();

    /// Switches a failure mode on; the text has the simulator's form. False if the simulator has no such
    /// mode.
    bool fail(const QString &mode);
    void clearFailures();
    /// Switches the failures off as soon as the first query has been processed.
    void clearFailuresAfterQuery();

    QVector<SoundEngine::ReceivedFile> files();
    QStringList violations();
    /// Sends output meters, 30 per second, as soon as the engine has the module's address.
    void setMeters(bool running);
    /// The number of received datagrams.
    quint64 heard();

private:
    void listen();

    EngineThread &m_thread;
    const QString m_address;
    const quint16 m_port;
    SoundEngine *m_engine = nullptr;
};

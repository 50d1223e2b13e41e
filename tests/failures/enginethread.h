#pragma once

#include "simulator/soundengine.h"

#include <QThread>

#include <functional>

/// The thread in which all simulated engines of a test program live, so that what the module does in the
/// thread of QML cannot hold their answers up.
class EngineThread
{
public:
    EngineThread();
    ~EngineThread();
    Q_DISABLE_COPY(EngineThread)

    /// Runs a function in the thread and waits for it.
    void run(const std::function<void()> &function);

private:
    QThread m_thread;
    QObject m_context;
};

/// A simulated engine in that thread. Everything here may be called from the thread of the test.
class RemoteEngine
{
public:
    /// Listens at the address and makes it the engine of the control objects made from now on.
    RemoteEngine(EngineThread &thread, const QString &address, quint16 port = SoundEngine::defaultPort);
    ~RemoteEngine();
    Q_DISABLE_COPY(RemoteEngine)

    /// Another engine at the same address, which knows nothing of what was.
    void replace();

    /// Switches a failure mode on, in the words of the simulator. False when it knows no such mode.
    bool fail(const QString &mode);
    void clearFailures();
    /// Switches the failures off as soon as the first query has been dealt with.
    void clearFailuresAfterQuery();

    QVector<SoundEngine::ReceivedFile> files();
    QStringList violations();
    /// Output meters, thirty a second, as soon as the engine knows the module.
    void setMeters(bool running);
    /// Datagrams that have been heard.
    quint64 heard();

private:
    void listen();

    EngineThread &m_thread;
    const QString m_address;
    const quint16 m_port;
    SoundEngine *m_engine = nullptr;
};

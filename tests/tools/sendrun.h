#pragma once

#include "simulator/soundengine.h"

#include <QProcess>
#include <QStringList>

/// One run of zelta-send with its own sound engine. Several can run at the same time.
class SendRun
{
public:
    /// The engine listens at 127.20.27.<number>. A failure mode may be given.
    explicit SendRun(int number, const QString &failure = QString());
    explicit SendRun(const QString &address, const QString &failure = QString());
    ~SendRun();

    SoundEngine &engine() { return m_engine; }
    QProcess &process() { return m_process; }

    /// Adds --engine to the arguments.
    void start(const QStringList &arguments);
    /// True while it runs and has sent nothing.
    bool isStarting() const { return m_process.state() != QProcess::NotRunning && !m_engine.knowsModule(); }
    /// Waits until the program ends and returns its exit status, or -1 after a time-out or a crash.
    int exitStatus(int timeoutMs = 100000);
    /// Standard output and standard error, after exitStatus().
    QString output();
    QString errors();

private:
    const QString m_address;
    SoundEngine m_engine;
    QProcess m_process;
    QByteArray m_output;
    QByteArray m_errors;
};

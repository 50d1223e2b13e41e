#pragma once

#include "simulator/soundengine.h"

#include <QProcess>
#include <QStringList>

/// One run of zelta-send against a sound engine of its own. Several can run side by side.
class SendRun
{
public:
    /// The engine listens at 127.20.27.<number>. A failure mode may be given.
    explicit SendRun(int number, const QString &failure = QString());
    ~SendRun();

    SoundEngine &engine() { return m_engine; }
    QProcess &process() { return m_process; }

    /// Adds --engine to the arguments.
    void start(const QStringList &arguments);
    /// It runs and has sent nothing yet.
    bool isStarting() const { return m_process.state() != QProcess::NotRunning && !m_engine.knowsModule(); }
    /// Waits until the program has ended and returns its exit status, -1 when it does not or was killed.
    int exitStatus(int timeoutMs = 100000);
    /// What it said, once it has ended.
    QString output();
    QString errors();

private:
    const QString m_address;
    SoundEngine m_engine;
    QProcess m_process;
    QByteArray m_output;
    QByteArray m_errors;
};

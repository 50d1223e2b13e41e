#pragma once

#include "kinds.h"
#include "outcome.h"

#include <QObject>
#include <QTimer>

/// The module waits that long for the answer to a query before it goes on with the next task.
constexpr int answerWaitMs = 20000;
/// What is to happen after such a wait comes later by this.
constexpr int answerMarginMs = 1000;

/// One file to send.
struct FileToSend
{
    QString path;
    qint64 size = 0;
    int slot = -1;
    QString name;
};

/// Looks whether a file can be sent at all. Empty, or what is wrong with it.
QString fileProblem(const QString &path);

/// Sends one file through the QML object and finds out how that ended.
///
/// The module says less than a person wants to know: some failures have no signal of their own, and an
/// import whose end nobody acknowledged looks like one that went well. So the engine's own answers, which
/// QML sees as well, decide: a file counts as sent only when its end was acknowledged without error.
class Transfer : public QObject
{
    Q_OBJECT

public:
    Transfer(QObject *module, const Kind &kind, const FileToSend &file, QObject *parent = nullptr);

    void start();
    /// One of the transfer's probes was answered. Each is queued behind the file, so its task is over.
    void engineIsIdle();
    int retransmissions() const { return m_retransmissions; }

Q_SIGNALS:
    /// A query should be queued behind the file; its answer shows that the file's task is over.
    void probeWanted();
    void progressed(qint64 bytes);
    /// Something to tell while it runs.
    void noted(const QString &words);
    void finished(const Outcome &outcome);

private Q_SLOTS:
    void onEvent(ushort id, ushort a, ushort b);
    void onSoundProgress();
    void onTriggerProgress();
    void onBluetoothProgress();
    void onWaveProgress(int slot, double progress);
    void onFirmwareStarted(int currentVersion, int newVersion);
    void onEngineFirmwareAccepted() { m_firmwareAccepted = true; }
    void onEngineFirmwareFinished();
    void onTriggerFirmwareFinished() { conclude(0); }
    void onSoundbankComplete(ushort status, uint retransmissions);
    void onBankComplete(ushort status) { conclude(status); }
    void onWaveComplete(int slot, ushort status);

private:
    void watch();
    void onFraction(double fraction);
    void onProgress(qint64 bytes);
    void onDataAnswer(ushort a, ushort b);
    void onQuiet();
    void signOfLife();
    void conclude(ushort status);
    void finish(ExitStatus status, const QString &words);

    QObject *const m_module;
    const Kind &m_kind;
    const FileToSend m_file;
    QTimer m_quiet;
    int m_quietTimes = 0;

    bool m_over = false;
    bool m_begun = false;       // data has been sent, or firmware is about to be
    bool m_allSent = false;     // nothing can break the transfer off any more
    bool m_versionSeen = false; // the module has told the version that it has
    bool m_firmwareAccepted = false;
    bool m_endSeen = false;
    ushort m_endStatus = 0;
    ushort m_refusal = 0;
    int m_retransmissions = 0;
    qint64 m_packetBytes = 0; // by counting packets, where progress tells no fraction of the file
};

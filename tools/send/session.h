#pragma once

#include "options.h"
#include "result.h"

#include <QElapsedTimer>
#include <QObject>
#include <QSet>
#include <QTimer>
#include <QVariant>

class Reporter;

/// One run of the program, from the first query to the last file. The companion module sends the files and
/// determines the result of each.
class Session : public QObject
{
    Q_OBJECT

public:
    /// sender is the root object of sender.qml. result has a file for each job of options; those that have
    /// failed already are not sent, and neither is the rest of their set.
    Session(QObject *sender, const Options &options, Reporter &reporter, Result *result);
    ~Session() override;

    void start();

    /// Ends the run after an interruption, without finished().
    void interrupt();

Q_SIGNALS:
    /// The result is complete.
    void finished();

private Q_SLOTS:
    void onEvent(ushort id, ushort a, ushort b);
    void onSoundBankVersion();
    void onTriggerBankVersion();
    void onProgress();
    void onAllSentChanged();
    void onNewVersion();
    void onFileEnded();

private:
    void greeted();
    QString missingAnswer() const;
    void askVersions();
    void takeVersion(const QString &what, const char *property, QString *version);
    void nextFile();
    void sendFile();
    Outcome outcomeOfFile() const;
    void endFile(const Outcome &outcome);
    void finishFiles();
    void finish(ExitStatus status, const QString &message);
    void disconnectAll();

    bool is(const char *state) const { return m_sender->property(state).toBool(); }
    bool isSending() const { return m_current >= 0 && m_current < int(m_result.files.size()); }
    FileResult &file() { return m_result.files[size_t(m_current)]; }
    const FileResult &file() const { return m_result.files.at(size_t(m_current)); }

    QObject *const m_sender;
    QObject *const m_module;
    QObject *const m_transfer;
    const Options m_options;
    Reporter &m_reporter;
    Result &m_result;

    QTimer m_timeUp;
    QTimer m_noAnswer;
    QTimer m_clock;        // redraws m_activity while there is no progress
    QElapsedTimer m_since; // the start of the file
    QString m_activity;
    bool m_greeted = false;
    int m_current = -1;
    QSet<int> m_failedGroups;
};

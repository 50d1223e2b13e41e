#pragma once

#include "options.h"
#include "outcome.h"
#include "transfer.h"

#include <QObject>
#include <QTimer>

#include <memory>

class Display;

/// Does what the command line asks for, from the first question to the engine to the last file.
class Session : public QObject
{
    Q_OBJECT

public:
    Session(QObject *module, const Options &options, Display &display);
    ~Session() override;

    void start();

Q_SIGNALS:
    void finished(const Outcome &outcome);

private Q_SLOTS:
    void onEvent(ushort id, ushort a, ushort b);
    void onProbeAnswered();
    void onSoundBankVersion();
    void onTriggerBankVersion();

private:
    void probe();
    void greeted();
    QString missingAnswer() const;
    void askVersions();
    void sayVersion(const QString &what, const char *property, bool *known);
    void nextFile();
    void sendFile(const FileToSend &file);
    void conclude(const Outcome &outcome);
    void finish(ExitStatus status, const QString &words);

    QObject *const m_module;
    const Options m_options;
    Display &m_display;

    QTimer m_timeUp;
    QTimer m_noAnswer;
    QTimer m_lateAnswer;
    QTimer m_clock; // for what tells no progress
    int m_probes = 0;
    bool m_greeted = false;
    bool m_soundBankKnown = false;
    bool m_triggerBankKnown = false;
    int m_nextFile = 0;
    FileToSend m_file;
    std::unique_ptr<Transfer> m_transfer;
};

#pragma once

#include "failurelist.h"
#include "messagestream.h"
#include "parametertable.h"
#include "realkit.h"
#include "scenariorecorder.h"
#include "transferstate.h"

#include "simulator/soundengine.h"

#include <QObject>
#include <QVariantList>
#include <QVariantMap>

/// A simulated sound engine with what a window shows of it. Everything that a person does is a command of the
/// simulator: run() parses, runs and records it. What a drum kit plays is recorded as commands, too.
class Panel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString listening READ listening NOTIFY listeningChanged)
    Q_PROPERTY(QString module READ module NOTIFY moduleChanged)
    Q_PROPERTY(QString lastCommand READ lastCommand NOTIFY ran)
    Q_PROPERTY(QString lastAnswer READ lastAnswer NOTIFY ran)
    Q_PROPERTY(bool lastFailed READ lastFailed NOTIFY ran)
    Q_PROPERTY(bool groove READ isGroovePlaying NOTIFY stateChanged)
    Q_PROPERTY(bool meterReports READ areMetersRunning NOTIFY stateChanged)
    Q_PROPERTY(bool followingHits READ isFollowingHits NOTIFY stateChanged)
    Q_PROPERTY(int tempo READ tempo NOTIFY stateChanged)
    Q_PROPERTY(QVariantMap answers READ answers NOTIFY stateChanged)
    Q_PROPERTY(int violations READ violations NOTIFY violationsChanged)
    Q_PROPERTY(QVariantList levels READ levels NOTIFY levelsChanged)
    Q_PROPERTY(QVariantList zones READ zones CONSTANT)
    Q_PROPERTY(QObject *parameters READ parameters CONSTANT)
    Q_PROPERTY(QObject *messages READ messages CONSTANT)
    Q_PROPERTY(QObject *stream READ stream CONSTANT)
    Q_PROPERTY(QObject *failures READ failures CONSTANT)
    Q_PROPERTY(QObject *transfer READ transfer CONSTANT)
    Q_PROPERTY(QObject *recorder READ recorder CONSTANT)
    Q_PROPERTY(QObject *kit READ kit CONSTANT)

public:
    explicit Panel(QObject *parent = nullptr);

    /// Listens, and sends by itself what zelta-engine-sim sends. Returns false when the address cannot be
    /// bound; the engine's errorString() has the reason.
    bool start(const QHostAddress &address, quint16 port, bool groove);

    /// Runs one command line. Returns false when it is wrong or nothing could be sent; lastAnswer() has the
    /// reason. Commands that had an effect are recorded.
    Q_INVOKABLE bool run(const QString &line);

    /// Begins a new recording with the present state of the engine.
    Q_INVOKABLE void restartRecording();

    SoundEngine *engine() { return &m_engine; }

    QString listening() const;
    QString module() const;
    QString lastCommand() const { return m_lastCommand; }
    /// What the last command showed, or why it failed; one line. All lines appear in the stream of messages.
    QString lastAnswer() const { return m_lastAnswer; }
    bool lastFailed() const { return m_lastFailed; }
    bool isGroovePlaying() const { return m_engine.isGroovePlaying(); }
    bool areMetersRunning() const { return m_engine.areMetersRunning(); }
    bool isFollowingHits() const { return m_engine.isFollowingHits(); }
    int tempo() const { return m_engine.tempo(); }
    /// What the engine answers when the module asks: a list of numbers for each command that sets an answer.
    QVariantMap answers() const;
    int violations() const { return m_violations; }
    /// The output levels that were sent last; 70 is full scale.
    QVariantList levels() const { return m_levels; }
    /// The pad zones: name, note, pad and whether the zone can be choked.
    QVariantList zones() const;

    SearchedTable *parameters() { return &m_searched; }
    FilteredStream *messages() { return &m_filtered; }
    MessageStream *stream() { return &m_stream; }
    FailureList *failures() { return &m_failures; }
    TransferState *transfer() { return &m_transfer; }
    ScenarioRecorder *recorder() { return &m_recorder; }
    RealKit *kit() { return &m_kit; }

Q_SIGNALS:
    void ran();
    void listeningChanged();
    void moduleChanged();
    void stateChanged();
    void violationsChanged();
    void levelsChanged();
    void quitRequested();
    /// The engine has sent a hit, a choke or a position of the hi-hat pedal, by a command or by itself.
    void struck(int note, int velocity);
    void choked(int note, int pressure);
    void pedalMoved(int position);

private:
    void follow(const QByteArray &datagram);
    bool finish(const QString &answer, bool failed);

    SoundEngine m_engine;
    ParameterTable m_parameters;
    SearchedTable m_searched;
    MessageStream m_stream;
    FilteredStream m_filtered;
    FailureList m_failures;
    TransferState m_transfer;
    ScenarioRecorder m_recorder;
    RealKit m_kit;

    QString m_lastCommand;
    QString m_lastAnswer;
    QVariantList m_levels;
    int m_violations = 0;
    bool m_lastFailed = false;
};

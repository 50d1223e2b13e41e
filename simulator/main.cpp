#include "commands.h"
#include "console.h"
#include "midiinput.h"
#include "options.h"
#include "replaysession.h"
#include "scenarioplayer.h"
#include "scenariowriter.h"
#include "soundengine.h"
#include "standalone.h"
#include "transcript.h"

#include <QCoreApplication>
#include <QFile>
#include <QTextStream>
#include <QTimer>

#include <memory>

using namespace simulated;

namespace {

constexpr int exitCouldNotStart = 1;
constexpr int exitCommandsFailed = 2;
constexpr int exitViolations = 3;
constexpr int exitDifferences = 4;

OutputLines &output()
{
    static OutputLines lines;
    return lines;
}

void print(const QString &line)
{
    output().print(line);
}

void printAll(const QStringList &lines)
{
    for (const QString &line : lines)
        print(line);
}

void printError(const QString &line)
{
    QTextStream(stderr) << QStringLiteral("zelta-engine-sim: ") << line << '\n';
}

// One message for each line.
int refuse(const QString &text)
{
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString &line : lines)
        printError(line);
    return exitCouldNotStart;
}

void report(SoundEngine *engine)
{
    QObject::connect(engine, &SoundEngine::moduleChanged, [](const QHostAddress &address, quint16 port) {
        print(QStringLiteral("module %1:%2").arg(address.toString()).arg(port));
    });
    QObject::connect(engine, &SoundEngine::violated,
                     [](const QString &line) { print(QStringLiteral("violation: ") + line); });
    QObject::connect(engine, &SoundEngine::transferEnded,
                     [](const ReceivedFile &file) { print(fileText(file)); });
}

void takeTypedLine(const QString &line, StepReader *reader, ScenarioPlayer *player)
{
    QString problem;
    if (!reader->take(line, 0, &problem))
        printError(problem);
    const QVector<ScenarioStep> steps = reader->takeSteps();
    for (const ScenarioStep &step : steps)
        player->append(step);
}

int writeScenario(const Recording &recording, const Options &options)
{
    QString problem;
    const QStringList lines = scenarioOf(recording, &problem);
    if (lines.isEmpty())
        return refuse(QStringLiteral("recording %1: %2").arg(options.replay, problem));
    QFile file(options.toScenario);
    const QByteArray text = lines.join(QLatin1Char('\n')).toUtf8() + '\n';
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.flush())
        return refuse(QStringLiteral("cannot write %1: %2").arg(options.toScenario, file.errorString()));
    return 0;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("zelta-engine-sim"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ZELTACONNECT_VERSION));

    Options options;
    QString text;
    switch (parseOptions(QCoreApplication::arguments(), &options, &text)) {
    case OptionsResult::Run: break;
    case OptionsResult::Exit: print(text); return 0;
    case OptionsResult::Bad: return refuse(text);
    }
    output().setTimestamps(options.timestamps);
    Scenario scenario;
    if (!options.scenario.isEmpty() && !scenario.load(options.scenario, &text))
        return refuse(text);
    Recording recording;
    if (!options.replay.isEmpty() && !recording.load(options.replay, &text, options.recordedPort))
        return refuse(text);
    if (!options.replay.isEmpty() && recording.countFromEngine() == 0)
        return refuse(QStringLiteral("recording %1: no datagram of the engine").arg(options.replay));
    if (!options.toScenario.isEmpty())
        return writeScenario(recording, options);
    NoteMap notes;
    if (!options.noteMap.isEmpty() && !notes.load(options.noteMap, &text))
        return refuse(text);

    SoundEngine engine;
    engine.setSeed(options.seed);
    engine.setStoreDirectory(options.storeDirectory);
    // The program never reads the data of received files.
    engine.setKeptBytes(0);
    for (const QString &failure : qAsConst(options.failures))
        engine.setFailure(failure);
    if (!engine.listen(options.address, options.port)) {
        return refuse(QStringLiteral("cannot listen on %1:%2: %3")
                          .arg(options.address.toString())
                          .arg(options.port)
                          .arg(engine.errorString()));
    }
    if (!options.record.isEmpty() && !engine.startRecording(options.record, &text))
        return refuse(text);
    report(&engine);
    const Transcript transcript(&engine, options.verbosity);
    QObject::connect(&transcript, &Transcript::line, print);
    if (options.modulePort != 0)
        engine.setModule(options.moduleAddress, options.modulePort);

    EndSignals endSignals;
    QObject::connect(&endSignals, &EndSignals::received, &app, &QCoreApplication::quit);
    int status = 0;
    const auto fail = [&status](const QString &line) {
        printError(line);
        status = exitCommandsFailed;
    };
    QObject::connect(&engine, &SoundEngine::recordingFailed, &app, fail);
    std::unique_ptr<ReplaySession> replay;
    if (!options.replay.isEmpty()) {
        replay = std::make_unique<ReplaySession>(recording, options, &engine);
        QObject::connect(replay.get(), &ReplaySession::notSent, &app, fail);
        QObject::connect(replay.get(), &ReplaySession::finished, &app, &QCoreApplication::quit);
    }
    ScenarioPlayer player(scenario, &engine);
    QObject::connect(&player, &ScenarioPlayer::notSent, &app, fail);
    QObject::connect(&player, &ScenarioPlayer::failed, &app, [fail](const QString &line) {
        fail(line);
        QCoreApplication::quit();
    });
    // Typed lines are steps of a scenario that never ends.
    ScenarioPlayer typed(Scenario(), &engine);
    QObject::connect(&typed, &ScenarioPlayer::failed, &app, [fail, &typed](const QString &line) {
        fail(line);
        typed.proceed();
    });
    for (ScenarioPlayer *each : {&player, &typed}) {
        QObject::connect(each, &ScenarioPlayer::printed, &app, printAll);
        QObject::connect(each, &ScenarioPlayer::quitRequested, &app, &QCoreApplication::quit);
    }
    InputLines input;
    StepReader reader(StepReader::Source::Typed);
    QObject::connect(&input, &InputLines::lineRead, &typed,
                     [&](const QString &line) { takeTypedLine(line, &reader, &typed); });
    QObject::connect(&input, &InputLines::closedByHand, &app, [&options] {
        if (options.durationMs == 0)
            QCoreApplication::quit();
    });

    print(QStringLiteral("listening on %1:%2").arg(engine.address().toString()).arg(engine.port()));
    if (replay)
        engine.setAnswering(false);
    else
        playStandalone(&engine, options.groove);
    MidiInput kit(options.midiInput, &engine);
    QObject::connect(&kit, &MidiInput::stateChanged, &app, print);
    kit.setNoteMap(notes);
    if (!options.midiInput.isEmpty())
        kit.start();
    typed.start();
    if (replay)
        replay->start();
    if (!options.scenario.isEmpty())
        QTimer::singleShot(0, &player, [&player] { player.start(); });
    if (options.durationMs > 0)
        QTimer::singleShot(options.durationMs, &app, &QCoreApplication::quit);
    QCoreApplication::exec();

    printAll(engine.summary());
    if (replay) {
        const ReplaySession::Result result = replay->result();
        printAll(result.lines);
        if (status == 0 && result.hasDifferences)
            status = exitDifferences;
    }
    if (status == 0 && engine.counters().violations > 0)
        status = exitViolations;
    return status;
}

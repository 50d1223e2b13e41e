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

// What the options name.
struct Inputs
{
    Scenario scenario;
    Recording recording;
    NoteMap notes;
};

// Returns false and sets problem to one line if a file cannot be used.
bool load(const Options &options, Inputs *inputs, QString *problem)
{
    if (!options.scenario.isEmpty() && !inputs->scenario.load(options.scenario, problem))
        return false;
    if (!options.replay.isEmpty()) {
        if (!inputs->recording.load(options.replay, problem, options.recordedPort))
            return false;
        if (inputs->recording.countFromEngine() == 0) {
            *problem = QStringLiteral("recording %1: no datagram of the engine").arg(options.replay);
            return false;
        }
    }
    return options.noteMap.isEmpty() || inputs->notes.load(options.noteMap, problem);
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

// Returns false and sets problem to one line if the engine cannot listen or record.
bool startEngine(SoundEngine *engine, const Options &options, QString *problem)
{
    engine->setSeed(options.seed);
    engine->setStoreDirectory(options.storeDirectory);
    // The program never reads the data of received files.
    engine->setKeptBytes(0);
    for (const QString &failure : qAsConst(options.failures))
        engine->setFailure(failure);
    if (!engine->listen(options.address, options.port)) {
        *problem = QStringLiteral("cannot listen on %1:%2: %3")
                       .arg(options.address.toString())
                       .arg(options.port)
                       .arg(engine->errorString());
        return false;
    }
    return options.record.isEmpty() || engine->startRecording(options.record, problem);
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

// The program while its engine listens: scenario, replay, typed commands and electronic drum kit.
class Session : public QObject
{
public:
    // All arguments must outlive this object.
    Session(SoundEngine *engine, const Inputs &inputs, const Options &options);

    // Returns the exit status.
    int run();

private:
    void fail(const QString &line);
    void connectReplay();
    void connectPlayer(ScenarioPlayer *player);
    void connectInput();
    void takeTypedLine(const QString &line);
    void start();

    SoundEngine *m_engine;
    const Options &m_options;
    EndSignals m_endSignals;
    std::unique_ptr<ReplaySession> m_replay;
    ScenarioPlayer m_player;
    ScenarioPlayer m_typed; // typed lines are steps of a scenario that never ends
    InputLines m_input;
    StepReader m_reader{StepReader::Source::Typed};
    MidiInput m_kit;
    int m_status = 0;
};

Session::Session(SoundEngine *engine, const Inputs &inputs, const Options &options)
    : m_engine(engine)
    , m_options(options)
    , m_player(inputs.scenario, engine)
    , m_typed(Scenario(), engine)
    , m_kit(options.midiInput, engine)
{
    connect(&m_endSignals, &EndSignals::received, qApp, &QCoreApplication::quit);
    connect(engine, &SoundEngine::recordingFailed, this, &Session::fail);
    if (!options.replay.isEmpty()) {
        m_replay = std::make_unique<ReplaySession>(inputs.recording, options, engine);
        connectReplay();
    }
    connect(&m_player, &ScenarioPlayer::notSent, this, &Session::fail);
    connect(&m_player, &ScenarioPlayer::failed, this, [this](const QString &line) {
        fail(line);
        QCoreApplication::quit();
    });
    connect(&m_typed, &ScenarioPlayer::failed, this, [this](const QString &line) {
        fail(line);
        m_typed.proceed();
    });
    connectPlayer(&m_player);
    connectPlayer(&m_typed);
    connectInput();
    connect(&m_kit, &MidiInput::stateChanged, this, print);
    m_kit.setNoteMap(inputs.notes);
}

void Session::fail(const QString &line)
{
    printError(line);
    m_status = exitCommandsFailed;
}

void Session::connectReplay()
{
    connect(m_replay.get(), &ReplaySession::notSent, this, &Session::fail);
    connect(m_replay.get(), &ReplaySession::finished, qApp, &QCoreApplication::quit);
}

void Session::connectPlayer(ScenarioPlayer *player)
{
    connect(player, &ScenarioPlayer::printed, this, printAll);
    connect(player, &ScenarioPlayer::quitRequested, qApp, &QCoreApplication::quit);
}

void Session::connectInput()
{
    connect(&m_input, &InputLines::lineRead, this, &Session::takeTypedLine);
    connect(&m_input, &InputLines::closedByHand, this, [this] {
        if (m_options.durationMs == 0)
            QCoreApplication::quit();
    });
}

void Session::takeTypedLine(const QString &line)
{
    QString problem;
    if (!m_reader.take(line, 0, &problem))
        printError(problem);
    const QVector<ScenarioStep> steps = m_reader.takeSteps();
    for (const ScenarioStep &step : steps)
        m_typed.append(step);
}

void Session::start()
{
    print(QStringLiteral("listening on %1:%2").arg(m_engine->address().toString()).arg(m_engine->port()));
    if (m_replay)
        m_engine->setAnswering(false);
    else
        playStandalone(m_engine, m_options.groove);
    if (!m_options.midiInput.isEmpty())
        m_kit.start();
    m_typed.start();
    if (m_replay)
        m_replay->start();
    if (!m_options.scenario.isEmpty())
        QTimer::singleShot(0, &m_player, [this] { m_player.start(); });
    if (m_options.durationMs > 0)
        QTimer::singleShot(m_options.durationMs, qApp, &QCoreApplication::quit);
}

int Session::run()
{
    start();
    QCoreApplication::exec();

    printAll(m_engine->summary());
    if (m_replay) {
        const ReplaySession::Result result = m_replay->result();
        printAll(result.lines);
        if (m_status == 0 && result.hasDifferences)
            m_status = exitDifferences;
    }
    if (m_status == 0 && m_engine->counters().violations > 0)
        m_status = exitViolations;
    return m_status;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication app(argc, argv);
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
    Inputs inputs;
    if (!load(options, &inputs, &text))
        return refuse(text);
    if (!options.toScenario.isEmpty())
        return writeScenario(inputs.recording, options);

    SoundEngine engine;
    if (!startEngine(&engine, options, &text))
        return refuse(text);
    report(&engine);
    const Transcript transcript(&engine, options.verbosity);
    QObject::connect(&transcript, &Transcript::line, print);
    if (options.modulePort != 0)
        engine.setModule(options.moduleAddress, options.modulePort);
    Session session(&engine, inputs, options);
    return session.run();
}

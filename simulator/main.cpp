#include "commands.h"
#include "console.h"
#include "options.h"
#include "scenario.h"
#include "soundengine.h"

#include <QCoreApplication>
#include <QTextStream>
#include <QTimer>

using namespace simulated;

namespace {

constexpr int exitCouldNotStart = 1;
constexpr int exitScenarioFailed = 2;
constexpr int exitViolations = 3;

void print(const QString &line)
{
    // Flushed line by line, since scripts wait for lines.
    static QTextStream out(stdout);
    out << line << '\n';
    out.flush();
}

void printAll(const QStringList &lines)
{
    for (const QString &line : lines)
        print(line);
}

void complain(const QString &line)
{
    QTextStream(stderr) << QStringLiteral("zelta-engine-sim: ") << line << '\n';
}

int refuse(const QString &line)
{
    complain(line);
    return exitCouldNotStart;
}

void report(SoundEngine *engine, bool verbose)
{
    QObject::connect(engine, &SoundEngine::moduleChanged, [](const QHostAddress &address, quint16 port) {
        print(QStringLiteral("module %1:%2").arg(address.toString()).arg(port));
    });
    QObject::connect(engine, &SoundEngine::violated,
                     [](const QString &line) { print(QStringLiteral("violation: ") + line); });
    QObject::connect(engine, &SoundEngine::transferEnded,
                     [](const ReceivedFile &file) { print(fileText(file)); });
    if (!verbose)
        return;
    QObject::connect(engine, &SoundEngine::messageReceived, print);
    QObject::connect(engine, &SoundEngine::noted,
                     [](const QString &line) { print(QStringLiteral("note: ") + line); });
}

void obey(const QString &line, SoundEngine *engine)
{
    if (wordsOf(line).isEmpty())
        return;
    Command command;
    QString problem;
    if (!parseCommand(line, &command, &problem)) {
        complain(problem);
        return;
    }
    printAll(command.run(*engine));
    if (command.isQuit)
        QCoreApplication::quit();
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
    Scenario scenario;
    if (!options.scenario.isEmpty() && !scenario.load(options.scenario, &text))
        return refuse(text);

    SoundEngine engine;
    engine.setSeed(options.seed);
    engine.setStoreDirectory(options.storeDirectory);
    // Nothing here looks at them.
    engine.setKeptBytes(0);
    for (const QString &failure : qAsConst(options.failures))
        engine.setFailure(failure);
    if (!engine.listen(options.address, options.port)) {
        return refuse(QStringLiteral("cannot listen on %1:%2: %3")
                          .arg(options.address.toString())
                          .arg(options.port)
                          .arg(engine.errorString()));
    }
    report(&engine, options.verbose);
    if (options.modulePort != 0)
        engine.setModule(options.moduleAddress, options.modulePort);

    EndSignals endSignals;
    QObject::connect(&endSignals, &EndSignals::received, &app, &QCoreApplication::quit);
    InputLines input;
    QObject::connect(&input, &InputLines::lineRead, &app, [&](const QString &line) { obey(line, &engine); });
    QObject::connect(&input, &InputLines::closedByHand, &app, [&options] {
        if (options.durationMs == 0)
            QCoreApplication::quit();
    });

    int status = 0;
    ScenarioPlayer player(scenario, &engine);
    QObject::connect(&player, &ScenarioPlayer::printed, &app, printAll);
    QObject::connect(&player, &ScenarioPlayer::quitRequested, &app, &QCoreApplication::quit);
    QObject::connect(&player, &ScenarioPlayer::failed, &app, [&status](const QString &line) {
        complain(line);
        status = exitScenarioFailed;
        QCoreApplication::quit();
    });

    print(QStringLiteral("listening on %1:%2").arg(engine.address().toString()).arg(engine.port()));
    engine.setLive(true);
    engine.setMeters(true);
    engine.setGroove(options.groove);
    // A module that comes late still learns the tempo and hears the groove, pedal included, from its start.
    QObject::connect(&engine, &SoundEngine::moduleChanged, &app, [&engine] {
        engine.sendTempo(quint16(engine.tempo()));
        if (engine.isGroovePlaying()) {
            engine.setGroove(false);
            engine.setGroove(true);
        }
    });
    if (!options.scenario.isEmpty())
        QTimer::singleShot(0, &player, [&player] { player.start(); });
    if (options.durationMs > 0)
        QTimer::singleShot(options.durationMs, &app, &QCoreApplication::quit);
    QCoreApplication::exec();

    printAll(engine.summary());
    if (status == 0 && engine.counters().violations > 0)
        status = exitViolations;
    return status;
}

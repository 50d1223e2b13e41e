#include "options.h"

#include "commands.h"
#include "failures.h"
#include "recordingoptions.h"
#include "soundengine.h"

#include <QCommandLineParser>
#include <QTemporaryFile>

#include <algorithm>

namespace simulated {

namespace {

constexpr const char *defaultAddress = "127.20.21.22";

// ADDRESS or ADDRESS:PORT, IPv4.
bool readEndpoint(const QString &text, QHostAddress *address, quint16 *port)
{
    const QStringList parts = text.split(QLatin1Char(':'));
    bool portIsGood = true;
    if (parts.size() == 2)
        *port = parts.at(1).toUShort(&portIsGood);
    portIsGood = portIsGood && !text.contains(QLatin1Char('+'));
    // Three dots are required, because QHostAddress also accepts shortened forms.
    return parts.size() <= 2 && portIsGood && parts.at(0).count(QLatin1Char('.')) == 3 &&
           address->setAddress(parts.at(0)) && address->protocol() == QAbstractSocket::IPv4Protocol;
}

} // namespace

OptionsResult parseOptions(const QStringList &arguments, Options *options, QString *text)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Simulated sound engine of the drum module.\n"
                       "Type help on standard input for its commands.\n\n"
                       "Exit status: 0 ended as requested without protocol violations; 1 could not start;\n"
                       "2 a wait-for timed out, or a scenario or replay could not send, or a recording\n"
                       "could not be written; 3 the module violated the protocol; 4 --compare found\n"
                       "differences."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Show this help."));
    const QCommandLineOption version = parser.addVersionOption();
    const QCommandLineOption listen(
        QStringLiteral("listen"),
        QStringLiteral("Address to listen on (default %1:%2; port 0: a free one).")
            .arg(QLatin1String(defaultAddress))
            .arg(SoundEngine::defaultPort),
        QStringLiteral("ADDRESS[:PORT]"));
    const QCommandLineOption module(QStringLiteral("module"),
                                    QStringLiteral("Address of the module, if it does not send first."),
                                    QStringLiteral("ADDRESS:PORT"));
    const QCommandLineOption verbose(
        QStringLiteral("verbose"),
        QStringLiteral("Print a line for every message of the module. Given twice: also for what the engine\n"
                       "sends; three times: also for every packet of a file."));
    const QCommandLineOption verbosity(
        QStringLiteral("verbosity"),
        QStringLiteral("The same as a number: 0 none (default), 1 received, 2 also sent, 3 also packets."),
        QStringLiteral("LEVEL"));
    const QCommandLineOption timestamps(QStringLiteral("timestamps"),
                                        QStringLiteral("Print the time of day before every line."));
    const QCommandLineOption groove(QStringLiteral("groove"),
                                    QStringLiteral("Play drums (the default without a scenario)."));
    const QCommandLineOption noGroove(QStringLiteral("no-groove"), QStringLiteral("Do not play drums."));
    const QCommandLineOption scenario(QStringLiteral("scenario"), QStringLiteral("Play a scenario."),
                                      QStringLiteral("FILE"));
    const QCommandLineOption store(QStringLiteral("store"),
                                   QStringLiteral("Write received files into a directory."),
                                   QStringLiteral("DIR"));
    const QCommandLineOption fail(QStringLiteral("fail"),
                                  QStringLiteral("Add a failure mode; may be repeated."),
                                  QStringLiteral("NAME[=N[,N]...]"));
    const QCommandLineOption listFailures(QStringLiteral("list-failures"),
                                          QStringLiteral("List the failure modes and exit."));
    const QCommandLineOption midiIn(
        QStringLiteral("midi-in"),
        QStringLiteral("Play with an electronic drum kit: raw MIDI from a device file or FIFO."),
        QStringLiteral("PATH"));
    const QCommandLineOption noteMap(QStringLiteral("note-map"),
                                     QStringLiteral("Translate the notes of --midi-in; a line is FROM TO."),
                                     QStringLiteral("FILE"));
    const QCommandLineOption seed(QStringLiteral("seed"), QStringLiteral("Seed of groove and failures (1)."),
                                  QStringLiteral("NUMBER"));
    const QCommandLineOption duration(QStringLiteral("duration"),
                                      QStringLiteral("End after this many seconds (above 0, up to 2000000)."),
                                      QStringLiteral("SECONDS"));
    parser.addOptions({midiIn, noteMap, listen, module, verbose, verbosity, timestamps, groove, noGroove,
                       scenario, store, fail, listFailures, seed, duration});
    const RecordingOptions recording(&parser);
    parser.addOption(help);

    const auto bad = [text](const QString &line) {
        *text = line;
        return OptionsResult::Bad;
    };
    if (!parser.parse(arguments))
        return bad(parser.errorText());
    if (!parser.positionalArguments().isEmpty())
        return bad(QStringLiteral("unexpected argument \"%1\"").arg(parser.positionalArguments().at(0)));
    if (parser.isSet(help)) {
        *text = parser.helpText().trimmed();
        return OptionsResult::Exit;
    }
    if (parser.isSet(version)) {
        *text =
            QCoreApplication::applicationName() + QLatin1Char(' ') + QCoreApplication::applicationVersion();
        return OptionsResult::Exit;
    }
    if (parser.isSet(listFailures)) {
        *text = failureHelp().join(QLatin1Char('\n'));
        return OptionsResult::Exit;
    }

    options->address = QHostAddress(QLatin1String(defaultAddress));
    options->port = SoundEngine::defaultPort;
    if (parser.isSet(listen) && !readEndpoint(parser.value(listen), &options->address, &options->port))
        return bad(QStringLiteral("--listen takes an IPv4 address and a port, not \"%1\"")
                       .arg(parser.value(listen)));
    if (parser.isSet(module) &&
        (!readEndpoint(parser.value(module), &options->moduleAddress, &options->modulePort) ||
         options->modulePort == 0)) {
        return bad(QStringLiteral("--module takes an IPv4 address and a port, not \"%1\"")
                       .arg(parser.value(module)));
    }
    if (parser.isSet(groove) && parser.isSet(noGroove))
        return bad(QStringLiteral("--groove and --no-groove exclude each other"));

    constexpr int most = int(Verbosity::Packets);
    int level = std::min(parser.optionNames().count(QStringLiteral("verbose")), most);
    if (parser.isSet(verbosity)) {
        if (parser.isSet(verbose))
            return bad(QStringLiteral("--verbose and --verbosity exclude each other"));
        if (!readNumber(parser.value(verbosity), most, &level)) {
            return bad(QStringLiteral("--verbosity takes a number from 0 to %1, not \"%2\"")
                           .arg(most)
                           .arg(parser.value(verbosity)));
        }
    }
    options->verbosity = Verbosity(level);
    options->timestamps = parser.isSet(timestamps);
    options->scenario = parser.value(scenario);
    options->groove = parser.isSet(groove) || (!parser.isSet(noGroove) && !parser.isSet(scenario));
    options->storeDirectory = parser.value(store);
    // Creates a file instead of checking permissions, because even root cannot write everywhere.
    if (parser.isSet(store) &&
        !QTemporaryFile(options->storeDirectory + QStringLiteral("/try-XXXXXX")).open())
        return bad(
            QStringLiteral("--store: \"%1\" is not a writable directory").arg(options->storeDirectory));

    options->midiInput = parser.value(midiIn);
    options->noteMap = parser.value(noteMap);
    if (parser.isSet(midiIn) && options->midiInput.isEmpty())
        return bad(QStringLiteral("--midi-in takes a path"));
    if (parser.isSet(noteMap) && !parser.isSet(midiIn))
        return bad(QStringLiteral("--note-map needs --midi-in"));
    if (parser.isSet(noteMap) && options->noteMap.isEmpty())
        return bad(QStringLiteral("--note-map takes a file"));

    options->failures = parser.values(fail);
    FailureSet trial;
    QString problem;
    for (const QString &failure : qAsConst(options->failures)) {
        if (!trial.add(failure, &problem))
            return bad(QStringLiteral("--fail: ") + problem);
    }
    bool isNumber = true;
    if (parser.isSet(seed))
        options->seed = parser.value(seed).toUInt(&isNumber);
    if (!isNumber)
        return bad(QStringLiteral("--seed takes a number from 0, not \"%1\"").arg(parser.value(seed)));
    if (parser.isSet(duration)) {
        const double seconds = parser.value(duration).toDouble(&isNumber);
        constexpr int longest = 2000000;
        if (!isNumber || !(seconds > 0.0 && seconds <= longest)) {
            return bad(QStringLiteral("--duration takes seconds above 0, up to %1, not \"%2\"")
                           .arg(longest)
                           .arg(parser.value(duration)));
        }
        options->durationMs = qMax(1, int(seconds * 1000.0));
    }
    if (!recording.read(parser, options, text))
        return OptionsResult::Bad;
    if (!options->replay.isEmpty() &&
        (parser.isSet(groove) || parser.isSet(scenario) || parser.isSet(fail) || parser.isSet(store)))
        return bad(QStringLiteral("--replay excludes --groove, --scenario, --fail and --store"));
    return OptionsResult::Run;
}

} // namespace simulated

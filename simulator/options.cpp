#include "options.h"

#include "failures.h"
#include "soundengine.h"

#include <QCommandLineParser>
#include <QTemporaryFile>

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
    // Three dots, because QHostAddress also takes shortened forms.
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
                       "Exit status: 0 ended as asked and the module broke no rule; 1 could not start;\n"
                       "2 a scenario's wait ran out of time; 3 the module broke rules of the protocol."));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    const QCommandLineOption listen(
        QStringLiteral("listen"),
        QStringLiteral("Address to listen on (default %1:%2; port 0: a free one).")
            .arg(QLatin1String(defaultAddress))
            .arg(SoundEngine::defaultPort),
        QStringLiteral("ADDRESS[:PORT]"));
    const QCommandLineOption module(QStringLiteral("module"),
                                    QStringLiteral("Where the module is, before it sends anything."),
                                    QStringLiteral("ADDRESS:PORT"));
    const QCommandLineOption verbose(QStringLiteral("verbose"),
                                     QStringLiteral("Print a line for every message of the module."));
    const QCommandLineOption groove(QStringLiteral("groove"),
                                    QStringLiteral("Play drums (the default without a scenario)."));
    const QCommandLineOption noGroove(QStringLiteral("no-groove"), QStringLiteral("Do not play drums."));
    const QCommandLineOption scenario(QStringLiteral("scenario"), QStringLiteral("Play a scenario."),
                                      QStringLiteral("FILE"));
    const QCommandLineOption store(QStringLiteral("store"),
                                   QStringLiteral("Write the files that the module sends into a directory."),
                                   QStringLiteral("DIR"));
    const QCommandLineOption fail(QStringLiteral("fail"),
                                  QStringLiteral("Switch a failure mode on; may be given several times."),
                                  QStringLiteral("NAME[=N]"));
    const QCommandLineOption listFailures(QStringLiteral("list-failures"),
                                          QStringLiteral("List the failure modes and exit."));
    const QCommandLineOption seed(QStringLiteral("seed"), QStringLiteral("Seed of groove and failures (1)."),
                                  QStringLiteral("NUMBER"));
    const QCommandLineOption duration(QStringLiteral("duration"),
                                      QStringLiteral("End after this many seconds (above 0, up to 2000000)."),
                                      QStringLiteral("SECONDS"));
    parser.addOptions(
        {listen, module, verbose, groove, noGroove, scenario, store, fail, listFailures, seed, duration});

    const auto bad = [text](const QString &line) {
        *text = line;
        return OptionsResult::Bad;
    };
    if (!parser.parse(arguments))
        return bad(parser.errorText());
    if (!parser.positionalArguments().isEmpty())
        return bad(QStringLiteral("unexpected argument \"%1\"").arg(parser.positionalArguments().at(0)));
    if (parser.isSet(help) || parser.isSet(QStringLiteral("help-all"))) {
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

    options->verbose = parser.isSet(verbose);
    options->scenario = parser.value(scenario);
    options->groove = parser.isSet(groove) || (!parser.isSet(noGroove) && !parser.isSet(scenario));
    options->storeDirectory = parser.value(store);
    // Permissions are not all: root has them in places where nothing can be written.
    if (parser.isSet(store) &&
        !QTemporaryFile(options->storeDirectory + QStringLiteral("/try-XXXXXX")).open())
        return bad(QStringLiteral("--store: \"%1\" is no directory that can be written to")
                       .arg(options->storeDirectory));

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
    return OptionsResult::Run;
}

} // namespace simulated

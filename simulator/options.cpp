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

// The options that do not concern recordings.
class GeneralOptions
{
public:
    /// Adds the options to a parser.
    explicit GeneralOptions(QCommandLineParser *parser);

    /// What the program only prints, for --version or --list-failures. Empty if it runs.
    QString information() const;
    /// Returns false and sets problem to one line when an option is wrong.
    bool read(Options *options, QString *problem) const;
    /// False if an option excludes --replay.
    bool permitReplay() const;

private:
    bool readAddresses(Options *options, QString *problem) const;
    bool readVerbosity(Options *options, QString *problem) const;
    bool readGroove(Options *options, QString *problem) const;
    bool readStore(Options *options, QString *problem) const;
    bool readKit(Options *options, QString *problem) const;
    bool readFailures(Options *options, QString *problem) const;
    bool readSeed(Options *options, QString *problem) const;
    bool readDuration(Options *options, QString *problem) const;

    const QCommandLineParser &m_parser;
    const QCommandLineOption m_version;
    const QCommandLineOption m_midiIn{
        QStringLiteral("midi-in"),
        QStringLiteral("Play with an electronic drum kit: raw MIDI from a device file or FIFO."),
        QStringLiteral("PATH")};
    const QCommandLineOption m_noteMap{QStringLiteral("note-map"),
                                       QStringLiteral("Translate the notes of --midi-in; a line is FROM TO."),
                                       QStringLiteral("FILE")};
    const QCommandLineOption m_listen{
        QStringLiteral("listen"),
        QStringLiteral("Address to listen on (default %1:%2; port 0: a free one).")
            .arg(QLatin1String(defaultAddress))
            .arg(SoundEngine::defaultPort),
        QStringLiteral("ADDRESS[:PORT]")};
    const QCommandLineOption m_module{QStringLiteral("module"),
                                      QStringLiteral("Address of the module, if it does not send first."),
                                      QStringLiteral("ADDRESS:PORT")};
    const QCommandLineOption m_verbose{
        QStringLiteral("verbose"),
        QStringLiteral("Print a line for every message of the module. Given twice: also for what the engine\n"
                       "sends; three times: also for every packet of a file.")};
    const QCommandLineOption m_verbosity{
        QStringLiteral("verbosity"),
        QStringLiteral("The same as a number: 0 none (default), 1 received, 2 also sent, 3 also packets."),
        QStringLiteral("LEVEL")};
    const QCommandLineOption m_timestamps{QStringLiteral("timestamps"),
                                          QStringLiteral("Print the time of day before every line.")};
    const QCommandLineOption m_groove{QStringLiteral("groove"),
                                      QStringLiteral("Play drums (the default without a scenario).")};
    const QCommandLineOption m_noGroove{QStringLiteral("no-groove"), QStringLiteral("Do not play drums.")};
    const QCommandLineOption m_scenario{QStringLiteral("scenario"), QStringLiteral("Play a scenario."),
                                        QStringLiteral("FILE")};
    const QCommandLineOption m_store{QStringLiteral("store"),
                                     QStringLiteral("Write received files into a directory."),
                                     QStringLiteral("DIR")};
    const QCommandLineOption m_fail{QStringLiteral("fail"),
                                    QStringLiteral("Add a failure mode; may be repeated."),
                                    QStringLiteral("NAME[=N[,N]...]")};
    const QCommandLineOption m_listFailures{QStringLiteral("list-failures"),
                                            QStringLiteral("List the failure modes and exit.")};
    const QCommandLineOption m_seed{
        QStringLiteral("seed"), QStringLiteral("Seed of groove and failures (1)."), QStringLiteral("NUMBER")};
    const QCommandLineOption m_duration{
        QStringLiteral("duration"), QStringLiteral("End after this many seconds (above 0, up to 2000000)."),
        QStringLiteral("SECONDS")};
};

GeneralOptions::GeneralOptions(QCommandLineParser *parser)
    : m_parser(*parser)
    , m_version(parser->addVersionOption())
{
    parser->addOptions({m_midiIn, m_noteMap, m_listen, m_module, m_verbose, m_verbosity, m_timestamps,
                        m_groove, m_noGroove, m_scenario, m_store, m_fail, m_listFailures, m_seed,
                        m_duration});
}

QString GeneralOptions::information() const
{
    if (m_parser.isSet(m_version))
        return QCoreApplication::applicationName() + QLatin1Char(' ') +
               QCoreApplication::applicationVersion();
    if (m_parser.isSet(m_listFailures))
        return failureHelp().join(QLatin1Char('\n'));
    return {};
}

bool GeneralOptions::read(Options *options, QString *problem) const
{
    options->timestamps = m_parser.isSet(m_timestamps);
    options->scenario = m_parser.value(m_scenario);
    return readAddresses(options, problem) && readGroove(options, problem) &&
           readVerbosity(options, problem) && readStore(options, problem) && readKit(options, problem) &&
           readFailures(options, problem) && readSeed(options, problem) && readDuration(options, problem);
}

bool GeneralOptions::readAddresses(Options *options, QString *problem) const
{
    options->address = QHostAddress(QLatin1String(defaultAddress));
    options->port = SoundEngine::defaultPort;
    const QString wrong = QStringLiteral("--%1 takes an IPv4 address and a port, not \"%2\"");
    if (m_parser.isSet(m_listen) &&
        !readEndpoint(m_parser.value(m_listen), &options->address, &options->port)) {
        *problem = wrong.arg(QStringLiteral("listen"), m_parser.value(m_listen));
        return false;
    }
    if (m_parser.isSet(m_module) &&
        (!readEndpoint(m_parser.value(m_module), &options->moduleAddress, &options->modulePort) ||
         options->modulePort == 0)) {
        *problem = wrong.arg(QStringLiteral("module"), m_parser.value(m_module));
        return false;
    }
    return true;
}

bool GeneralOptions::readGroove(Options *options, QString *problem) const
{
    if (m_parser.isSet(m_groove) && m_parser.isSet(m_noGroove)) {
        *problem = QStringLiteral("--groove and --no-groove exclude each other");
        return false;
    }
    options->groove =
        m_parser.isSet(m_groove) || (!m_parser.isSet(m_noGroove) && !m_parser.isSet(m_scenario));
    return true;
}

bool GeneralOptions::readVerbosity(Options *options, QString *problem) const
{
    constexpr int most = int(Verbosity::Packets);
    int level = std::min(m_parser.optionNames().count(QStringLiteral("verbose")), most);
    if (m_parser.isSet(m_verbosity) && m_parser.isSet(m_verbose)) {
        *problem = QStringLiteral("--verbose and --verbosity exclude each other");
        return false;
    }
    if (m_parser.isSet(m_verbosity) && !readNumber(m_parser.value(m_verbosity), most, &level)) {
        *problem = QStringLiteral("--verbosity takes a number from 0 to %1, not \"%2\"")
                       .arg(most)
                       .arg(m_parser.value(m_verbosity));
        return false;
    }
    options->verbosity = Verbosity(level);
    return true;
}

bool GeneralOptions::readStore(Options *options, QString *problem) const
{
    options->storeDirectory = m_parser.value(m_store);
    // Creates a file instead of checking permissions, because even root cannot write everywhere.
    if (m_parser.isSet(m_store) &&
        !QTemporaryFile(options->storeDirectory + QStringLiteral("/try-XXXXXX")).open()) {
        *problem = QStringLiteral("--store: \"%1\" is not a writable directory").arg(options->storeDirectory);
        return false;
    }
    return true;
}

bool GeneralOptions::readKit(Options *options, QString *problem) const
{
    options->midiInput = m_parser.value(m_midiIn);
    options->noteMap = m_parser.value(m_noteMap);
    if (m_parser.isSet(m_midiIn) && options->midiInput.isEmpty())
        *problem = QStringLiteral("--midi-in takes a path");
    else if (m_parser.isSet(m_noteMap) && !m_parser.isSet(m_midiIn))
        *problem = QStringLiteral("--note-map needs --midi-in");
    else if (m_parser.isSet(m_noteMap) && options->noteMap.isEmpty())
        *problem = QStringLiteral("--note-map takes a file");
    else
        return true;
    return false;
}

bool GeneralOptions::readFailures(Options *options, QString *problem) const
{
    options->failures = m_parser.values(m_fail);
    FailureSet trial;
    for (const QString &failure : qAsConst(options->failures)) {
        if (!trial.add(failure, problem)) {
            problem->prepend(QStringLiteral("--fail: "));
            return false;
        }
    }
    return true;
}

bool GeneralOptions::readSeed(Options *options, QString *problem) const
{
    if (!m_parser.isSet(m_seed))
        return true;
    bool isNumber = false;
    options->seed = m_parser.value(m_seed).toUInt(&isNumber);
    if (!isNumber)
        *problem = QStringLiteral("--seed takes a number from 0, not \"%1\"").arg(m_parser.value(m_seed));
    return isNumber;
}

bool GeneralOptions::readDuration(Options *options, QString *problem) const
{
    if (!m_parser.isSet(m_duration))
        return true;
    constexpr int longest = 2000000;
    bool isNumber = false;
    const double seconds = m_parser.value(m_duration).toDouble(&isNumber);
    if (!isNumber || !(seconds > 0.0 && seconds <= longest)) {
        *problem = QStringLiteral("--duration takes seconds above 0, up to %1, not \"%2\"")
                       .arg(longest)
                       .arg(m_parser.value(m_duration));
        return false;
    }
    options->durationMs = qMax(1, int(seconds * 1000.0));
    return true;
}

bool GeneralOptions::permitReplay() const
{
    return !m_parser.isSet(m_groove) && !m_parser.isSet(m_scenario) && !m_parser.isSet(m_fail) &&
           !m_parser.isSet(m_store);
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
    const GeneralOptions general(&parser);
    const RecordingOptions recording(&parser);
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Show this help."));
    parser.addOption(help);

    const auto bad = [text](const QString &line) {
        *text = line;
        return OptionsResult::Bad;
    };
    if (!parser.parse(arguments))
        return bad(parser.errorText());
    if (!parser.positionalArguments().isEmpty())
        return bad(QStringLiteral("unexpected argument \"%1\"").arg(parser.positionalArguments().at(0)));
    *text = parser.isSet(help) ? parser.helpText().trimmed() : general.information();
    if (!text->isEmpty())
        return OptionsResult::Exit;
    if (!general.read(options, text) || !recording.read(parser, options, text))
        return OptionsResult::Bad;
    if (!options->replay.isEmpty() && !general.permitReplay())
        return bad(QStringLiteral("--replay excludes --groove, --scenario, --fail and --store"));
    return OptionsResult::Run;
}

} // namespace simulated

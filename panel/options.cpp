#include "options.h"

#include "tools/shared/commandline.h"

namespace {

constexpr char defaultSeconds[] = "5";
constexpr int leastWidth = 1024;
constexpr int leastHeight = 600;
constexpr int largestSide = 8192;

// The options as --help lists them.
struct CommandLine
{
    CommandLine()
    {
        parser.setApplicationDescription(
            QStringLiteral("A simulated sound engine with a window: the drum module's front and inside.\n\n"
                           "Exit status: 0 success; 1 could not start, or a picture could not be saved;\n"
                           "2 a wrong option."));
    }

    QList<QCommandLineOption> options() const
    {
        return {listen, groove, size, headless, pictures, help, version};
    }

    QCommandLineParser parser;
    const QCommandLineOption listen{
        QStringLiteral("listen"),
        QStringLiteral("Address to listen on (default 127.20.21.22:19797; port 0: a free one)."),
        QStringLiteral("ADDRESS[:PORT]")};
    const QCommandLineOption groove{QStringLiteral("groove"), QStringLiteral("Play drums from the start.")};
    const QCommandLineOption size{QStringLiteral("size"),
                                  QStringLiteral("Size of the window, 1024x600 or more (default 1024x600)."),
                                  QStringLiteral("WIDTHxHEIGHT")};
    const QCommandLineOption headless{
        QStringLiteral("headless"),
        QStringLiteral(
            "Without a display: wait up to SECONDS for a module, show every page in SECONDS, and end. "
            "SECONDS may be left out (%1).")
            .arg(QLatin1String(defaultSeconds)),
        QStringLiteral("SECONDS")};
    const QCommandLineOption pictures{
        QStringLiteral("screenshots"),
        QStringLiteral("With --headless: save a picture of every page into DIR."), QStringLiteral("DIR")};
    const QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Show this help.")};
    const QCommandLineOption version{QStringLiteral("version"), QStringLiteral("Show the version.")};
};

// QCommandLineParser has no options with an optional value.
QStringList withDefaultSeconds(QStringList arguments)
{
    const int headless = arguments.indexOf(QStringLiteral("--headless"));
    const bool hasValue =
        headless + 1 < arguments.size() && !arguments.at(headless + 1).startsWith(QLatin1Char('-'));
    if (headless >= 0 && !hasValue)
        arguments.insert(headless + 1, QLatin1String(defaultSeconds));
    return arguments;
}

// ADDRESS or ADDRESS:PORT, IPv4.
bool readEndpoint(const QString &text, PanelOptions *options)
{
    const QStringList parts = text.split(QLatin1Char(':'));
    bool portIsGood = !text.contains(QLatin1Char('+'));
    if (parts.size() == 2 && portIsGood)
        options->port = parts.at(1).toUShort(&portIsGood);
    // Three dots are required, because QHostAddress also accepts shortened forms.
    return parts.size() <= 2 && portIsGood && parts.at(0).count(QLatin1Char('.')) == 3 &&
           options->address.setAddress(parts.at(0)) &&
           options->address.protocol() == QAbstractSocket::IPv4Protocol;
}

bool readSize(const QString &text, QSize *size)
{
    const QStringList sides = text.split(QLatin1Char('x'));
    if (sides.size() != 2)
        return false;
    *size = QSize(sides.at(0).toInt(), sides.at(1).toInt());
    return size->width() >= leastWidth && size->height() >= leastHeight && size->width() <= largestSide &&
           size->height() <= largestSide;
}

// Reads the values of the options that are set. Returns an empty text, or an error message.
QString readValues(const CommandLine &line, PanelOptions *options)
{
    const QCommandLineParser &parser = line.parser;
    if (!parser.positionalArguments().isEmpty())
        return QStringLiteral("unexpected argument %1").arg(parser.positionalArguments().constFirst());
    if (parser.isSet(line.listen) && !readEndpoint(parser.value(line.listen), options))
        return QStringLiteral("--listen takes an IPv4 address and a port, not %1")
            .arg(parser.value(line.listen));
    if (parser.isSet(line.size) && !readSize(parser.value(line.size), &options->size))
        return QStringLiteral("--size takes WIDTHxHEIGHT, at least 1024x600, not %1")
            .arg(parser.value(line.size));
    options->groove = parser.isSet(line.groove);
    options->headless = parser.isSet(line.headless);
    if (options->headless) {
        bool isNumber = false;
        options->seconds = parser.value(line.headless).toDouble(&isNumber);
        // In this form the condition also rejects NaN.
        if (!isNumber || !(options->seconds >= 1.0 && options->seconds <= 3600.0))
            return QStringLiteral("--headless takes 1 to 3600 seconds, not %1")
                .arg(parser.value(line.headless));
    }
    options->pictures = parser.value(line.pictures);
    if (!options->pictures.isEmpty() && !options->headless)
        return QStringLiteral("--screenshots needs --headless");
    return {};
}

} // namespace

PanelOptions parsePanelOptions(const QStringList &arguments)
{
    CommandLine line;
    PanelOptions options;
    options.text = parseCommandLine(line.parser, line.options(), withDefaultSeconds(arguments));
    if (options.text.isEmpty() && line.parser.isSet(line.help)) {
        options.action = PanelOptions::Action::Show;
        options.text = commandLineHelp(line.parser, "zelta-panel");
        return options;
    }
    if (options.text.isEmpty() && line.parser.isSet(line.version)) {
        options.action = PanelOptions::Action::Show;
        options.text = QStringLiteral("zelta-panel " ZELTA_PANEL_VERSION "\n");
        return options;
    }
    if (options.text.isEmpty())
        options.text = readValues(line, &options);
    if (!options.text.isEmpty())
        options.action = PanelOptions::Action::Refuse;
    return options;
}

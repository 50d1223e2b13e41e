#include "options.h"

#include "pages.h"

#include "tools/shared/commandline.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace {

constexpr char defaultSeconds[] = "10";
constexpr char defaultSize[] = "1280x800";

// The options as --help lists them.
struct CommandLine
{
    CommandLine()
    {
        parser.setApplicationDescription(QStringLiteral(
            "The drum module's touch screen, on top of the ZeltaConnect QML module.\n\n"
            "The address of the engine is 172.20.21.22, or ADDRESS[:PORT] in ZELTACONNECT_ENGINE.\n\n"
            "Exit status: 0 success; 1 the screen failed or received nothing; 2 a wrong option or\n"
            "address."));
    }

    QList<QCommandLineOption> options() const
    {
        return {simulate, headless, screenshots, size, page, files, importDir, help, version};
    }

    QCommandLineParser parser;
    const QCommandLineOption simulate{
        QStringLiteral("simulate"),
        QStringLiteral(
            "Bring a simulated engine along, which plays drums. ZELTACONNECT_ENGINE is not used.")};
    const QCommandLineOption headless{
        QStringLiteral("headless"),
        QStringLiteral(
            "Without a display: show every page, move controls, report and end. SECONDS may be left out "
            "(%1).")
            .arg(QLatin1String(defaultSeconds)),
        QStringLiteral("SECONDS")};
    const QCommandLineOption screenshots{
        QStringLiteral("screenshots"),
        QStringLiteral("With --headless: save a picture of every page into DIR."), QStringLiteral("DIR")};
    const QCommandLineOption size{
        QStringLiteral("size"),
        QStringLiteral("Size of the window, 320x200 to 7680x4320 (%1). The screen is scaled to it.")
            .arg(QLatin1String(defaultSize)),
        QStringLiteral("WIDTHxHEIGHT"), QLatin1String(defaultSize)};
    const QCommandLineOption page{
        QStringLiteral("page"),
        QStringLiteral("Open this page first: %1.").arg(pageNames().join(QStringLiteral(", "))),
        QStringLiteral("NAME")};
    const QCommandLineOption files{
        QStringLiteral("files"),
        QStringLiteral("Folder that the update page opens (default: the home folder). "
                       "--headless sends its first file as a sound bank."),
        QStringLiteral("DIR")};
    const QCommandLineOption importDir{
        QStringLiteral("import"),
        QStringLiteral(
            "Folder that holds the ZeltaConnect module (default: ../qml of this program, or Qt's own "
            "folder)."),
        QStringLiteral("DIR")};
    const QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Show this help.")};
    const QCommandLineOption version{QStringLiteral("version"), QStringLiteral("Show the version.")};
};

Options refuse(const QString &error)
{
    Options options;
    options.action = Options::Action::Refuse;
    options.error = error;
    return options;
}

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

bool readSeconds(const QString &text, double &seconds)
{
    bool ok = false;
    const double value = text.toDouble(&ok);
    // In this form the condition also rejects NaN.
    if (!ok || !(value >= 1.0 && value <= 3600.0))
        return false;
    seconds = value;
    return true;
}

bool readSize(const QString &text, QSize &size)
{
    static const QRegularExpression form(QStringLiteral("^([0-9]{3,4})x([0-9]{3,4})$"));
    const QRegularExpressionMatch match = form.match(text);
    const QSize read(match.captured(1).toInt(), match.captured(2).toInt());
    if (read.width() < 320 || read.width() > 7680 || read.height() < 200 || read.height() > 4320)
        return false;
    size = read;
    return true;
}

// Reads the values of the options that are set. Returns an empty text, or an error message.
QString readValues(const CommandLine &line, Options *options)
{
    const QCommandLineParser &parser = line.parser;
    if (!parser.positionalArguments().isEmpty())
        return QStringLiteral("unexpected argument %1").arg(parser.positionalArguments().constFirst());
    options->simulate = parser.isSet(line.simulate);
    options->headless = parser.isSet(line.headless);
    if (options->headless && !readSeconds(parser.value(line.headless), options->seconds))
        return QStringLiteral("--headless takes 1 to 3600 seconds, not %1").arg(parser.value(line.headless));
    if (!readSize(parser.value(line.size), options->size))
        return QStringLiteral("--size takes 320x200 to 7680x4320, not %1").arg(parser.value(line.size));
    options->screenshots = parser.value(line.screenshots);
    options->importDir = parser.value(line.importDir);
    options->files = parser.value(line.files);
    if (parser.isSet(line.page))
        options->page = parser.value(line.page);
    if (!pageNames().contains(options->page))
        return QStringLiteral("unknown page %1; use one of %2")
            .arg(options->page, pageNames().join(QStringLiteral(", ")));
    if (!options->screenshots.isEmpty() && !options->headless)
        return QStringLiteral("--screenshots needs --headless");
    for (const QString &folder : {options->importDir, options->files}) {
        if (!folder.isEmpty() && !QFileInfo(folder).isDir())
            return QStringLiteral("no such folder: %1").arg(folder);
    }
    return {};
}

} // namespace

QString helpText()
{
    CommandLine line;
    line.parser.addOptions(line.options());
    return commandLineHelp(line.parser, "zelta-demo");
}

Options parseOptions(const QStringList &arguments)
{
    CommandLine line;
    QString problem = parseCommandLine(line.parser, line.options(), withDefaultSeconds(arguments));
    Options options;
    if (problem.isEmpty() && line.parser.isSet(line.help)) {
        options.action = Options::Action::Help;
        return options;
    }
    if (problem.isEmpty() && line.parser.isSet(line.version)) {
        options.action = Options::Action::Version;
        return options;
    }
    if (problem.isEmpty())
        problem = readValues(line, &options);
    return problem.isEmpty() ? options : refuse(problem);
}

#include "options.h"

#include "filegroups.h"
#include "listfile.h"

#include "tools/shared/commandline.h"
#include "tools/shared/engineaddress.h"
#include "tools/shared/numbers.h"

#include <QFileInfo>

namespace {

constexpr int longestTimeoutS = 24 * 60 * 60;

// The options as --help lists them.
struct CommandLine
{
    CommandLine()
    {
        parser.setApplicationDescription(QStringLiteral(
            "Sends files to the drum module's sound engine, through the same QML module as the touch\n"
            "screen, and reports the result. With --versions it asks for versions instead; --inspect\n"
            "looks at files, --diagnose at what the interface needs on this machine.\n\n"
            "Several files of different kinds: each is followed by its own --kind, --slot and --name,\n"
            "as in \"board.bin --kind trigger kit.bin --kind soundbank\", or stands in the file of\n"
            "--list. Bluetooth firmware consists of several files, which are sent in the order given.\n"
            "The first failure ends the run, unless --keep-going is given. Firmware is sent only if it\n"
            "is newer than what the module reports. Ctrl-C aborts a transfer; a second one exits at\n"
            "once.\n\n"
            "Exit status: 0 all sent; 1 the transfer failed; 2 wrong usage; 3 the file cannot be used;\n"
            "4 the engine does not answer, or time is up; 5 the firmware is not newer; 6 the QML module\n"
            "cannot be loaded; 7 the diagnosis found a fault; 130 interrupted."));
        parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("The file to send."),
                                     QStringLiteral("FILE..."));
    }

    QList<QCommandLineOption> options() const
    {
        return {file.kind, file.slot, file.name, list,   keepGoing, dryRun,  inspect, versions, diagnose,
                json,      quiet,     progress,  engine, importDir, timeout, help,    version};
    }

    QCommandLineParser parser;
    const FileOptions file;
    const QCommandLineOption list{
        QStringLiteral("list"),
        QStringLiteral("Send the files of this list: a line for each, as on the command line."),
        QStringLiteral("FILE")};
    const QCommandLineOption keepGoing{QStringLiteral("keep-going"),
                                       QStringLiteral("Send the other files after a failure.")};
    const QCommandLineOption dryRun{
        QStringLiteral("dry-run"),
        QStringLiteral("Check the files and the QML module, print what would be sent, and send nothing.")};
    const QCommandLineOption inspect{
        QStringLiteral("inspect"),
        QStringLiteral("Print what each file is and which version it has, and send nothing.")};
    const QCommandLineOption versions{QStringLiteral("versions"),
                                      QStringLiteral("Ask for the versions of the banks and print them.")};
    const QCommandLineOption diagnose{
        QStringLiteral("diagnose"),
        QStringLiteral("Check what the interface needs on this machine, and print how to mend each fault.")};
    const QCommandLineOption json{
        QStringLiteral("json"),
        QStringLiteral("Print the result as one JSON object, and progress as JSON lines on standard error.")};
    const QCommandLineOption quiet{QStringLiteral("quiet"),
                                   QStringLiteral("Print no progress and no summary; errors are printed.")};
    const QCommandLineOption progress{
        QStringLiteral("progress"),
        QStringLiteral("Print a line for each tenth of a file also where the output is no terminal.")};
    const QCommandLineOption engine{
        QStringLiteral("engine"),
        QStringLiteral("Address of the sound engine (default: ZELTACONNECT_ENGINE, or 172.20.21.22)."),
        QStringLiteral("ADDRESS[:PORT]")};
    const QCommandLineOption importDir{
        QStringLiteral("import"),
        QStringLiteral(
            "Folder that holds the ZeltaConnect module (default: ../qml of this program, or Qt's own "
            "folder)."),
        QStringLiteral("DIR")};
    const QCommandLineOption timeout{
        QStringLiteral("timeout"),
        QStringLiteral("Give up after this time (default: %1).").arg(Options::defaultTimeoutS),
        QStringLiteral("SECONDS")};
    const QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Show this help.")};
    const QCommandLineOption version{QStringLiteral("version"), QStringLiteral("Show the version.")};
};

// Also for arguments that cannot be parsed, so that their error is reported in the same way.
bool asksForJson(const QStringList &arguments)
{
    for (const QString &argument : arguments) {
        if (argument == QLatin1String("--"))
            return false;
        if (argument == QLatin1String("--json"))
            return true;
    }
    return false;
}

// Reads the options that do not describe a file. Returns an empty text, or an error message.
QString readValues(const CommandLine &line, Options *options)
{
    const QCommandLineParser &parser = line.parser;
    options->keepGoing = parser.isSet(line.keepGoing);
    options->quiet = parser.isSet(line.quiet);
    options->progress = parser.isSet(line.progress);
    if (options->quiet && options->progress)
        return QStringLiteral("--quiet and --progress exclude each other");
    options->engine = parser.value(line.engine);
    if (!options->engine.isEmpty() && !isEngineAddress(options->engine))
        return QStringLiteral("--engine takes an IPv4 address, or address:port, not %1").arg(options->engine);
    options->importDir = parser.value(line.importDir);
    if (!options->importDir.isEmpty() && !QFileInfo(options->importDir).isDir())
        return QStringLiteral("--import: no such folder: %1").arg(options->importDir);
    if (parser.isSet(line.timeout) &&
        !readNumber(parser.value(line.timeout), 1, longestTimeoutS, &options->timeoutS)) {
        return QStringLiteral("--timeout takes 1 to %1 seconds, not %2")
            .arg(longestTimeoutS)
            .arg(parser.value(line.timeout));
    }
    return {};
}

// Decides what to do. Returns an empty text, or a message about actions that exclude each other.
QString readAction(const CommandLine &line, Options *options)
{
    using Action = Options::Action;
    const struct
    {
        const QCommandLineOption &option;
        Action action;
    } actions[] = {{line.dryRun, Action::DryRun},
                   {line.inspect, Action::Inspect},
                   {line.versions, Action::AskVersions},
                   {line.diagnose, Action::Diagnose}};
    QString chosen;
    for (const auto &row : actions) {
        if (!line.parser.isSet(row.option))
            continue;
        const QString name = row.option.names().constFirst();
        if (!chosen.isEmpty())
            return QStringLiteral("--%1 and --%2 exclude each other").arg(chosen, name);
        chosen = name;
        options->action = row.action;
    }
    return {};
}

// Returns an empty text, or a message about an option that has no effect with the action.
QString checkEffects(const CommandLine &line, Options::Action action)
{
    using Action = Options::Action;
    const bool sendsFiles = action == Action::Send || action == Action::DryRun;
    QString option;
    if (line.parser.isSet(line.keepGoing) && !sendsFiles)
        option = line.keepGoing.names().constFirst();
    else if (line.parser.isSet(line.timeout) && (action == Action::Inspect || action == Action::Diagnose))
        option = line.timeout.names().constFirst();
    return option.isEmpty() ? QString()
                            : QStringLiteral("--%1 takes no --%2").arg(actionName(action), option);
}

// Reads the files. Returns an empty text, or an error message.
QString readFiles(CommandLine &line, const QStringList &arguments, Options *options)
{
    QCommandLineParser &parser = line.parser;
    const bool isDescribed =
        parser.isSet(line.file.kind) || parser.isSet(line.file.slot) || parser.isSet(line.file.name);
    const bool isListed = parser.isSet(line.list);
    options->files = parser.positionalArguments();
    switch (options->action) {
    case Options::Action::AskVersions:
    case Options::Action::Diagnose:
        return isDescribed || isListed || !options->files.isEmpty()
                   ? QStringLiteral("--%1 sends no files").arg(actionName(options->action))
                   : QString();
    case Options::Action::Inspect:
        if (isDescribed || isListed)
            return QStringLiteral("--inspect takes nothing but files");
        return options->files.isEmpty() ? QStringLiteral("no file given") : QString();
    default: break;
    }
    if (isListed) {
        if (parser.values(line.list).size() > 1)
            return QStringLiteral("--list is given twice");
        return isDescribed || !options->files.isEmpty()
                   ? QStringLiteral("--list names all files and their kinds; give no others")
                   : readListFile(parser.value(line.list), &options->jobs);
    }
    QVector<FileGroup> groups;
    QString problem = groupFiles(parser, line.file, arguments, &groups);
    for (int i = 0; i < groups.size() && problem.isEmpty(); ++i)
        problem = appendJobs(groups.at(i), &options->jobs);
    return problem;
}

} // namespace

QString helpText()
{
    CommandLine line;
    line.parser.addOptions(line.options());
    return commandLineHelp(line.parser, "zelta-send");
}

QString actionName(Options::Action action)
{
    switch (action) {
    case Options::Action::Send: return QStringLiteral("send");
    case Options::Action::DryRun: return QStringLiteral("dry-run");
    case Options::Action::AskVersions: return QStringLiteral("versions");
    case Options::Action::Inspect: return QStringLiteral("inspect");
    case Options::Action::Diagnose: return QStringLiteral("diagnose");
    case Options::Action::Help: return QStringLiteral("help");
    case Options::Action::Version: return QStringLiteral("version");
    case Options::Action::Refuse: return QStringLiteral("none");
    }
    return {};
}

Options parseOptions(const QStringList &arguments)
{
    CommandLine line;
    Options options;
    QString problem = parseCommandLine(line.parser, line.options(), arguments);
    options.json = asksForJson(arguments);
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
    if (problem.isEmpty())
        problem = readAction(line, &options);
    if (problem.isEmpty())
        problem = checkEffects(line, options.action);
    if (problem.isEmpty())
        problem = readFiles(line, arguments, &options);
    if (!problem.isEmpty()) {
        options.action = Options::Action::Refuse;
        options.error = problem;
    }
    return options;
}

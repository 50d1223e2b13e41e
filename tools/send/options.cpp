#include "options.h"

#include "tools/shared/engineaddress.h"

#include <QFileInfo>

namespace {

constexpr int largestSlot = 0xFFFF;
constexpr int longestTimeoutS = 24 * 60 * 60;

Options refuse(const QString &error)
{
    Options options;
    options.action = Options::Action::Refuse;
    options.error = error;
    return options;
}

bool readNumber(const QString &text, int least, int most, int *number)
{
    bool ok = false;
    *number = text.toInt(&ok);
    return ok && *number >= least && *number <= most;
}

// Empty when value suits the option, else what is wrong with it.
QString readValue(const QString &option, const QString &value, Options *options)
{
    if (option == QLatin1String("--kind")) {
        options->kind = kindNamed(value);
        if (!options->kind)
            return QStringLiteral("there is no kind %1; there are %2")
                .arg(value, kindNames().join(QStringLiteral(", ")));
    } else if (option == QLatin1String("--slot")) {
        if (!readNumber(value, 0, largestSlot, &options->slot))
            return QStringLiteral("--slot takes 0 to %1, not %2").arg(largestSlot).arg(value);
    } else if (option == QLatin1String("--name")) {
        options->name = value;
    } else if (option == QLatin1String("--engine")) {
        if (!isEngineAddress(value))
            return QStringLiteral("--engine takes an IPv4 address, or address:port, not %1").arg(value);
        options->engine = value;
    } else if (option == QLatin1String("--import")) {
        if (!QFileInfo(value).isDir())
            return QStringLiteral("--import: no such folder: %1").arg(value);
        options->importDir = value;
    } else if (option == QLatin1String("--timeout")) {
        if (!readNumber(value, 1, longestTimeoutS, &options->timeoutS))
            return QStringLiteral("--timeout takes 1 to %1 seconds, not %2").arg(longestTimeoutS).arg(value);
    } else {
        return QStringLiteral("unknown option %1").arg(option);
    }
    return {};
}

bool takesValue(const QString &option)
{
    static const QStringList withValue = {QStringLiteral("--kind"),   QStringLiteral("--slot"),
                                          QStringLiteral("--name"),   QStringLiteral("--engine"),
                                          QStringLiteral("--import"), QStringLiteral("--timeout")};
    return withValue.contains(option);
}

// What does not fit together, empty when all does.
QString contradiction(const Options &options)
{
    const QString kind = options.kind ? QLatin1String(options.kind->option) : QString();
    const Kind::Extra extra = options.kind ? options.kind->extra : Kind::Extra::None;
    if (options.action == Options::Action::AskVersions)
        return options.kind || !options.files.isEmpty() ? QStringLiteral("--versions sends no files")
                                                        : QString();
    if (!options.kind)
        return QStringLiteral("what kind of file? --kind is missing");
    if (options.files.isEmpty())
        return QStringLiteral("no file given");
    if (options.files.size() > 1 && !options.kind->isSet)
        return QStringLiteral("--kind %1 takes one file").arg(kind);
    if (extra != Kind::Extra::None && options.slot < 0)
        return QStringLiteral("--kind %1 needs --slot").arg(kind);
    if (extra == Kind::Extra::None && options.slot >= 0)
        return QStringLiteral("--kind %1 has no slot").arg(kind);
    if (extra != Kind::Extra::SlotAndName && !options.name.isEmpty())
        return QStringLiteral("--kind %1 has no name").arg(kind);
    return {};
}

} // namespace

QString helpText()
{
    return QStringLiteral(
               "Usage: zelta-send --kind KIND [OPTION]... FILE...\n"
               "       zelta-send --versions [OPTION]...\n"
               "Sends a file to the drum module's sound engine, through the same QML module as the touch\n"
               "screen, and tells how it ended.\n"
               "\n"
               "  --kind KIND        %1\n"
               "  --slot NUMBER      slot of an import, 0 to 65535\n"
               "  --name NAME        name of an imported sound bank (its file's name)\n"
               "  --versions         ask for the versions of the banks and print them\n"
               "  --engine ADDRESS[:PORT]\n"
               "                     where the sound engine is (ZELTACONNECT_ENGINE, or 172.20.21.22)\n"
               "  --import DIR       folder holding the ZeltaConnect module (../qml of this program, or\n"
               "                     Qt's own folder)\n"
               "  --timeout SECONDS  give up after this time (%2)\n"
               "  -h, --help, --version\n"
               "\n"
               "Bluetooth firmware comes as several files, sent in the order given; the first that fails\n"
               "ends the run. Firmware is sent only if it is newer than what the module reports.\n"
               "Ctrl-C breaks a transfer off; a second one does not wait for the pause it may be in.\n"
               "\n"
               "Exit status: 0 all sent; 1 the transfer failed; 2 wrong usage; 3 the file cannot be used;\n"
               "4 the engine does not answer, or time is up; 5 the firmware is not newer; 6 the QML module\n"
               "cannot be loaded; 130 interrupted.\n")
        .arg(kindNames()
                 .join(QStringLiteral(", "))
                 .replace(QStringLiteral("triggerbank, "),
                          QStringLiteral("triggerbank,\n                     ")))
        .arg(Options::defaultTimeoutS);
}

Options parseOptions(const QStringList &arguments)
{
    Options options;
    bool onlyFiles = false;
    for (int i = 0; i < arguments.size(); ++i) {
        const QString &argument = arguments.at(i);
        if (onlyFiles || !argument.startsWith(QLatin1Char('-'))) {
            options.files.append(argument);
        } else if (argument == QLatin1String("--")) {
            onlyFiles = true;
        } else if (argument == QLatin1String("--help") || argument == QLatin1String("-h")) {
            options.action = Options::Action::Help;
            return options;
        } else if (argument == QLatin1String("--version")) {
            options.action = Options::Action::Version;
            return options;
        } else if (argument == QLatin1String("--versions")) {
            options.action = Options::Action::AskVersions;
        } else {
            // Both forms are common: "--slot 5" and "--slot=5".
            const int equals = argument.indexOf(QLatin1Char('='));
            const QString option = argument.left(equals);
            if (equals < 0 && takesValue(option) && i + 1 == arguments.size())
                return refuse(QStringLiteral("%1 needs a value").arg(option));
            const QString value = equals >= 0          ? argument.mid(equals + 1)
                                  : takesValue(option) ? arguments.at(++i)
                                                       : QString();
            const QString error = readValue(option, value, &options);
            if (!error.isEmpty())
                return refuse(error);
        }
    }
    const QString error = contradiction(options);
    return error.isEmpty() ? options : refuse(error);
}

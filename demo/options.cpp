#include "options.h"

#include <QFileInfo>

namespace {

Options refuse(const QString &error)
{
    Options options;
    options.action = Options::Action::Refuse;
    options.error = error;
    return options;
}

bool isValue(const QStringList &arguments, int index)
{
    return index < arguments.size() && !arguments.at(index).startsWith(QLatin1Char('-'));
}

bool readSeconds(const QString &text, double &seconds)
{
    bool ok = false;
    const double value = text.toDouble(&ok);
    // Written so that a text that reads as "not a number" is refused too.
    if (!ok || !(value >= 1.0 && value <= 3600.0))
        return false;
    seconds = value;
    return true;
}

QString missingFolder(const QString &path)
{
    return QFileInfo(path).isDir() ? QString() : QStringLiteral("no such folder: %1").arg(path);
}

} // namespace

QStringList pageNames()
{
    return {QStringLiteral("kit"),        QStringLiteral("mixer"),   QStringLiteral("equaliser"),
            QStringLiteral("compressor"), QStringLiteral("effects"), QStringLiteral("metronome"),
            QStringLiteral("padsound"),   QStringLiteral("update")};
}

QString helpText()
{
    return QStringLiteral(
               "Usage: zelta-demo [OPTION]...\n"
               "The drum module's touch screen, on top of the ZeltaConnect QML module.\n"
               "\n"
               "  --headless [SECONDS]  without a display: tour every page, move controls, report, end (10)\n"
               "  --screenshots DIR     with --headless: save a picture of every page into DIR\n"
               "  --page NAME           open this page first: %1\n"
               "  --files DIR           folder the update page starts in (the home folder); the tour sends "
               "its\n"
               "                        first file as a sound bank\n"
               "  --import DIR          folder holding the ZeltaConnect module (../qml of this program)\n"
               "  -h, --help            this text\n"
               "  --version             the version\n"
               "\n"
               "The engine is sought at 172.20.21.22, or at ADDRESS[:PORT] in ZELTACONNECT_ENGINE.\n"
               "Exit status: 0 all well, 1 the screen failed or nothing was heard, 2 a wrong option or "
               "address.\n")
        .arg(pageNames().join(QStringLiteral(", ")));
}

Options parseOptions(const QStringList &arguments)
{
    Options options;
    for (int i = 0; i < arguments.size(); ++i) {
        const QString &argument = arguments.at(i);
        if (argument == QLatin1String("--help") || argument == QLatin1String("-h")) {
            options.action = Options::Action::Help;
            return options;
        }
        if (argument == QLatin1String("--version")) {
            options.action = Options::Action::Version;
            return options;
        }
        // Both forms are common: "--page kit" and "--page=kit".
        const int equals = argument.indexOf(QLatin1Char('='));
        const QString option = argument.left(equals);
        const bool isJoined = equals >= 0;
        const bool hasValue = isJoined ? equals + 1 < argument.size() : isValue(arguments, i + 1);
        if (option == QLatin1String("--headless")) {
            options.headless = true;
            if (!hasValue && !isJoined)
                continue;
            const QString seconds = isJoined ? argument.mid(equals + 1) : arguments.at(++i);
            if (!readSeconds(seconds, options.seconds))
                return refuse(QStringLiteral("--headless takes 1 to 3600 seconds, not %1").arg(seconds));
            continue;
        }

        QString *value = option == QLatin1String("--screenshots") ? &options.screenshots
                         : option == QLatin1String("--import")    ? &options.importDir
                         : option == QLatin1String("--files")     ? &options.files
                         : option == QLatin1String("--page")      ? &options.page
                                                                  : nullptr;
        if (!value)
            return refuse(QStringLiteral("unknown option %1").arg(option));
        if (!hasValue)
            return refuse(QStringLiteral("%1 needs a value").arg(option));
        *value = isJoined ? argument.mid(equals + 1) : arguments.at(++i);
    }

    if (!pageNames().contains(options.page))
        return refuse(QStringLiteral("no page is called %1; there are: %2")
                          .arg(options.page, pageNames().join(QStringLiteral(", "))));
    if (!options.screenshots.isEmpty() && !options.headless)
        return refuse(QStringLiteral("--screenshots goes with --headless"));
    for (const QString &folder : {options.importDir, options.files}) {
        const QString error = folder.isEmpty() ? QString() : missingFolder(folder);
        if (!error.isEmpty())
            return refuse(error);
    }
    return options;
}

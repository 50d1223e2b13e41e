#include "commandline.h"

#include <QCoreApplication>

QString parseCommandLine(QCommandLineParser &parser, const QList<QCommandLineOption> &options,
                         const QStringList &arguments)
{
    parser.addOptions(options);
    const bool isParsed = parser.parse(QStringList(QString()) + arguments);
    const QStringList unknown = parser.unknownOptionNames();
    if (!unknown.isEmpty()) {
        const QString &name = unknown.constFirst();
        return QStringLiteral("unknown option %1%2").arg(QLatin1String(name.size() > 1 ? "--" : "-"), name);
    }
    for (const QCommandLineOption &option : options) {
        if (option.valueName().isEmpty() || !parser.isSet(option))
            continue;
        const QString value = parser.value(option);
        if (value.isEmpty() || value.startsWith(QLatin1String("--")))
            return QStringLiteral("--%1 needs a value").arg(option.names().constFirst());
    }
    return isParsed ? QString() : parser.errorText();
}

QString commandLineHelp(const QCommandLineParser &parser, const char *program)
{
    // The parser reads the name from the application object.
    QByteArray name(program);
    char *arguments[] = {name.data(), nullptr};
    int count = 1;
    const QCoreApplication application(count, arguments);
    return parser.helpText();
}

// Sends files to the drum module's sound engine without a screen.

#include "display.h"
#include "module.h"
#include "options.h"
#include "session.h"

#include "tools/shared/engineaddress.h"
#include "tools/shared/quitonsignal.h"

#include <QCoreApplication>
#include <QLoggingCategory>
#include <QTextStream>

#include <optional>

namespace {

int complain(ExitStatus status, const QString &line)
{
    QTextStream(stderr) << "zelta-send: " << line << '\n';
    return int(status);
}

int run(const Options &options)
{
    Display display;
    Module module(options.importDir);
    if (!module.object())
        return complain(ExitStatus::NoModule, module.error());

    // From here on an interrupted program takes its leave of the module; it goes before the module does, so
    // that who does not want to wait for that can interrupt again.
    std::optional<QuitOnSignal> quitOnSignal(std::in_place);
    Session session(module.object(), options, display);
    Outcome outcome{ExitStatus::Interrupted, QStringLiteral("interrupted")};
    QObject::connect(&session, &Session::finished, &session, [&outcome](const Outcome &result) {
        outcome = result;
        QCoreApplication::quit();
    });
    session.start();
    QCoreApplication::exec();
    quitOnSignal.reset();
    display.close();
    return outcome.words.isEmpty() ? int(outcome.status) : complain(outcome.status, outcome.words);
}

} // namespace

int main(int argc, char *argv[])
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const Options options = parseOptions(arguments);
    switch (options.action) {
    case Options::Action::Help: QTextStream(stdout) << helpText(); return 0;
    case Options::Action::Version: QTextStream(stdout) << "zelta-send " ZELTACONNECT_VERSION "\n"; return 0;
    case Options::Action::Refuse:
        return complain(ExitStatus::Misused, options.error + QStringLiteral(" (see --help)"));
    case Options::Action::Send:
    case Options::Action::AskVersions: break;
    }
    // All files first: half a set of bluetooth firmware is worse than none.
    for (const QString &path : options.files) {
        const QString problem = fileProblem(path);
        if (!problem.isEmpty())
            return complain(ExitStatus::BadFile, problem);
    }
    if (!options.engine.isEmpty())
        qputenv(engineVariable, options.engine.toLatin1());
    const QString problem = engineVariableProblem();
    if (!problem.isEmpty())
        return complain(ExitStatus::Misused, problem);

    QCoreApplication application(argc, argv);
    // What the module logs about pads and tempo is nothing for the person who sends a file.
    QLoggingCategory::setFilterRules(QStringLiteral("zeltaconnect.*.debug=false"));
    return run(options);
}

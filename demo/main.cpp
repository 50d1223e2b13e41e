#include "options.h"
#include "qmlcomplaints.h"
#include "report.h"
#include "screenhost.h"
#include "simulatedengine.h"
#include "tour.h"

#include "tools/shared/engineaddress.h"
#include "tools/shared/quitonsignal.h"
#include "tools/shared/toolsping.h"

#include <QFont>
#include <QGuiApplication>
#include <QTextStream>

#include <memory>

namespace {

enum ExitStatus { Well = 0, Failed = 1, Misused = 2 };

void complain(const QString &line)
{
    QTextStream(stderr) << "zelta-demo: " << line << '\n';
}

void useNoDisplay()
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (qEnvironmentVariableIsEmpty("QT_QUICK_BACKEND"))
        qputenv("QT_QUICK_BACKEND", "software");
}

int runTour(ScreenHost &host, const Options &options)
{
    Tour tour(host, options);
    bool complete = false;
    QObject::connect(&tour, &Tour::finished, qApp, [&complete] {
        complete = true;
        QCoreApplication::quit();
    });
    tour.start();
    QCoreApplication::exec();

    const Report report = makeReport(host.shell());
    QTextStream out(stdout);
    for (const QString &line : report.lines)
        out << line << '\n';
    if (!options.screenshots.isEmpty())
        out << "screenshots: " << tour.picturesSaved() << " in " << options.screenshots << '\n';
    out.flush();

    QStringList problems = tour.problems();
    if (!complete)
        problems.append(QStringLiteral("interrupted before every page was shown"));
    if (!report.missing.isEmpty())
        problems.append(QStringLiteral("nothing of this reached the screen: ") +
                        report.missing.join(QStringLiteral(", ")));
    const QStringList complaints = QmlComplaints::collected();
    if (!complaints.isEmpty()) {
        problems.append(QStringLiteral("%1 QML complaints, the first: %2")
                            .arg(complaints.size())
                            .arg(complaints.first()));
    }
    for (const QString &problem : qAsConst(problems))
        complain(problem);
    return problems.isEmpty() ? Well : Failed;
}

} // namespace

int main(int argc, char *argv[])
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const Options options = parseOptions(arguments);
    switch (options.action) {
    case Options::Action::Help: QTextStream(stdout) << helpText(); return Well;
    case Options::Action::Version: QTextStream(stdout) << "zelta-demo " ZELTA_DEMO_VERSION "\n"; return Well;
    case Options::Action::Refuse: complain(options.error + QStringLiteral(" (see --help)")); return Misused;
    case Options::Action::Run: break;
    }
    const QString problem = options.simulate ? QString() : engineVariableProblem();
    if (!problem.isEmpty()) {
        complain(problem);
        return Misused;
    }

    if (options.headless)
        useNoDisplay();
    QGuiApplication application(argc, argv);
    useToolsPing();
    QGuiApplication::setApplicationName(QStringLiteral("zelta-demo"));
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setHintingPreference(QFont::PreferNoHinting);
    QGuiApplication::setFont(font);
    QmlComplaints::collect();
    QuitOnSignal quitOnSignal;

    // Constructed before the screen and its module, and destroyed after them.
    std::unique_ptr<SimulatedEngine> engine;
    if (options.simulate) {
        engine = std::make_unique<SimulatedEngine>();
        if (!engine->start()) {
            complain(engine->error());
            return Failed;
        }
        qputenv(engineVariable, engine->address().toLatin1());
    }
    ScreenHost host;
    if (!host.load(options)) {
        complain(host.error());
        return Failed;
    }
    if (options.headless)
        return runTour(host, options);
    return QCoreApplication::exec();
}

#include "programrun.h"

#include "support/patience.h"

#include <QTest>

ProgramRun runZeltaSend(const QStringList &arguments, const QProcessEnvironment &environment)
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(ZELTA_SEND), arguments);
    ProgramRun run;
    // With the event loop, so that an engine in this process can answer.
    const bool ended = QTest::qWaitFor([&process] { return process.state() == QProcess::NotRunning; },
                                       testsupport::patienceMs);
    if (!ended) {
        process.kill();
        process.waitForFinished();
    }
    run.output = process.readAllStandardOutput();
    run.errors = process.readAllStandardError();
    if (ended && process.error() == QProcess::UnknownError && process.exitStatus() == QProcess::NormalExit)
        run.status = process.exitCode();
    return run;
}

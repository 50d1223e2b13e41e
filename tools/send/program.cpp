#include "program.h"

#include "diagnosis/diagnosis.h"
#include "enginetarget.h"
#include "inspection.h"
#include "jobcheck.h"
#include "module.h"
#include "options.h"
#include "reporter.h"
#include "session.h"

#include "tools/shared/engineaddress.h"
#include "tools/shared/quitonsignal.h"
#include "tools/shared/toolsping.h"

#include <QCoreApplication>
#include <QLoggingCategory>

#include <optional>

Program::Program(const Options &options, Reporter &reporter)
    : m_options(options)
    , m_reporter(reporter)
{
    m_result.action = actionName(options.action);
}

Program::~Program() = default;

Result Program::run()
{
    switch (m_options.action) {
    case Options::Action::Help:
        m_result.outcome.message = helpText();
        m_reporter.answer(m_result.outcome.message.trimmed());
        break;
    case Options::Action::Version:
        m_reporter.answer(QStringLiteral("zelta-send " ZELTACONNECT_VERSION));
        break;
    case Options::Action::Refuse:
        m_result.outcome = {ExitStatus::Misused, m_options.error + QStringLiteral(" (see --help)")};
        break;
    case Options::Action::Inspect: inspectFiles(m_options, m_reporter, &m_result); break;
    case Options::Action::DryRun: rehearseSending(); break;
    case Options::Action::Diagnose: diagnose(); break;
    case Options::Action::AskVersions:
    case Options::Action::Send: send(); break;
    }
    return m_result;
}

// Returns false if the variable has no address: the module would use the one of the real engine.
bool Program::chooseEngine()
{
    if (!m_options.engine.isEmpty())
        qputenv(engineVariable, m_options.engine.toLatin1());
    const QString problem = engineVariableProblem();
    if (!problem.isEmpty()) {
        m_result.outcome = {ExitStatus::Misused, problem};
        return false;
    }
    m_result.engine = engineTarget().text();
    return true;
}

void Program::send()
{
    if (!checkJobs(m_options, m_reporter, &m_result) || !chooseEngine())
        return;
    warnOfOtherKinds(m_options, m_reporter, &m_result);
    useToolsPing();
    // Debug messages about pads and tempo are not useful here.
    QLoggingCategory::setFilterRules(QStringLiteral("zeltaconnect.*.debug=false"));
    runSession();
}

void Program::rehearseSending()
{
    if (!checkJobs(m_options, m_reporter, &m_result) || !chooseEngine())
        return;
    warnOfOtherKinds(m_options, m_reporter, &m_result);
    const QString problem = Module::problem(m_options.importDir);
    if (!problem.isEmpty()) {
        m_result.outcome = {ExitStatus::NoModule, problem};
        return;
    }
    rehearse(m_options, m_reporter, &m_result);
}

void Program::runSession()
{
    // A signal ends the event loop, and the module shuts down in order. For a user this begins after the
    // start of the module, so that Ctrl-C ends the program at once before; a script gets its result in either
    // case.
    std::optional<QuitOnSignal> quitOnSignal;
    if (m_options.json)
        quitOnSignal.emplace();
    m_module = std::make_unique<Module>(m_options.importDir);
    if (!m_module->sender()) {
        m_result.outcome = {ExitStatus::NoModule, m_module->error()};
        return;
    }
    // The object is destroyed before the module, so that a second signal ends the program at once.
    if (!quitOnSignal)
        quitOnSignal.emplace();
    Session session(m_module->sender(), m_options, m_reporter, &m_result);
    bool isFinished = false;
    QObject::connect(&session, &Session::finished, &session, [&isFinished] {
        isFinished = true;
        QCoreApplication::quit();
    });
    session.start();
    QCoreApplication::exec();
    if (!isFinished)
        session.interrupt();
}

void Program::diagnose()
{
    // A script gets its result also if the signal is sent twice, as timeout(1) does.
    m_interruption.emplace(m_options.json ? Interruption::SecondSignal::IsRecorded
                                          : Interruption::SecondSignal::EndsProgram);
    if (!chooseEngine())
        return;
    QLoggingCategory::setFilterRules(QStringLiteral("zeltaconnect.*.debug=false"));
    QStringList faults;
    diagnoseInterface(m_options.importDir, [this, &faults](const Finding &finding) {
        m_reporter.finding(finding);
        m_result.findings.append(finding);
        if (finding.state == Finding::State::Fault)
            faults.append(finding.name);
    });
    if (Interruption::isRequested()) {
        m_result.outcome = {ExitStatus::Interrupted, QStringLiteral("interrupted")};
    } else if (!faults.isEmpty()) {
        m_result.outcome = {ExitStatus::FaultFound,
                            QStringLiteral("faults found: ") + faults.join(QStringLiteral(", "))};
    }
}

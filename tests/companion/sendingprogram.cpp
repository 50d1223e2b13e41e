#include "sendingprogram.h"

using ReceivedOutcome = simulated::ReceivedFile::Outcome;

SendingProgram::SendingProgram(EngineThread &thread, const QString &address, const TransferKind &kind,
                               const QString &mode, const QString &path, int timeoutMs)
    : m_kind(kind)
    , m_address(address)
    , m_mode(mode.section(QLatin1Char('='), 0, 0))
    , m_modeText(mode)
    , m_path(path)
    , m_timeoutMs(timeoutMs)
    , m_engine(thread, address)
{}

SendingProgram::~SendingProgram()
{
    m_process.kill();
    m_process.waitForFinished();
}

void SendingProgram::start()
{
    if (!m_engine.fail(m_modeText))
        qFatal("%s is not a failure mode", qPrintable(m_modeText));
    const OutcomeKind &kind = outcomeKindOf(m_kind.content);
    QStringList arguments = {QStringLiteral("--engine"), m_address, QStringLiteral("--kind"),
                             QLatin1String(kind.option), m_path};
    if (qstrncmp(kind.option, "import-", 7) == 0)
        arguments += QStringLiteral("--slot=7");
    m_process.start(QStringLiteral(ZELTA_SEND), arguments);
    m_since.start();
}

bool SendingProgram::isOver()
{
    return m_process.state() == QProcess::NotRunning || m_since.hasExpired(m_timeoutMs);
}

QString SendingProgram::verdict()
{
    if (m_process.state() != QProcess::NotRunning)
        return QStringLiteral("still running after %1 ms").arg(m_timeoutMs);
    const int status = m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
    const QString output = QString::fromLocal8Bit(m_process.readAllStandardOutput());
    const QString errors = QString::fromLocal8Bit(m_process.readAllStandardError());
    const QVector<SoundEngine::ReceivedFile> files = m_engine.files();
    const bool arrived = files.size() == 1 && files.first().outcome == ReceivedOutcome::Whole;

    const QString seen =
        QStringLiteral("exit status %1, %2; %3%4")
            .arg(status)
            .arg(arrived ? QStringLiteral("the file arrived") : QStringLiteral("no file"), output, errors);
    if (outcomeVaries(m_mode))
        return (status == 0) == arrived ? QString() : seen;
    const Outcome &expected = *outcomeOf(outcomeKindOf(m_kind.content), m_mode);
    if (status != expected.exitStatus || arrived != (expected.arrives && expected.exitStatus != 4))
        return seen;
    if (status == 0)
        return errors.isEmpty() && output.contains(QStringLiteral(": %1, ").arg(expected.printed)) ? QString()
                                                                                                   : seen;
    QString line = expected.printed.isEmpty() ? expected.message : expected.printed;
    if (line.endsWith(QLatin1Char('.')))
        line.chop(1);
    return errors.endsWith(line + QLatin1Char('\n')) && errors.count(QLatin1Char('\n')) == 1 ? QString()
                                                                                             : seen;
}

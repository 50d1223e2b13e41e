#include "sendrun.h"

#include <QTest>

SendRun::SendRun(int number, const QString &failure)
    : SendRun(QStringLiteral("127.20.27.%1").arg(number), failure)
{}

SendRun::SendRun(const QString &address, const QString &failure)
    : m_address(address)
{
    // The same test in another build tree may use the address.
    if (!QTest::qWaitFor([this] { return m_engine.listen(QHostAddress(m_address)); }, 20000))
        qFatal("%s: %s", qPrintable(m_address), qPrintable(m_engine.errorString()));
    QString problem;
    if (!failure.isEmpty() && !m_engine.setFailure(failure, &problem))
        qFatal("%s", qPrintable(problem));
}

SendRun::~SendRun()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.kill();
    m_process.waitForFinished();
}

void SendRun::start(const QStringList &arguments)
{
    m_process.start(QStringLiteral(ZELTA_SEND),
                    QStringList{QStringLiteral("--engine"), m_address} + arguments);
}

int SendRun::exitStatus(int timeoutMs)
{
    const bool ended = QTest::qWaitFor(
        [this] {
            return m_process.state() == QProcess::NotRunning && m_process.error() == QProcess::UnknownError;
        },
        timeoutMs);
    m_output += m_process.readAllStandardOutput();
    m_errors += m_process.readAllStandardError();
    return ended && m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}

QString SendRun::output()
{
    return QString::fromLocal8Bit(m_output);
}

QString SendRun::errors()
{
    return QString::fromLocal8Bit(m_errors);
}

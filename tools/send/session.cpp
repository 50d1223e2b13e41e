#include "session.h"

#include "enginetags.h"
#include "filelook.h"
#include "fileproblem.h"
#include "jobcheck.h"
#include "reporter.h"

#include <QFileInfo>

namespace {

/// How long the module waits for the answer to a query before it starts the next task.
constexpr int answerWaitMs = 20000;
/// Added to that wait where this program must time out after the module.
constexpr int answerMarginMs = 1000;

constexpr int bankQueries = 2;
constexpr int clockMs = 500;

// A sentence of the companion module as the end of a line of this program.
QString lineEnd(QString sentence)
{
    if (sentence.endsWith(QLatin1Char('.')))
        sentence.chop(1);
    if (!sentence.isEmpty())
        sentence.replace(0, 1, sentence.at(0).toLower());
    return sentence;
}

} // namespace

Session::Session(QObject *sender, const Options &options, Reporter &reporter, Result *result)
    : m_sender(sender)
    , m_module(sender->property("zelta").value<QObject *>())
    , m_transfer(sender->property("transfer").value<QObject *>())
    , m_options(options)
    , m_reporter(reporter)
    , m_result(*result)
    , m_timeUp(this)
    , m_noAnswer(this)
    , m_clock(this)
    , m_failedGroups(failedGroups(options, *result))
{
    m_timeUp.setSingleShot(true);
    m_noAnswer.setSingleShot(true);
    connect(&m_timeUp, &QTimer::timeout, this, [this] {
        finish(ExitStatus::NoEngine, QStringLiteral("gave up after %1 s").arg(m_options.timeoutS));
    });
    connect(&m_clock, &QTimer::timeout, this, [this] { m_reporter.busy(m_activity); });
}

Session::~Session() = default;

void Session::start()
{
    connect(m_module, SIGNAL(udpPacketArrived(ushort, ushort, ushort)), this,
            SLOT(onEvent(ushort, ushort, ushort)));
    connect(m_module, SIGNAL(soundbankVersionChanged()), this, SLOT(onSoundBankVersion()));
    connect(m_module, SIGNAL(triggerbankVersionChanged()), this, SLOT(onTriggerBankVersion()));
    connect(m_transfer, SIGNAL(progressChanged()), this, SLOT(onProgress()));
    connect(m_transfer, SIGNAL(newVersionChanged()), this, SLOT(onNewVersion()));
    connect(m_sender, SIGNAL(isAllSentChanged()), this, SLOT(onAllSentChanged()));
    // Queued, because the next file starts with the same object.
    connect(m_transfer, SIGNAL(finished()), this, SLOT(onFileEnded()), Qt::QueuedConnection);
    m_timeUp.start(m_options.timeoutS * 1000);
    connect(&m_noAnswer, &QTimer::timeout, this, [this] { finish(ExitStatus::NoEngine, missingAnswer()); });
    if (m_options.action == Options::Action::AskVersions) {
        askVersions();
        return;
    }
    // A query is sent first, because a transfer to an engine that is off takes minutes to fail.
    m_noAnswer.start(answerWaitMs);
    QMetaObject::invokeMethod(m_module, "requestHHRawValue");
}

void Session::onEvent(ushort id, ushort /*a*/, ushort /*b*/)
{
    if (!m_greeted && EngineTag::answersQuery(id))
        greeted();
}

void Session::greeted()
{
    if (m_options.action == Options::Action::AskVersions)
        return;
    m_greeted = true;
    m_noAnswer.stop();
    // Queued, because the module is still processing the answer.
    QMetaObject::invokeMethod(this, &Session::nextFile, Qt::QueuedConnection);
}

QString Session::missingAnswer() const
{
    if (m_result.soundBankVersion.isEmpty() == m_result.triggerBankVersion.isEmpty())
        return QStringLiteral("the sound engine does not answer");
    return QStringLiteral("the sound engine does not report the version of the ") +
           (m_result.triggerBankVersion.isEmpty() ? QStringLiteral("trigger bank")
                                                  : QStringLiteral("sound bank"));
}

void Session::askVersions()
{
    m_noAnswer.start(bankQueries * answerWaitMs + answerMarginMs);
    QMetaObject::invokeMethod(m_module, "requestSoundBankVersion");
    QMetaObject::invokeMethod(m_module, "requestTriggerBankVersion");
}

void Session::onSoundBankVersion()
{
    takeVersion(QStringLiteral("sound bank"), "soundBankVersion", &m_result.soundBankVersion);
}

void Session::onTriggerBankVersion()
{
    takeVersion(QStringLiteral("trigger bank"), "triggerBankVersion", &m_result.triggerBankVersion);
}

void Session::takeVersion(const QString &what, const char *property, QString *version)
{
    if (m_options.action != Options::Action::AskVersions || !version->isEmpty())
        return;
    *version = m_module->property(property).toString();
    m_reporter.answer(QStringLiteral("%1: %2").arg(what, *version));
    if (!m_result.soundBankVersion.isEmpty() && !m_result.triggerBankVersion.isEmpty())
        finish(ExitStatus::Sent, QString());
}

// Files that cannot be used are ended here, one after the other.
void Session::nextFile()
{
    for (;;) {
        ++m_current;
        if (!isSending()) {
            finishFiles();
            return;
        }
        if (file().state != FileResult::State::NotSent ||
            m_failedGroups.contains(m_options.jobs.at(m_current).group))
            continue;
        const QString problem = fileProblem(file().path);
        if (problem.isEmpty())
            break;
        endFile({ExitStatus::BadFile, problem});
        if (!m_options.keepGoing) {
            finish(ExitStatus::BadFile, problem);
            return;
        }
    }
    sendFile();
}

void Session::sendFile()
{
    const Job &job = m_options.jobs.at(m_current);
    const QFileInfo info(job.path);
    file().bytes = info.size();
    m_reporter.fileStarted(file());
    m_since.start();
    if (job.kind->isFirmware) {
        m_activity = QStringLiteral("sending");
        m_clock.start(clockMs);
    }
    QMetaObject::invokeMethod(m_sender, "send", Q_ARG(QVariant, QString::fromLatin1(job.kind->enumerator)),
                              Q_ARG(QVariant, info.absoluteFilePath()), Q_ARG(QVariant, job.slot),
                              Q_ARG(QVariant, job.name));
}

// The progress of firmware is an estimate, and not shown.
void Session::onProgress()
{
    const double progress = m_transfer->property("progress").toDouble();
    if (m_options.jobs.at(m_current).kind->isFirmware || progress <= 0.0)
        return;
    m_clock.stop();
    m_reporter.progress(file(), qRound64(progress * double(file().bytes)));
}

void Session::onAllSentChanged()
{
    m_clock.stop();
    if (!is("isAllSent"))
        return;
    m_activity = QStringLiteral("all sent, waiting for the engine");
    m_reporter.allSent(file(), m_activity);
    m_clock.start(clockMs);
}

void Session::onNewVersion()
{
    const int version = m_transfer->property("newVersion").toInt();
    if (version < 0)
        return;
    file().fileVersion = version;
    file().installedVersion = m_transfer->property("installedVersion").toInt();
    m_reporter.newVersion(file());
}

void Session::interrupt()
{
    QString message = QStringLiteral("interrupted");
    if (is("isAllSent"))
        message +=
            QStringLiteral("; all data of %1 is sent, so the engine may have the file").arg(file().path);
    if (isSending() && !file().status)
        endFile({ExitStatus::Interrupted, message});
    m_result.outcome = {ExitStatus::Interrupted, message};
    disconnectAll();
}

Outcome Session::outcomeOfFile() const
{
    if (is("isSent"))
        return {ExitStatus::Sent, QStringLiteral("sent")};
    if (is("isNotNewer")) {
        return {ExitStatus::NotNewer,
                QStringLiteral("not sent: version %1 is not newer than the module's version %2")
                    .arg(versionText(lookAtFile(file().path).version),
                         versionText(m_transfer->property("installedVersion").toInt()))};
    }
    if (is("isWithoutVersion"))
        return {ExitStatus::BadFile, QStringLiteral("not sent: the file has no firmware version")};
    ExitStatus status = ExitStatus::Failed;
    if (is("isUnusable"))
        status = ExitStatus::BadFile;
    else if (is("isSilent"))
        status = ExitStatus::NoEngine;
    return {status, lineEnd(m_transfer->property("message").toString())};
}

void Session::endFile(const Outcome &outcome)
{
    const bool isSent = outcome.status == ExitStatus::Sent;
    file().state = isSent ? FileResult::State::Sent : FileResult::State::Failed;
    file().status = outcome.status;
    file().message = outcome.message;
    if (!isSent)
        m_failedGroups.insert(m_options.jobs.at(m_current).group);
    m_reporter.fileEnded(file());
}

void Session::onFileEnded()
{
    m_clock.stop();
    const Outcome outcome = outcomeOfFile();
    file().seconds = double(m_since.elapsed()) / 1000.0;
    file().retransmissions = m_transfer->property("retransmissions").toInt();
    if (m_options.jobs.at(m_current).kind->isFirmware &&
        m_transfer->property("installedVersion").toInt() >= 0)
        file().installedVersion = m_transfer->property("installedVersion").toInt();
    endFile(outcome);
    // Each further file would wait for a silent engine.
    const bool goesOn =
        outcome.status == ExitStatus::Sent || (m_options.keepGoing && outcome.status != ExitStatus::NoEngine);
    if (goesOn)
        nextFile();
    else
        finish(outcome.status, QStringLiteral("%1: %2").arg(file().path, outcome.message));
}

// The status of the first failure is that of the run.
void Session::finishFiles()
{
    int missing = 0;
    ExitStatus status = ExitStatus::Sent;
    for (const FileResult &result : m_result.files) {
        missing += result.state == FileResult::State::Sent ? 0 : 1;
        if (status == ExitStatus::Sent && result.status)
            status = *result.status;
    }
    if (missing == 0)
        finish(ExitStatus::Sent, QString());
    else
        finish(status,
               QStringLiteral("%1 of %2 files were not sent").arg(missing).arg(m_result.files.size()));
}

void Session::finish(ExitStatus status, const QString &message)
{
    if (isSending() && !file().status)
        endFile({status, message});
    m_result.outcome = {status, message};
    disconnectAll();
    Q_EMIT finished();
}

void Session::disconnectAll()
{
    m_timeUp.stop();
    m_noAnswer.stop();
    m_clock.stop();
    m_module->disconnect(this);
    m_transfer->disconnect(this);
    m_sender->disconnect(this);
}

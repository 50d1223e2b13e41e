#include "failingtransfer.h"

#include "control/qconnectqmlplugin.h"

#include <QFile>

using Outcome = simulated::ReceivedFile::Outcome;

namespace {

// A transfer is over after this time without a datagram. Two packets of one file are at most 15 ms apart,
// except before a resend.
constexpr int quietMs = 1000;
constexpr int resendPauseMs = 4000;

bool isProgress(const QByteArray &name)
{
    return name == "soundProgressChanged" || name == "triggerProgressChanged" ||
           name == "btfwProgressChanged" || name == "waveTransferProgress";
}

} // namespace

FailingTransfer::FailingTransfer(EngineThread &thread, const QString &address, const TransferKind &kind,
                                 const QString &mode, const QString &path, int timeoutMs)
    : m_kind(kind)
    , m_mode(mode.section(QLatin1Char('='), 0, 0))
    , m_modeText(mode)
    , m_path(path)
    , m_expectation(*expectationOf(m_mode))
    , m_timeoutMs(timeoutMs)
    , m_engine(thread, address)
    , m_plugin(std::make_unique<QConnectQmlPlugin>())
    , m_recorder(std::make_unique<testsupport::SignalRecorder>(m_plugin.get()))
{}

FailingTransfer::~FailingTransfer() = default;

void FailingTransfer::start()
{
    if (!m_engine.fail(m_modeText))
        qFatal("%s is not a failure mode", qPrintable(m_modeText));
    if (isAboutQueries(m_mode))
        m_engine.clearFailuresAfterQuery();
    m_kind.send(*m_plugin, m_path);
    // An engine that has vanished does not answer the next task. The task is queued after the engine's
    // return.
    m_nextQueued = m_mode != QLatin1String("vanish");
    if (m_nextQueued)
        m_plugin->requestHHRawValue();
    m_since.start();
    m_quietSince.start();
}

bool FailingTransfer::isOver()
{
    return advance() || m_since.hasExpired(m_timeoutMs);
}

bool FailingTransfer::advance()
{
    switch (m_stage) {
    case Stage::Sending:
        if (!m_nextQueued && hasCompleted()) {
            m_engine.clearFailures();
            m_plugin->requestHHRawValue();
            m_nextQueued = true;
        } else if (saw("hihatRawValueChanged")) {
            m_nextRanTooEarly = m_expectation.leavesNextTask();
            m_stage = Stage::Over;
        } else if (m_expectation.leavesNextTask() && engineIsQuiet()) {
            // A new task starts the thread again; the task in the queue runs first.
            m_plugin->requestSoundBankVersion();
            m_stage = Stage::TaskLeft;
        }
        return false;
    case Stage::TaskLeft:
        if (saw("soundbankVersionChanged"))
            m_stage = Stage::Over;
        return false;
    case Stage::Over:
        // A late answer arrives after everything else has ended.
        return m_mode != QLatin1String("late-query-reply") || seen().size() >= expectedSignals().size();
    }
    return true;
}

bool FailingTransfer::saw(const char *signal) const
{
    return m_recorder->count(signal) > 0;
}

bool FailingTransfer::hasCompleted()
{
    return m_recorder->hasText(m_expectation.signalsOf(m_kind, m_mode).constLast(), m_looked);
}

bool FailingTransfer::engineIsQuiet()
{
    const quint64 heard = m_engine.heard();
    if (heard != m_heard) {
        m_heard = heard;
        m_quietSince.start();
    }
    return m_quietSince.hasExpired(m_expectation.resends > 0 ? resendPauseMs + quietMs : quietMs);
}

QStringList FailingTransfer::seen() const
{
    const QList<testsupport::RecordedSignal> recorded = m_recorder->recorded();
    const QStringList texts = m_recorder->texts();
    QStringList result;
    for (int i = 0; i < recorded.size() && i < texts.size(); ++i) {
        const QByteArray &name = recorded.at(i).name;
        // The module emits it for every answer of the engine.
        if (name == "udpPacketArrived")
            continue;
        const QString text = isProgress(name) ? QString::fromLatin1(name) : texts.at(i);
        if (!isProgress(name) || result.isEmpty() || result.last() != text)
            result.append(text);
    }
    return result;
}

QStringList FailingTransfer::expectedSignals() const
{
    QStringList expected = m_expectation.signalsOf(m_kind, m_mode);
    expected.append(QStringLiteral("hihatRawValueChanged(512)"));
    if (m_expectation.leavesNextTask())
        expected.append(QStringLiteral("soundbankVersionChanged()"));
    if (m_mode == QLatin1String("late-query-reply"))
        expected.append(m_kind.before.first());
    return expected;
}

QString FailingTransfer::signalVerdict() const
{
    const QStringList expected = expectedSignals();
    const QStringList actual = seen();
    if (actual == expected)
        return {};
    return QStringLiteral("expected %1\n     got %2")
        .arg(expected.join(QLatin1Char(' ')), actual.join(QLatin1Char(' ')));
}

QString FailingTransfer::fileVerdict()
{
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly))
        return QStringLiteral("the file no longer exists");
    const QVector<SoundEngine::ReceivedFile> files = m_engine.files();
    const bool arrived = files.size() == 1 && files.first().outcome == Outcome::Whole;
    if (arrived && files.first().data != file.readAll())
        return QStringLiteral("the engine received a different file");
    if (m_expectation.end == Expectation::End::Varies) {
        // A transfer succeeds if its end is acknowledged without an error. Imports report the same status if
        // no acknowledgement arrives.
        const QStringList texts = m_recorder->texts();
        const bool reported = texts.contains(m_kind.completed(0).constLast()) ||
                              texts.contains(m_kind.completed(0, 1).constLast()) ||
                              texts.contains(m_kind.completed(0, 2).constLast());
        const bool acknowledged = texts.contains(QStringLiteral("udpPacketArrived(17477, 0, 0)"));
        if (reported && acknowledged && !arrived)
            return QStringLiteral("a false success");
        // The engine detects duplicates by their numbers.
        if (m_mode == QLatin1String("duplicate") && !arrived)
            return QStringLiteral("the file did not arrive");
        const QString end = m_kind.completed(0).constLast().section(QLatin1Char('('), 0, 0);
        const int ends = m_recorder->count(end.toLatin1().constData());
        return ends == 1 ? QString() : QStringLiteral("the end was reported %1 times").arg(ends);
    }
    // A file may arrive complete without an acknowledgement.
    const bool mayArrive = m_mode == QLatin1String("no-end-ack");
    if (arrived != (m_expectation.arrivesWhole() || mayArrive))
        return arrived ? QStringLiteral("the file arrived") : QStringLiteral("the file did not arrive");
    const QStringList violations = m_engine.violations();
    return violations.isEmpty() ? QString() : violations.join(QLatin1Char('\n'));
}

QString FailingTransfer::verdict()
{
    if (m_stage != Stage::Over)
        return QStringLiteral("not over after %1 ms; seen: %2")
            .arg(m_timeoutMs)
            .arg(seen().join(QLatin1Char(' ')));
    if (m_nextRanTooEarly)
        return QStringLiteral("the next task ran although it should stay in the queue");
    const QString signalProblem = m_expectation.end == Expectation::End::Varies ? QString() : signalVerdict();
    return signalProblem.isEmpty() ? fileVerdict() : signalProblem;
}

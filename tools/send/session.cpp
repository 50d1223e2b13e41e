#include "session.h"

#include "display.h"
#include "enginewords.h"

#include <QFileInfo>
#include <QVariant>

namespace {

constexpr int bankQueries = 2;
constexpr int clockMs = 500;

// Whatever answers a query ends it.
bool answersQuery(ushort id)
{
    return id == EngineWord::EngineVersionAnswer || id == EngineWord::TriggerVersionAnswer ||
           id == EngineWord::SoundBankVersionAnswer || id == EngineWord::TriggerBankVersionAnswer ||
           id == EngineWord::HiHatRawAnswer;
}

} // namespace

Session::Session(QObject *module, const Options &options, Display &display)
    : m_module(module)
    , m_options(options)
    , m_display(display)
    , m_timeUp(this)
    , m_noAnswer(this)
    , m_lateAnswer(this)
    , m_clock(this)
{
    m_timeUp.setSingleShot(true);
    m_noAnswer.setSingleShot(true);
    connect(&m_timeUp, &QTimer::timeout, this, [this] {
        finish(ExitStatus::NoEngine, QStringLiteral("gave up after %1 s").arg(m_options.timeoutS));
    });
    m_lateAnswer.setSingleShot(true);
    connect(&m_lateAnswer, &QTimer::timeout, this, [this] {
        if (m_transfer || m_probes == 0)
            return;
        m_probes = 0;
        nextFile();
    });
    connect(&m_clock, &QTimer::timeout, this, [this] { m_display.busy(QStringLiteral("sending")); });
}

Session::~Session() = default;

void Session::start()
{
    connect(m_module, SIGNAL(udpPacketArrived(ushort, ushort, ushort)), this,
            SLOT(onEvent(ushort, ushort, ushort)));
    connect(m_module, SIGNAL(hihatRawValueChanged(ushort)), this, SLOT(onProbeAnswered()));
    connect(m_module, SIGNAL(soundbankVersionChanged()), this, SLOT(onSoundBankVersion()));
    connect(m_module, SIGNAL(triggerbankVersionChanged()), this, SLOT(onTriggerBankVersion()));
    m_timeUp.start(m_options.timeoutS * 1000);
    connect(&m_noAnswer, &QTimer::timeout, this, [this] { finish(ExitStatus::NoEngine, missingAnswer()); });
    if (m_options.action == Options::Action::AskVersions) {
        askVersions();
        return;
    }
    // Nothing is sent to an engine that is not there: it would take minutes to find that out.
    m_noAnswer.start(answerWaitMs);
    probe();
}

void Session::probe()
{
    ++m_probes;
    QMetaObject::invokeMethod(m_module, "requestHHRawValue");
}

void Session::onEvent(ushort id, ushort /*a*/, ushort /*b*/)
{
    if (!m_greeted && answersQuery(id))
        greeted();
}

void Session::greeted()
{
    if (m_options.action == Options::Action::AskVersions)
        return;
    m_greeted = true;
    m_noAnswer.stop();
    m_probes = 0;
    // Not from within the signal: the module is still at work on the answer.
    QMetaObject::invokeMethod(this, &Session::nextFile, Qt::QueuedConnection);
}

void Session::onProbeAnswered()
{
    if (m_probes == 0 || !m_greeted)
        return;
    --m_probes;
    if (m_transfer)
        m_transfer->engineIsIdle();
    else
        nextFile();
}

QString Session::missingAnswer() const
{
    if (m_soundBankKnown == m_triggerBankKnown)
        return QStringLiteral("the sound engine does not answer");
    return QStringLiteral("the sound engine does not tell the version of the ") +
           (m_soundBankKnown ? QStringLiteral("trigger bank") : QStringLiteral("sound bank"));
}

void Session::askVersions()
{
    m_noAnswer.start(bankQueries * answerWaitMs + answerMarginMs);
    QMetaObject::invokeMethod(m_module, "requestSoundBankVersion");
    QMetaObject::invokeMethod(m_module, "requestTriggerBankVersion");
}

void Session::onSoundBankVersion()
{
    sayVersion(QStringLiteral("sound bank"), "soundBankVersion", &m_soundBankKnown);
}

void Session::onTriggerBankVersion()
{
    sayVersion(QStringLiteral("trigger bank"), "triggerBankVersion", &m_triggerBankKnown);
}

void Session::sayVersion(const QString &what, const char *property, bool *known)
{
    if (m_options.action != Options::Action::AskVersions || *known)
        return;
    *known = true;
    m_display.say(QStringLiteral("%1: %2").arg(what, m_module->property(property).toString()));
    if (m_soundBankKnown && m_triggerBankKnown)
        finish(ExitStatus::Sent, QString());
}

void Session::nextFile()
{
    // An answer that is still to come would look as if the next file had ended. It is waited for no longer
    // than the module waits itself, for one after the other.
    if (m_probes > 0) {
        m_lateAnswer.start(m_probes * answerWaitMs + answerMarginMs);
        return;
    }
    m_lateAnswer.stop();
    FileToSend file;
    file.path = m_options.files.at(m_nextFile++);
    const QString problem = fileProblem(file.path);
    if (!problem.isEmpty()) {
        finish(ExitStatus::BadFile, problem);
        return;
    }
    const QFileInfo info(file.path);
    file.size = info.size();
    file.slot = m_options.slot;
    file.name = m_options.name.isEmpty() ? info.fileName() : m_options.name;
    sendFile(file);
}

void Session::sendFile(const FileToSend &file)
{
    m_file = file;
    m_transfer = std::make_unique<Transfer>(m_module, *m_options.kind, file);
    connect(m_transfer.get(), &Transfer::probeWanted, this, &Session::probe);
    connect(m_transfer.get(), &Transfer::progressed, this,
            [this](qint64 bytes) { m_display.progress(bytes); });
    connect(m_transfer.get(), &Transfer::noted, this, [this](const QString &words) { m_display.say(words); });
    connect(m_transfer.get(), &Transfer::finished, this, &Session::conclude);
    m_display.say(QStringLiteral("sending %1, %2 bytes, as %3")
                      .arg(file.path)
                      .arg(file.size)
                      .arg(QLatin1String(m_options.kind->words)));
    m_display.begin(file.size);
    if (m_options.kind->isFirmware)
        m_clock.start(clockMs);
    m_transfer->start();
}

void Session::conclude(const Outcome &outcome)
{
    m_clock.stop();
    const int retransmissions = m_transfer->retransmissions();
    // Called from a signal of this very object.
    m_transfer.release()->deleteLater();
    if (outcome.status != ExitStatus::Sent) {
        finish(outcome.status, QStringLiteral("%1: %2").arg(m_file.path, outcome.words));
        return;
    }
    m_display.say(QStringLiteral("%1: %2, %3 bytes in %4 s, %5, retransmissions: %6")
                      .arg(m_file.path, outcome.words)
                      .arg(m_file.size)
                      .arg(double(m_display.elapsedMs()) / 1000.0, 0, 'f', 1)
                      .arg(m_display.rate(m_file.size))
                      .arg(retransmissions));
    if (m_nextFile < m_options.files.size())
        nextFile();
    else
        finish(ExitStatus::Sent, QString());
}

void Session::finish(ExitStatus status, const QString &words)
{
    m_timeUp.stop();
    m_noAnswer.stop();
    m_lateAnswer.stop();
    m_clock.stop();
    m_module->disconnect(this);
    m_transfer.reset();
    Q_EMIT finished({status, words});
}

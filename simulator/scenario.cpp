#include "scenario.h"

#include "soundengine.h"

#include <QFile>

namespace simulated {

namespace {

constexpr int longestMs = 24 * 60 * 60 * 1000;

int parameterKey(int msb, int lsb)
{
    return (msb << 8) | lsb;
}

bool parseWait(QStringList words, ScenarioStep *step, QString *problem)
{
    words.removeFirst();
    const int within = words.indexOf(QStringLiteral("within"));
    if (within >= 0) {
        if (within != words.size() - 2 || !readNumber(words.last(), longestMs, &step->ms) || step->ms == 0) {
            *problem = QStringLiteral("\"within\" is followed by milliseconds from 1 and nothing else");
            return false;
        }
        words = words.mid(0, within);
    }
    const QString what = words.value(0);
    if (what == QLatin1String("module") && words.size() == 1) {
        step->kind = ScenarioStep::Kind::WaitModule;
        return true;
    }
    if (what == QLatin1String("transfer") && words.size() == 1) {
        step->kind = ScenarioStep::Kind::WaitTransfer;
        return true;
    }
    int msb = 0;
    int lsb = 0;
    if (what == QLatin1String("param") && (words.size() == 3 || words.size() == 4) &&
        readNumber(words.at(1), 0xFF, &msb) && readNumber(words.at(2), 0xFF, &lsb) &&
        (words.size() == 3 || readNumber(words.at(3), 0xFF, &step->value))) {
        step->kind = ScenarioStep::Kind::WaitParameter;
        step->msb = quint8(msb);
        step->lsb = quint8(lsb);
        return true;
    }
    *problem = QStringLiteral("usage: wait-for module|transfer|param HIGH LOW [VALUE] [within MS]");
    return false;
}

bool parseStep(const QString &line, ScenarioStep *step, QString *problem)
{
    QStringList words = wordsOf(line);
    step->text = words.join(QLatin1Char(' '));
    const QString first = words.at(0);
    if (first == QLatin1String("wait-for"))
        return parseWait(words, step, problem);
    if (first == QLatin1String("at") || first == QLatin1String("after")) {
        step->kind = first == QLatin1String("at") ? ScenarioStep::Kind::At : ScenarioStep::Kind::After;
        if (words.size() < 3 || !readNumber(words.at(1), longestMs, &step->ms)) {
            *problem = QStringLiteral("usage: %1 MS COMMAND").arg(first);
            return false;
        }
        words = words.mid(2);
    }
    return parseCommand(words.join(QLatin1Char(' ')), &step->command, problem);
}

} // namespace

bool Scenario::load(const QString &path, QString *problem)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        *problem = QStringLiteral("scenario %1: %2").arg(path, file.errorString());
        return false;
    }
    QString reason;
    if (parse(QString::fromUtf8(file.readAll()), &reason))
        return true;
    *problem = QStringLiteral("scenario %1, %2").arg(path, reason);
    return false;
}

bool Scenario::parse(const QString &text, QString *problem)
{
    m_steps.clear();
    const QStringList lines = text.split(QLatin1Char('\n'));
    int latest = 0;
    for (int i = 0; i < lines.size(); ++i) {
        if (wordsOf(lines.at(i)).isEmpty())
            continue;
        ScenarioStep step;
        step.line = i + 1;
        QString reason;
        bool good = parseStep(lines.at(i), &step, &reason);
        if (good && step.kind == ScenarioStep::Kind::At) {
            if (step.ms < latest) {
                reason = QStringLiteral("time %1 comes after time %2").arg(step.ms).arg(latest);
                good = false;
            }
            latest = step.ms;
        }
        if (!good) {
            *problem = QStringLiteral("line %1: %2").arg(step.line).arg(reason);
            return false;
        }
        m_steps.append(step);
    }
    return true;
}

ScenarioPlayer::ScenarioPlayer(const Scenario &scenario, SoundEngine *engine, QObject *parent)
    : QObject(parent)
    , m_steps(scenario.steps())
    , m_engine(engine)
    , m_timer(this)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        if (!m_waiting) {
            perform();
            return;
        }
        const ScenarioStep &step = m_steps.at(m_index);
        Q_EMIT failed(QStringLiteral("scenario line %1: %2: did not happen").arg(step.line).arg(step.text));
    });
    connect(engine, &SoundEngine::moduleChanged, this, &ScenarioPlayer::checkWait);
    connect(engine, &SoundEngine::parameterReceived, this, [this](int msb, int lsb, int value) {
        m_parameters[parameterKey(msb, lsb)].insert(value);
        checkWait();
    });
    connect(engine, &SoundEngine::transferEnded, this, [this] {
        ++m_transfers;
        checkWait();
    });
}

void ScenarioPlayer::start()
{
    m_sinceStart.start();
    next();
}

void ScenarioPlayer::next()
{
    if (m_index >= m_steps.size()) {
        Q_EMIT finished();
        return;
    }
    const ScenarioStep &step = m_steps.at(m_index);
    switch (step.kind) {
    case ScenarioStep::Kind::At:
        m_timer.start(int(qMax<qint64>(0, step.ms - m_sinceStart.elapsed())));
        return;
    case ScenarioStep::Kind::After: m_timer.start(step.ms); return;
    case ScenarioStep::Kind::WaitModule:
    case ScenarioStep::Kind::WaitParameter:
    case ScenarioStep::Kind::WaitTransfer: break;
    }
    m_waiting = true;
    if (step.ms > 0)
        m_timer.start(step.ms);
    checkWait();
}

void ScenarioPlayer::perform()
{
    const Command command = m_steps.at(m_index).command;
    const QStringList lines = command.run(*m_engine);
    if (!lines.isEmpty())
        Q_EMIT printed(lines);
    if (command.isQuit)
        Q_EMIT quitRequested();
    else
        advance();
}

void ScenarioPlayer::advance()
{
    ++m_index;
    next();
}

bool ScenarioPlayer::isSatisfied(const ScenarioStep &step) const
{
    if (step.kind == ScenarioStep::Kind::WaitModule)
        return m_engine->knowsModule();
    if (step.kind == ScenarioStep::Kind::WaitTransfer)
        return m_transfers > 0;
    const QSet<int> values = m_parameters.value(parameterKey(step.msb, step.lsb));
    return step.value < 0 ? !values.isEmpty() : values.contains(step.value);
}

void ScenarioPlayer::checkWait()
{
    if (!m_waiting || !isSatisfied(m_steps.at(m_index)))
        return;
    m_waiting = false;
    m_timer.stop();
    m_parameters.clear();
    m_transfers = 0;
    advance();
}

} // namespace simulated

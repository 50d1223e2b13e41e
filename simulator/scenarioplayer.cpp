#include "scenarioplayer.h"

#include "soundengine.h"

#include <algorithm>

namespace simulated {

namespace {

constexpr int eventSize = 8;
constexpr quint16 strikeEvent = 0x9909;

// A player of typed lines runs for days; its played steps are removed in batches.
constexpr int keptSteps = 1000;

int parameterKey(int msb, int lsb)
{
    return (msb << 8) | lsb;
}

// The name of the step in messages.
QString stepText(const ScenarioStep &step)
{
    return step.line > 0 ? QStringLiteral("scenario line %1: %2").arg(step.line).arg(step.text) : step.text;
}

bool contains(const QHash<int, QSet<int>> &seen, int key, int value)
{
    const auto values = seen.constFind(key);
    return values != seen.constEnd() && (value < 0 || values->contains(value));
}

} // namespace

ScenarioPlayer::ScenarioPlayer(const Scenario &scenario, SoundEngine *engine, QObject *parent)
    : QObject(parent)
    , m_blocks{Block{scenario.steps()}}
    , m_engine(engine)
    , m_timer(this)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &ScenarioPlayer::onTimer);
    connect(engine, &SoundEngine::moduleChanged, this, &ScenarioPlayer::checkWait);
    connect(engine, &SoundEngine::parameterReceived, this, [this](int msb, int lsb, int value) {
        m_parameters[parameterKey(msb, lsb)].insert(value);
        checkWait();
    });
    connect(engine, &SoundEngine::transferEnded, this, [this] {
        ++m_transfers;
        checkWait();
    });
    connect(engine, &SoundEngine::datagramSent, this, &ScenarioPlayer::noteSent);
}

void ScenarioPlayer::start()
{
    m_sinceStart.start();
    next();
}

void ScenarioPlayer::append(const ScenarioStep &step)
{
    m_blocks.first().steps.append(step);
    if (m_state == State::Idle)
        next();
}

const ScenarioStep &ScenarioPlayer::currentStep() const
{
    const Block &block = m_blocks.constLast();
    return block.steps.at(block.current);
}

void ScenarioPlayer::next()
{
    for (;;) {
        Block &block = m_blocks.last();
        if (block.current < block.steps.size()) {
            const ScenarioStep &step = block.steps.at(block.current);
            if (step.kind != ScenarioStep::Kind::Repeat) {
                begin(step);
                return;
            }
            m_blocks.append(Block{step.body, 0, step.rounds});
        } else if (--block.roundsLeft > 0) {
            block.current = 0;
        } else if (m_blocks.size() > 1) {
            m_blocks.removeLast();
            ++m_blocks.last().current;
        } else {
            block = Block();
            m_state = State::Idle;
            Q_EMIT finished();
            return;
        }
    }
}

void ScenarioPlayer::begin(const ScenarioStep &step)
{
    m_isTimed = m_isTimed || step.kind == ScenarioStep::Kind::At ||
                (step.kind == ScenarioStep::Kind::After && step.ms > 0);
    switch (step.kind) {
    case ScenarioStep::Kind::At:
        m_state = State::Timed;
        m_timer.start(int(qMax<qint64>(0, step.ms - m_sinceStart.elapsed())));
        return;
    case ScenarioStep::Kind::After:
        m_state = State::Timed;
        m_timer.start(step.ms);
        return;
    default: break;
    }
    if (isSatisfied(step)) {
        // The event loop runs between two steps, because a block may wait a million times.
        m_state = State::Satisfied;
        forgetEvents();
        m_timer.start(0);
        return;
    }
    m_state = State::Waiting;
    if (step.ms > 0)
        m_timer.start(step.ms);
}

void ScenarioPlayer::onTimer()
{
    switch (m_state) {
    case State::Timed: perform(); break;
    case State::Satisfied: advance(); break;
    case State::Waiting:
        m_state = State::Stopped;
        Q_EMIT failed(stepText(currentStep()) + QStringLiteral(": timed out"));
        break;
    case State::Idle:
    case State::Stopped: break;
    }
}

void ScenarioPlayer::perform()
{
    const ScenarioStep step = currentStep();
    m_performing = true;
    const CommandResult result = step.command.run(*m_engine);
    m_performing = false;
    if (!result.lines.isEmpty())
        Q_EMIT printed(result.lines);
    if (!result.isSent)
        Q_EMIT notSent(stepText(step) + QStringLiteral(": not sent"));
    if (step.command.isQuit) {
        m_state = State::Stopped;
        Q_EMIT quitRequested();
    } else {
        advance();
    }
}

void ScenarioPlayer::advance()
{
    // A scenario that first waits for the module starts with it.
    if (currentStep().kind == ScenarioStep::Kind::WaitModule && !m_isTimed)
        m_sinceStart.restart();
    Block &block = m_blocks.last();
    ++block.current;
    if (m_blocks.size() == 1 && block.current >= keptSteps) {
        block.steps.remove(0, block.current);
        block.current = 0;
    }
    next();
}

void ScenarioPlayer::proceed()
{
    forgetEvents();
    advance();
}

void ScenarioPlayer::forgetEvents()
{
    m_parameters.clear();
    m_strikes.clear();
    m_switches.clear();
    m_transfers = 0;
}

bool ScenarioPlayer::isSatisfied(const ScenarioStep &step) const
{
    switch (step.kind) {
    case ScenarioStep::Kind::WaitModule: return m_engine->knowsModule();
    case ScenarioStep::Kind::WaitTransfer: return m_transfers > 0;
    case ScenarioStep::Kind::WaitParameter:
        return contains(m_parameters, parameterKey(step.msb, step.lsb), step.value);
    case ScenarioStep::Kind::WaitStrike:
        return step.number < 0 ? !m_strikes.isEmpty() : m_strikes.contains(step.number);
    case ScenarioStep::Kind::WaitSwitch:
        return step.number < 0 ? !m_switches.isEmpty() : contains(m_switches, step.number, step.value);
    case ScenarioStep::Kind::At:
    case ScenarioStep::Kind::After:
    case ScenarioStep::Kind::Repeat: break;
    }
    return true;
}

void ScenarioPlayer::checkWait()
{
    if (m_state != State::Waiting || !isSatisfied(currentStep()))
        return;
    m_timer.stop();
    proceed();
}

// A scenario waits for what others do: the groove, a person, a drum kit. Its own steps do not count.
void ScenarioPlayer::noteSent(const QByteArray &datagram)
{
    if (m_performing || datagram.size() != eventSize || wordAt(datagram, 2) != Tag::Event)
        return;
    const quint16 kind = wordAt(datagram, 0);
    if (kind == Tag::Midi && wordAt(datagram, 4) == strikeEvent)
        m_strikes.insert(byteAt(datagram, 7));
    else if (kind == Tag::Switch)
        m_switches[wordAt(datagram, 4)].insert(wordAt(datagram, 6));
    else
        return;
    checkWait();
}

} // namespace simulated

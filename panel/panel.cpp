#include "panel.h"

#include "enginestate.h"

#include "simulator/commands.h"
#include "simulator/kit.h"
#include "simulator/standalone.h"

using namespace simulated;

namespace {

constexpr int midiEventSize = 8;

} // namespace

Panel::Panel(QObject *parent)
    : QObject(parent)
    , m_parameters(&m_engine)
    , m_searched(&m_parameters, ParameterTable::SearchRole)
    , m_stream(&m_engine)
    , m_filtered(&m_stream)
    , m_failures(&m_engine)
    , m_transfer(&m_engine)
    , m_kit(&m_engine)
{
    // Nothing here reads the data of received files.
    m_engine.setKeptBytes(0);
    connect(&m_engine, &SoundEngine::datagramSent, this, &Panel::follow);
    connect(&m_engine, &SoundEngine::moduleChanged, this, &Panel::moduleChanged);
    connect(&m_engine, &SoundEngine::violated, this, [this] {
        ++m_violations;
        Q_EMIT violationsChanged();
    });
    connect(&m_kit, &RealKit::played, &m_recorder, &ScenarioRecorder::record);
    // Tempo and metronome follow the module.
    connect(&m_engine, &SoundEngine::parameterReceived, this, [this, tempo = 0]() mutable {
        if (m_engine.tempo() == tempo)
            return;
        tempo = m_engine.tempo();
        Q_EMIT stateChanged();
    });
}

bool Panel::start(const QHostAddress &address, quint16 port, bool groove)
{
    if (!m_engine.listen(address, port))
        return false;
    playStandalone(&m_engine, groove);
    restartRecording();
    Q_EMIT listeningChanged();
    Q_EMIT stateChanged();
    return true;
}

bool Panel::run(const QString &line)
{
    m_lastCommand = wordsOf(line).join(QLatin1Char(' '));
    Command command;
    QString problem;
    if (!parseCommand(line, &command, &problem))
        return finish(problem, true);
    if (command.isQuit) {
        finish({}, false);
        Q_EMIT quitRequested();
        return true;
    }
    const CommandResult result = command.run(m_engine);
    if (result.isSent) {
        for (const QString &shown : result.lines)
            m_stream.add(MessageStream::Kind::Answer, shown);
        // A command that shows something changes nothing.
        if (result.lines.isEmpty())
            m_recorder.record(m_lastCommand);
    }
    m_failures.refresh();
    Q_EMIT stateChanged();
    QString answer = result.lines.value(0);
    if (result.lines.size() > 1)
        answer += QStringLiteral(" (%1 lines)").arg(result.lines.size());
    return finish(answer, !result.isSent);
}

bool Panel::finish(const QString &answer, bool failed)
{
    m_lastAnswer = answer;
    m_lastFailed = failed;
    Q_EMIT ran();
    return !failed;
}

void Panel::restartRecording()
{
    const StateCommands commands = stateCommandsFor(m_engine);
    m_recorder.restart(commands.answers, commands.others);
}

QVariantMap Panel::answers() const
{
    QVariantMap all;
    const QVector<EngineAnswer> answers = answersOf(m_engine);
    for (const EngineAnswer &answer : answers) {
        QVariantList numbers;
        for (const quint16 number : answer.numbers)
            numbers.append(number);
        all.insert(answer.command, numbers);
    }
    return all;
}

QString Panel::listening() const
{
    return QStringLiteral("%1:%2").arg(m_engine.address().toString()).arg(m_engine.port());
}

QString Panel::module() const
{
    if (!m_engine.knowsModule())
        return {};
    return QStringLiteral("%1:%2").arg(m_engine.moduleAddress().toString()).arg(m_engine.modulePort());
}

QVariantList Panel::zones() const
{
    QVariantList all;
    for (const Zone &zone : kitZones()) {
        all.append(QVariantMap{{QStringLiteral("name"), QString::fromLatin1(zone.name)},
                               {QStringLiteral("note"), zone.note},
                               {QStringLiteral("pad"), zone.pad},
                               {QStringLiteral("canBeChoked"), zone.canBeChoked}});
    }
    return all;
}

void Panel::follow(const QByteArray &datagram)
{
    if (wordAt(datagram, 0) == Tag::OutputMeters) {
        m_levels.clear();
        for (int offset = 2; offset < datagram.size(); offset += 2)
            m_levels.append(wordAt(datagram, offset));
        Q_EMIT levelsChanged();
        return;
    }
    if (datagram.size() != midiEventSize || wordAt(datagram, 0) != Tag::Midi)
        return;
    const int value = byteAt(datagram, 6);
    const int number = byteAt(datagram, 7);
    switch (byteAt(datagram, 4)) {
    case Midi::NoteOn: Q_EMIT struck(number, value); break;
    case Midi::PolyPressure: Q_EMIT choked(number, value); break;
    case Midi::ControlChange:
        if (number == Midi::HiHatPedal)
            Q_EMIT pedalMoved(value);
        break;
    default: break;
    }
}

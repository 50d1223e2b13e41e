#include "enginestate.h"

#include "simulator/soundengine.h"

#include <iterator>

namespace {

using Version = SoundEngine::Version;

// The sections that have a name, in the order of their numbers.
constexpr const char *sections[] = {"master", "monitor", "headphone", "pad"};

EngineAnswer versionAnswer(const char *command, SoundEngine::Pair version)
{
    return {QString::fromLatin1(command), {version.first, version.second}};
}

EngineAnswer flashAnswer(const SoundEngine &engine)
{
    const SoundEngine::Pair size = engine.flashSize();
    return {QStringLiteral("flash"), {size.first, size.second}};
}

// The answers whose commands send nothing.
QVector<EngineAnswer> silentAnswersOf(const SoundEngine &engine)
{
    return {versionAnswer("version zelta", engine.version(Version::SoundEngine)),
            versionAnswer("version trigger", engine.version(Version::TriggerBoard)),
            versionAnswer("version soundbank", engine.version(Version::SoundBank)),
            versionAnswer("version triggerbank", engine.version(Version::TriggerBank)),
            {QStringLiteral("hihat-raw"), {engine.hiHatRaw()}}};
}

// Levels that a command leaves out are 0.
template<typename Levels>
QString levelTexts(const Levels &levels)
{
    size_t count = levels.size();
    while (count > 1 && levels[count - 1] == 0)
        --count;
    QStringList texts;
    for (size_t i = 0; i < count; ++i)
        texts.append(QString::number(levels[i]));
    return texts.join(QLatin1Char(' '));
}

QStringList meterCommands(const SoundEngine &engine)
{
    QStringList commands;
    if (const SoundEngine::OutputLevels *levels = engine.fixedOutputLevels())
        commands.append(QStringLiteral("meters ") + levelTexts(*levels));
    const auto &compressors = engine.fixedCompressorLevels();
    for (auto it = compressors.constBegin(); it != compressors.constEnd(); ++it) {
        const bool isNamed = it.key() < std::size(sections);
        const QString section = isNamed ? QString::fromLatin1(sections[it.key()]) : QString::number(it.key());
        commands.append(QStringLiteral("comp %1 %2").arg(section, levelTexts(it.value())));
    }
    return commands;
}

QStringList failureCommands(const SoundEngine &engine)
{
    QStringList commands;
    for (const simulated::ActiveFailure &failure : engine.failures().active()) {
        QString text = QStringLiteral("fail ") + failure.name;
        if (failure.value >= 0)
            text += QStringLiteral("=%1").arg(failure.value);
        commands.append(text);
    }
    return commands;
}

} // namespace

QString EngineAnswer::text() const
{
    QString text = command;
    for (const quint16 number : numbers)
        text += QStringLiteral(" %1").arg(number);
    return text;
}

QVector<EngineAnswer> answersOf(const SoundEngine &engine)
{
    return silentAnswersOf(engine) + QVector<EngineAnswer>{flashAnswer(engine)};
}

StateCommands stateCommandsFor(const SoundEngine &engine)
{
    const SoundEngine fresh;
    StateCommands commands;
    if (!engine.isAnswering())
        commands.answers.append(QStringLiteral("answers off"));
    const QVector<EngineAnswer> answers = silentAnswersOf(engine);
    const QVector<EngineAnswer> usual = silentAnswersOf(fresh);
    for (int i = 0; i < answers.size(); ++i) {
        if (answers.at(i).numbers != usual.at(i).numbers)
            commands.answers.append(answers.at(i).text());
    }

    const EngineAnswer flash = flashAnswer(engine);
    if (flash.numbers != flashAnswer(fresh).numbers)
        commands.others.append(flash.text());
    commands.others += meterCommands(engine) + failureCommands(engine);
    if (!engine.areMetersRunning())
        commands.others.append(QStringLiteral("meters off"));
    if (engine.isGroovePlaying())
        commands.others.append(QStringLiteral("groove on"));
    return commands;
}

#include "commandreaders.h"
#include "kit.h"
#include "parametertable.h"
#include "scenario.h"
#include "soundengine.h"

namespace simulated {

namespace {

constexpr Named versionNames[] = {{"zelta", 0}, {"trigger", 1}, {"soundbank", 2}, {"triggerbank", 3}};

Run readHelp(Reader &)
{
    return [](SoundEngine &) {
        return commandHelp() + stepHelp();
    };
}

Run readPads(Reader &)
{
    return [](SoundEngine &) {
        QStringList lines;
        for (const Zone &zone : kitZones()) {
            lines.append(QStringLiteral("%1 note %2 pad %3")
                             .arg(QLatin1String(zone.name))
                             .arg(zone.note)
                             .arg(zone.pad));
        }
        return lines;
    };
}

Run readVersion(Reader &reader)
{
    const Named *named = findNamed(versionNames, reader.arguments.at(0));
    if (named == nullptr)
        return reader.fail(QStringLiteral("unknown version \"%1\"; use %2")
                               .arg(reader.arguments.at(0), listed(versionNames)));
    int major = 0;
    int minor = 0;
    if (!reader.number(1, largestWord, &major) || !reader.number(2, largestWord, &minor))
        return {};
    const auto which = SoundEngine::Version(named->value);
    return setting([=](SoundEngine &engine) { engine.setVersion(which, quint16(major), quint16(minor)); });
}

Run readHiHatRaw(Reader &reader)
{
    int value = 0;
    if (!reader.number(0, largestWord, &value))
        return {};
    return setting([value](SoundEngine &engine) { engine.setHiHatRaw(quint16(value)); });
}

Run readParam(Reader &reader)
{
    int msb = 0;
    int lsb = 0;
    if (!reader.number(0, 0xFF, &msb) || !reader.number(1, 0xFF, &lsb))
        return {};
    return [=](SoundEngine &engine) {
        const int value = engine.parameter(quint8(msb), quint8(lsb));
        if (value < 0)
            return QStringList{QStringLiteral("never received")};
        return QStringList{parameterText(quint8(msb), quint8(lsb), quint8(value),
                                         engine.parameterLow(quint8(msb), quint8(lsb)))};
    };
}

Run readParams(Reader &)
{
    return [](SoundEngine &engine) {
        QStringList lines;
        const auto all = engine.parameters();
        for (const SoundEngine::Parameter &p : all)
            lines.append(parameterText(p.msb, p.lsb, p.value, p.low));
        return lines;
    };
}

Run readViolations(Reader &)
{
    return [](SoundEngine &engine) {
        return engine.violations() +
               QStringList{QStringLiteral("violations %1").arg(engine.counters().violations)};
    };
}

Run readFiles(Reader &)
{
    return [](SoundEngine &engine) {
        QStringList lines;
        for (const ReceivedFile &file : engine.receivedFiles())
            lines.append(fileText(file));
        return lines;
    };
}

Run readSummary(Reader &)
{
    return [](SoundEngine &engine) {
        return engine.summary();
    };
}

Run readGroove(Reader &reader)
{
    bool on = false;
    if (!readOnOff(reader.arguments.at(0), &on))
        return reader.fail(QStringLiteral("the groove is on or off, not \"%1\"").arg(reader.arguments.at(0)));
    return setting([on](SoundEngine &engine) { engine.setGroove(on); });
}

Run readAnswers(Reader &reader)
{
    bool on = false;
    if (!readOnOff(reader.arguments.at(0), &on))
        return reader.fail(QStringLiteral("answers are on or off, not \"%1\"").arg(reader.arguments.at(0)));
    return setting([on](SoundEngine &engine) { engine.setAnswering(on); });
}

Run readFail(Reader &reader)
{
    const QString text = reader.arguments.at(0);
    FailureSet trial;
    if (reader.count() == 2) {
        if (reader.arguments.at(1) != QLatin1String("off"))
            return reader.fail(
                QStringLiteral("a failure mode is followed by off, not \"%1\"").arg(reader.arguments.at(1)));
        if (!trial.remove(text, &reader.problem))
            return {};
        return setting([text](SoundEngine &engine) { engine.clearFailure(text); });
    }
    if (text == QLatin1String("none"))
        return setting([](SoundEngine &engine) { engine.clearFailures(); });
    if (!trial.add(text, &reader.problem))
        return {};
    return setting([text](SoundEngine &engine) { engine.setFailure(text); });
}

Run readFailures(Reader &)
{
    return [](SoundEngine &) {
        return failureHelp();
    };
}

Run readModule(Reader &)
{
    return [](SoundEngine &engine) {
        if (!engine.knowsModule())
            return QStringList{QStringLiteral("no module is known yet")};
        return QStringList{
            QStringLiteral("module %1:%2").arg(engine.moduleAddress().toString()).arg(engine.modulePort())};
    };
}

Run readPrint(Reader &reader)
{
    const QString text = reader.arguments.join(QLatin1Char(' '));
    return [text](SoundEngine &) {
        return QStringList{text};
    };
}

Run readQuit(Reader &)
{
    return [](SoundEngine &) {
        return QStringList();
    };
}

} // namespace

const QVector<CommandRow> &stateCommands()
{
    static const QVector<CommandRow> rows = {
        {"help", "", "lists the commands", 0, 0, readHelp},
        {"pads", "", "lists the pads and zones with their notes", 0, 0, readPads},
        {"version", "WHICH MAJOR MINOR",
         "sets the answer to the query for zelta, trigger, soundbank or triggerbank", 3, 3, readVersion},
        {"hihat-raw", "VALUE", "sets the answer to the hi-hat query", 1, 1, readHiHatRaw},
        {"groove", "on|off", "starts or stops the drummer", 1, 1, readGroove},
        {"answers", "on|off", "off: sends no answers and reports of its own", 1, 1, readAnswers},
        {"fail", "NAME[=N[,N]...]|NAME off|none",
         "adds a failure mode, at several packets if it has several N; removes one; or removes all", 1, 2,
         readFail},
        {"failures", "", "lists the failure modes", 0, 0, readFailures},
        {"param", "HIGH LOW", "shows the last value of a parameter", 2, 2, readParam},
        {"params", "", "shows the last values of all parameters", 0, 0, readParams},
        {"files", "", "shows the files that were received", 0, 0, readFiles},
        {"violations", "", "shows the protocol violations of the module", 0, 0, readViolations},
        {"summary", "", "shows the counters", 0, 0, readSummary},
        {"module", "", "shows the address of the module", 0, 0, readModule},
        {"print", "TEXT", "prints a text", 1, anyNumberOfWords, readPrint},
        {"quit", "", "ends the program", 0, 0, readQuit},
    };
    return rows;
}

} // namespace simulated

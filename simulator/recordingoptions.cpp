#include "recordingoptions.h"

#include "recording.h"
#include "replayer.h"

#include <QFileInfo>

namespace simulated {

namespace {

constexpr double slowest = 0.001;
constexpr double fastest = 1000.0;

bool isSameFile(const QString &one, const QString &other)
{
    const QString path = QFileInfo(one).canonicalFilePath();
    return !path.isEmpty() && path == QFileInfo(other).canonicalFilePath();
}

bool readSpeed(const QString &text, double *speed)
{
    if (text == QLatin1String("max")) {
        *speed = Replayer::maximumSpeed;
        return true;
    }
    bool isNumber = false;
    *speed = text.toDouble(&isNumber);
    return isNumber && *speed >= slowest && *speed <= fastest;
}

} // namespace

RecordingOptions::RecordingOptions(QCommandLineParser *parser)
    : m_record(QStringLiteral("record"), QStringLiteral("Record all datagrams into a capture file (pcap)."),
               QStringLiteral("FILE"))
    , m_replay(QStringLiteral("replay"),
               QStringLiteral("Play the engine's side of a capture file (pcap or pcapng), then end."),
               QStringLiteral("FILE"))
    , m_recordedPort(
          QStringLiteral("recorded-port"),
          QStringLiteral("UDP port of the engine in the file (%1).").arg(Recording::defaultEnginePort),
          QStringLiteral("PORT"))
    , m_speed(QStringLiteral("speed"),
              QStringLiteral("Replay that many times as fast, 0.001 to 1000, or max for no gaps."),
              QStringLiteral("FACTOR|max"))
    , m_loop(QStringLiteral("loop"), QStringLiteral("Replay again and again."))
    , m_compare(QStringLiteral("compare"),
                QStringLiteral("Report how the module's datagrams differ from those in the file."))
    , m_toScenario(QStringLiteral("to-scenario"),
                   QStringLiteral("Write the engine's side of the file of --replay as a scenario, and exit."),
                   QStringLiteral("FILE"))
{
    parser->addOptions({m_record, m_replay, m_recordedPort, m_speed, m_loop, m_compare, m_toScenario});
}

bool RecordingOptions::read(const QCommandLineParser &parser, Options *options, QString *problem) const
{
    const auto fail = [problem](const QString &line) {
        *problem = line;
        return false;
    };
    for (const QCommandLineOption &file : {m_record, m_replay, m_toScenario}) {
        if (parser.isSet(file) && parser.value(file).isEmpty())
            return fail(QStringLiteral("--%1 takes the name of a file").arg(file.names().constFirst()));
    }
    for (const QCommandLineOption &ofReplay : {m_recordedPort, m_speed, m_loop, m_compare, m_toScenario}) {
        if (parser.isSet(ofReplay) && !parser.isSet(m_replay))
            return fail(QStringLiteral("--%1 needs --replay FILE").arg(ofReplay.names().constFirst()));
    }
    if (parser.isSet(m_compare) && parser.isSet(m_loop))
        return fail(QStringLiteral("--compare and --loop exclude each other"));
    if (parser.isSet(m_toScenario) &&
        (parser.isSet(m_speed) || parser.isSet(m_loop) || parser.isSet(m_compare) || parser.isSet(m_record)))
        return fail(QStringLiteral("--to-scenario excludes --speed, --loop, --compare and --record"));

    options->record = parser.value(m_record);
    options->replay = parser.value(m_replay);
    options->toScenario = parser.value(m_toScenario);
    options->loop = parser.isSet(m_loop);
    options->compare = parser.isSet(m_compare);
    for (const QString &written : {options->record, options->toScenario}) {
        if (!written.isEmpty() && isSameFile(written, options->replay))
            return fail(QStringLiteral("\"%1\" would be overwritten").arg(options->replay));
    }
    if (parser.isSet(m_speed) && !readSpeed(parser.value(m_speed), &options->speed)) {
        return fail(QStringLiteral("--speed takes a factor from %1 to %2, or max, not \"%3\"")
                        .arg(slowest)
                        .arg(fastest)
                        .arg(parser.value(m_speed)));
    }
    options->recordedPort = Recording::defaultEnginePort;
    if (parser.isSet(m_recordedPort)) {
        const QString text = parser.value(m_recordedPort);
        options->recordedPort = text.toUShort();
        if (options->recordedPort == 0 || text.startsWith(QLatin1Char('+')))
            return fail(QStringLiteral("--recorded-port takes a port from 1 to 65535, not \"%1\"").arg(text));
    }
    return true;
}

} // namespace simulated

#include "soakengine.h"
#include "support/testprogram.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

namespace {

constexpr int playMs = 5; // 200 Hz
constexpr quint8 snare = 38;
// A value is repeated after this many changes, so a gap of that length is not detected.
constexpr qint64 period = qint64(SoakEngine::levels) * SoakEngine::values;
constexpr int mostProblems = 20;

} // namespace

SoakEngine::SoakEngine()
    : m_store(std::make_unique<QTemporaryDir>())
{
    m_thread.run([this] {
        m_engine = new SoundEngine;
        if (!m_engine->listen(QHostAddress(QString::fromLatin1(testsupport::engineAddress))))
            qFatal("%s", qPrintable(m_engine->errorString()));
        m_engine->setStoreDirectory(m_store->path());
        QObject::connect(m_engine, &SoundEngine::parameterReceived, m_engine,
                         [this](int msb, int lsb, int value) { takeParameter(msb, lsb, value); });
        QObject::connect(m_engine, &SoundEngine::violated, m_engine,
                         [this](const QString &line) { m_problems.append(line); });
        m_timer = new QTimer(m_engine);
        m_timer->setTimerType(Qt::PreciseTimer);
        QObject::connect(m_timer, &QTimer::timeout, m_engine, [this] { playSome(); });
    });
}

SoakEngine::~SoakEngine()
{
    m_thread.run([this] { delete m_engine; });
}

void SoakEngine::play()
{
    m_thread.run([this] { m_timer->start(playMs); });
}

void SoakEngine::stopPlaying()
{
    m_thread.run([this] { m_timer->stop(); });
}

void SoakEngine::plantWrongMeter()
{
    m_thread.run([this] { m_meter = (m_meter + 1) % meterValues; });
}

bool SoakEngine::fail(const QString &mode)
{
    bool known = false;
    m_thread.run([&] { known = m_engine->setFailure(mode); });
    return known;
}

void SoakEngine::clearFailures()
{
    m_thread.run([this] { m_engine->clearFailures(); });
}

SoundEngine::ReceivedFile SoakEngine::takeLastFile()
{
    SoundEngine::ReceivedFile file;
    m_thread.run([&] {
        if (!m_engine->receivedFiles().isEmpty())
            file = m_engine->receivedFiles().constLast();
    });
    QFile stored(file.path);
    if (!file.path.isEmpty() && stored.open(QIODevice::ReadOnly)) {
        file.data = stored.readAll();
        stored.remove();
    }
    return file;
}

int SoakEngine::fileCount()
{
    int count = 0;
    m_thread.run([&] { count = m_engine->receivedFiles().size(); });
    return count;
}

quint16 SoakEngine::modulePort()
{
    quint16 port = 0;
    m_thread.run([&] { port = m_engine->modulePort(); });
    return port;
}

QStringList SoakEngine::problems()
{
    QStringList problems;
    m_thread.run([&] { problems = m_problems.mid(0, mostProblems); });
    return problems;
}

// Change n sets level n % levels to n / levels % values.
void SoakEngine::takeParameter(int msb, int lsb, int value)
{
    ++m_parameters;
    const int number = msb * values + lsb;
    if (m_numbers.size() < levels && !m_numbers.contains(number))
        m_numbers.append(number);
    const qint64 level = m_numbers.indexOf(number);
    if (level < 0) {
        m_problems.append(QStringLiteral("parameter %1/%2 is not one of the levels").arg(msb).arg(lsb));
        return;
    }
    const qint64 place = value * qint64(levels) + level;
    const qint64 ahead = (place - m_expected % period + period) % period;
    // A distance of more than half a period means that the value is an earlier one.
    if (ahead > period / 2)
        m_problems.append(QStringLiteral("parameter out of order: level %1, value %2").arg(level).arg(value));
    else
        m_missing += quint64(ahead);
    m_expected += ahead + 1;
}

void SoakEngine::playSome()
{
    SoundEngine::OutputLevels outputs{};
    outputs.fill(quint16(m_meter));
    if (m_engine->sendOutputMeters(outputs)) {
        m_meter = (m_meter + 1) % meterValues;
        ++m_meters;
    }
    if (m_engine->strike(snare, quint8(m_velocity))) {
        m_velocity = m_velocity == lastVelocity ? firstVelocity : m_velocity + 1;
        ++m_hits;
    }
}

// Runs parameters, meters, pad rolls and transfers with faults at the same time for a given duration. Checks
// everything that arrives on both sides, and monitors threads, descriptors and memory.

#include "process.h"
#include "soakengine.h"
#include "soakmodule.h"
#include "support/processresources.h"
#include "transferloop.h"

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QLoggingCategory>
#include <QTest>
#include <QTextStream>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr quint16 enginePort = 19797;
constexpr int reportS = 10;
constexpr int finishMs = 120000;
constexpr int settleMs = 60000;
// The memory that the allocator keeps after the first seconds varies.
constexpr qint64 allowedGrowthKiB = 8192;

void say(const QString &line)
{
    QTextStream(stdout) << line << '\n';
}

class Soak
{
public:
    Soak(int changesPerSecond, const QString &plant)
        : m_plant(plant)
        , m_module(changesPerSecond, [this] { return waiting(); })
        , m_transfers(m_module.plugin(), m_engine)
    {}

    bool run(int seconds);

private:
    quint64 waiting() const;
    void plantSomething();
    void progress(qint64 seconds);
    void judge();
    void judgeCount(const QString &what, quint64 sent, quint64 arrived, quint64 missing, quint64 dropped);
    void problem(const QString &line) { m_problems.append(line); }

    const QString m_plant;
    SoakEngine m_engine;
    SoakModule m_module;
    TransferLoop m_transfers;
    // Counted before the first file, because a transfer has a thread and an open file.
    int m_threads = 0;
    int m_descriptors = 0;
    qint64 m_warmKiB = 0; // after the first seconds
    QStringList m_problems;
};

bool Soak::run(int seconds)
{
    m_module.introduce();
    if (!QTest::qWaitFor([this] { return m_engine.parameters() == SoakEngine::levels; }, settleMs)) {
        problem(QStringLiteral("the engine receives nothing from the module"));
        judge();
        return false;
    }
    m_engine.play();
    if (!QTest::qWaitFor([this] { return m_module.meters() > 0; }, settleMs))
        problem(QStringLiteral("the module receives nothing from the engine"));
    m_threads = testsupport::threadCount();
    m_descriptors = testsupport::descriptorCount();
    m_module.start();
    m_transfers.start();

    QElapsedTimer since;
    since.start();
    const qint64 warmUpMs = qMin<qint64>(10000, seconds * 1000 / 2);
    qint64 reported = 0;
    bool warm = false;
    while (since.elapsed() < seconds * 1000LL) {
        QTest::qWait(100);
        if (!warm && since.elapsed() >= warmUpMs) {
            warm = true;
            m_warmKiB = soak::residentKiB();
            plantSomething();
        }
        if (since.elapsed() / 1000 >= reported + reportS) {
            reported += reportS;
            progress(reported);
        }
    }
    if (!QTest::qWaitFor([this] { return m_transfers.finish(); }, finishMs))
        problem(QStringLiteral("the last transfer did not end"));
    m_engine.stopPlaying();
    m_module.stop();
    // Waits for datagrams that have not arrived yet. judge() counts the missing ones.
    static_cast<void>(QTest::qWaitFor(
        [this] {
            return m_engine.parameters() >= m_module.sent() && m_module.meters() >= m_engine.meters() &&
                   m_module.hits() >= m_engine.hits() && testsupport::threadCount() <= m_threads;
        },
        settleMs));
    judge();
    return m_problems.isEmpty();
}

quint64 Soak::waiting() const
{
    const quint64 unheard = m_module.sent() - m_engine.parameters();
    // Reading the number of dropped datagrams takes too long for a few.
    if (unheard < 1000)
        return unheard;
    return unheard - qMin(unheard, soak::droppedDatagrams(enginePort));
}

void Soak::plantSomething()
{
    if (m_plant == QLatin1String("lost-parameter"))
        m_module.plantLostParameter();
    else if (m_plant == QLatin1String("wrong-meter"))
        m_engine.plantWrongMeter();
    else if (m_plant == QLatin1String("descriptors"))
        static_cast<void>(::open("/dev/null", O_RDONLY | O_CLOEXEC));
}

void Soak::progress(qint64 seconds)
{
    say(QStringLiteral(
            "%1 s: %2 parameters, %3 meter reports, %4 hits, %5 files arrived, %6 reported as failed, "
            "%7 KiB")
            .arg(seconds)
            .arg(m_module.sent())
            .arg(m_module.meters())
            .arg(m_module.hits())
            .arg(m_transfers.arrived())
            .arg(m_transfers.failed())
            .arg(soak::residentKiB()));
}

// Nothing is missing except the datagrams that the kernel reports as dropped, and nothing arrives twice.
void Soak::judgeCount(const QString &what, quint64 sent, quint64 arrived, quint64 missing, quint64 dropped)
{
    say(QStringLiteral("%1: %2 sent, %3 arrived, %4 missing").arg(what).arg(sent).arg(arrived).arg(missing));
    const quint64 unheard = sent > arrived ? sent - arrived : 0;
    if (arrived > sent)
        problem(QStringLiteral("%1 more %2 arrived than sent").arg(arrived - sent).arg(what));
    if (qMax(missing, unheard) > dropped)
        problem(QStringLiteral("%1 of the %2 are missing, but the kernel dropped only %3 datagrams")
                    .arg(qMax(missing, unheard))
                    .arg(what)
                    .arg(dropped));
}

void Soak::judge()
{
    const int threads = testsupport::threadCount();
    const int descriptors = testsupport::descriptorCount();
    const qint64 residentKiB = soak::residentKiB();
    const quint64 droppedByEngine = soak::droppedDatagrams(enginePort);
    const quint64 droppedByModule = soak::droppedDatagrams(m_engine.modulePort());
    judgeCount(QStringLiteral("parameters"), m_module.sent(), m_engine.parameters(),
               m_engine.missingParameters(), droppedByEngine);
    judgeCount(QStringLiteral("meter reports"), m_engine.meters(), m_module.meters(),
               m_module.missingMeters(), droppedByModule);
    judgeCount(QStringLiteral("hits"), m_engine.hits(), m_module.hits(), m_module.missingHits(),
               droppedByModule);
    say(QStringLiteral("files: %1 arrived, %2 reported as failed")
            .arg(m_transfers.arrived())
            .arg(m_transfers.failed()));
    say(QStringLiteral("dropped by the kernel: %1 to the engine, %2 to the module")
            .arg(droppedByEngine)
            .arg(droppedByModule));
    say(QStringLiteral("GUI thread: at most %1 ms late").arg(m_module.worstDelayMs()));
    say(QStringLiteral("threads: %1, then %2").arg(m_threads).arg(threads));
    say(QStringLiteral("descriptors: %1, then %2").arg(m_descriptors).arg(descriptors));
    say(QStringLiteral("memory: %1 KiB, then %2 KiB").arg(m_warmKiB).arg(residentKiB));

    if (threads > m_threads)
        problem(QStringLiteral("more threads than before: %1, %2").arg(m_threads).arg(threads));
    if (descriptors > m_descriptors)
        problem(QStringLiteral("more descriptors than before: %1, %2").arg(m_descriptors).arg(descriptors));
    if (testsupport::heapBytes() >= 0 && residentKiB > m_warmKiB + allowedGrowthKiB)
        problem(QStringLiteral("more memory than before: %1 KiB, %2 KiB").arg(m_warmKiB).arg(residentKiB));
    m_problems += m_engine.problems() + m_module.problems() + m_transfers.problems();
    for (const QString &line : qAsConst(m_problems))
        say(QStringLiteral("FAILED: ") + line);
    say(m_problems.isEmpty() ? QStringLiteral("soak: passed") : QStringLiteral("soak: failed"));
}

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false"));
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Runs the module and a simulated engine with all kinds of traffic at the same time."));
    parser.addHelpOption();
    const QCommandLineOption secondsOption(QStringLiteral("seconds"), QStringLiteral("How long (60)."),
                                           QStringLiteral("N"), QStringLiteral("60"));
    const QCommandLineOption rateOption(QStringLiteral("rate"),
                                        QStringLiteral("Parameter changes per second (10000)."),
                                        QStringLiteral("N"), QStringLiteral("10000"));
    const QCommandLineOption plantOption(
        QStringLiteral("plant"),
        QStringLiteral("Plant a fault that must be found: lost-parameter, wrong-meter or descriptors."),
        QStringLiteral("what"));
    parser.addOptions({secondsOption, rateOption, plantOption});
    parser.process(application);
    const int seconds = parser.value(secondsOption).toInt();
    const int rate = parser.value(rateOption).toInt();
    if (seconds < 1 || rate < 1) {
        QTextStream(stderr) << "zelta-soak: --seconds and --rate must be numbers from 1\n";
        return 2;
    }
    const QStringList plants{QString(), QStringLiteral("lost-parameter"), QStringLiteral("wrong-meter"),
                             QStringLiteral("descriptors")};
    if (!plants.contains(parser.value(plantOption))) {
        QTextStream(stderr) << "zelta-soak: unknown fault for --plant: " << parser.value(plantOption) << '\n';
        return 2;
    }
    return Soak(rate, parser.value(plantOption)).run(seconds) ? 0 : 1;
}

// Every failure mode of the simulator with every kind of file: the signals, the file that the engine
// received, and the next task.

#include "failingtransfer.h"

#include "simulator/failures.h"
#include "transfer/session.h"

#include <QTest>

namespace {

// Number of transfers at once. They mostly wait, unless each packet takes long.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || defined(ZELTACONNECT_EMULATED)
constexpr int atOnce = 12;
#else
constexpr int atOnce = 32;
#endif

#ifdef ZELTACONNECT_LONG_CASES
// The module waits ten minutes for the end of a sound bank.
constexpr int timeoutMs = 900000;
constexpr int firstAddress = 160;
constexpr bool takesLong = true;
#else
constexpr int timeoutMs = 240000;
constexpr int firstAddress = 120;
constexpr bool takesLong = false;
#endif

struct Case
{
    TransferKind kind;
    QString mode;
};

bool fillsMemory(const Case &item)
{
    return item.mode.startsWith(QLatin1String("memory-full"));
}

// True when the outcome depends on how early the sender notices the failure.
bool dependsOnTiming(const Case &item)
{
    static const QStringList modes = {QStringLiteral("lose-once"), QStringLiteral("delay-once"),
                                      QStringLiteral("vanish-and-return"), QStringLiteral("resend-past-end")};
    return fillsMemory(item) || modes.contains(item.mode);
}

// The transfer takes one second, so that answers of the engine arrive during it. It takes three seconds if
// the outcome depends on such an answer, because the machine may be busy.
int packetsOf(const Case &item)
{
    return item.kind.packetsFor(dependsOnTiming(item) ? 3000 : 1000);
}

// The mode, with a number where the default of the simulator does not fit these files.
QString modeText(const Case &item)
{
    // Every gap takes four seconds, so there are only one or two.
    if (item.mode == QLatin1String("drop") || item.mode == QLatin1String("reorder"))
        return QStringLiteral("%1=%2").arg(item.mode).arg(packetsOf(item) * 2 / 3);
    // Late enough that the next task is already queued. A task that is queued afterwards cancels the abort.
    if (fillsMemory(item))
        return QStringLiteral("%1=%2").arg(item.mode).arg(packetsOf(item) / 10);
    // After everything else, so that the order is defined.
    if (item.mode == QLatin1String("late-query-reply"))
        return item.mode + (takesLong ? QStringLiteral("=50000") : QStringLiteral("=27000"));
    return item.mode;
}

QString nameOf(const Case &item)
{
    return QStringLiteral("%1, %2").arg(item.mode, QLatin1String(item.kind.name));
}

// Engine firmware takes another 20 s, an unacknowledged sound bank ten minutes.
bool isLong(const Case &item)
{
    const QByteArray content = item.kind.content;
    return content == "FW" ||
           (content == "SB" && (item.mode == QLatin1String("no-end-ack") ||
                                item.mode == QLatin1String("vanish") || item.mode == QLatin1String("drop")));
}

QVector<Case> allCases()
{
    QVector<TransferKind> kinds = quickKinds();
    kinds.append(zeltaFirmwareKind());
    QVector<Case> cases;
    for (const simulated::FailureMode &mode : simulated::failureModes()) {
        for (const TransferKind &kind : qAsConst(kinds)) {
            const Case item{kind, QLatin1String(mode.name)};
            if (isAboutQueries(item.mode) && kind.before.isEmpty())
                continue;
            if (expectationOf(item.mode) && isLong(item) == takesLong)
                cases.append(item);
        }
    }
    return cases;
}

} // namespace

class FailureModesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyModeHasAnExpectation();
    void transfers_data();
    void transfers();

private:
    TestFiles m_files;
    QVector<Case> m_cases;
    QStringList m_verdicts;
};

void FailureModesTest::everyModeHasAnExpectation()
{
    for (const simulated::FailureMode &mode : simulated::failureModes())
        QVERIFY2(expectationOf(QLatin1String(mode.name)), mode.name);
}

// All transfers run here, in parallel. Each row then checks one verdict.
void FailureModesTest::transfers_data()
{
    QTest::addColumn<QString>("verdict");

    m_cases = allCases();
    QStringList paths;
    for (const Case &item : qAsConst(m_cases)) {
        const int packets = packetsOf(item);
        const QString name = QStringLiteral("%1-%2/%3")
                                 .arg(QLatin1String(item.kind.content))
                                 .arg(packets)
                                 .arg(item.kind.fileName);
        paths.append(m_files.write(name, item.kind.file(packets * item.kind.chunkBytes - 1)));
    }
    QVector<QString> verdicts(m_cases.size());
    EngineThread thread;
    runCrowd(
        m_cases.size(), atOnce,
        [&](int index, int place) {
            const Case &item = m_cases.at(index);
            const QString address = QStringLiteral("127.20.27.%1").arg(firstAddress + place);
            return std::make_unique<FailingTransfer>(thread, address, item.kind, modeText(item),
                                                     paths.at(index), timeoutMs);
        },
        [&](int index, CrowdMember &member) {
            verdicts[index] = static_cast<FailingTransfer &>(member).verdict();
        });
    for (int i = 0; i < m_cases.size(); ++i)
        QTest::newRow(qPrintable(nameOf(m_cases.at(i)))) << verdicts.at(i);
}

void FailureModesTest::transfers()
{
    QFETCH(const QString, verdict);
    QVERIFY2(verdict.isEmpty(), qPrintable(verdict));
}

QTEST_GUILESS_MAIN(FailureModesTest)
#include "tst_failuremodes.moc"

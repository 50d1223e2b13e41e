// Every failure mode of the simulator with every kind of file, sent by a FileTransfer: state, reason and
// message.

#include "companiontransfer.h"
#include "outcomecases.h"
#include "outcomes.h"
#include "sendingprogram.h"

#include "simulator/failures.h"
#include "support/testprogram.h"
#include "transfer/session.h"

#include <QQmlEngine>
#include <QTest>

namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || defined(ZELTACONNECT_EMULATED)
constexpr int atOnce = 4;
#else
constexpr int atOnce = 16;
#endif

#ifdef ZELTACONNECT_LONG_CASES
constexpr int timeoutMs = 900000;
constexpr int firstAddress = 126;
constexpr bool takesLong = true;
#else
constexpr int timeoutMs = 240000;
constexpr int firstAddress = 102;
constexpr bool takesLong = false;
#endif

// The engine may not acknowledge the end.
bool isWithoutEnd(const QString &mode)
{
    return mode == QLatin1String("no-end-ack") || mode == QLatin1String("vanish") ||
           mode == QLatin1String("drop");
}

} // namespace

class OutcomesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyModeHasAnOutcome();
    void transfers_data();
    void transfers();
    void programs_data();
    void programs();

private:
    void collect(const QVector<OutcomeCase> &cases, const MakeMember &make,
                 const std::function<QString(CrowdMember &member)> &verdictOf);
    static QString addressOf(int place) { return QStringLiteral("127.20.24.%1").arg(firstAddress + place); }

    TestFiles m_files;
    QVector<OutcomeCase> m_cases;
    QStringList m_paths;
    EngineThread m_thread;
};

void OutcomesTest::initTestCase()
{
    m_cases = outcomeCases(takesLong);
    for (const OutcomeCase &item : qAsConst(m_cases))
        m_paths.append(item.write(m_files));
}

void OutcomesTest::everyModeHasAnOutcome()
{
    for (const simulated::FailureMode &mode : simulated::failureModes()) {
        for (const OutcomeKind &kind : outcomeKinds())
            QVERIFY2(outcomeOf(kind, QLatin1String(mode.name)), mode.name);
    }
}

// All transfers run here, in parallel. Each row then checks one verdict.
void OutcomesTest::collect(const QVector<OutcomeCase> &cases, const MakeMember &make,
                           const std::function<QString(CrowdMember &member)> &verdictOf)
{
    QTest::addColumn<QString>("verdict");
    QVector<QString> verdicts(cases.size());
    runCrowd(cases.size(), atOnce, make,
             [&](int index, CrowdMember &member) { verdicts[index] = verdictOf(member); });
    for (int i = 0; i < cases.size(); ++i)
        QTest::newRow(qPrintable(cases.at(i).name())) << verdicts.at(i);
}

void OutcomesTest::transfers_data()
{
    QQmlEngine qml;
    qml.addImportPath(testsupport::qmlDir());
    collect(
        m_cases,
        [&](int index, int place) {
            const OutcomeCase &item = m_cases.at(index);
            return std::make_unique<CompanionTransfer>(qml, m_thread, addressOf(place), item.kind,
                                                       item.modeText, m_paths.at(index), timeoutMs);
        },
        [](CrowdMember &member) { return static_cast<CompanionTransfer &>(member).verdict(); });
}

void OutcomesTest::transfers()
{
    QFETCH(const QString, verdict);
    QVERIFY2(verdict.isEmpty(), qPrintable(verdict));
}

void OutcomesTest::programs_data()
{
    // Starting a program takes longer than the transfer, so the short test sends one kind with each mode.
    QVector<OutcomeCase> cases;
    QStringList paths;
    for (int i = 0; i < m_cases.size(); ++i) {
        // The module waits ten minutes for the end of a sound bank; transfers() covers this.
        if (QByteArray(m_cases.at(i).kind.content) == "SB" && isWithoutEnd(m_cases.at(i).mode))
            continue;
        const bool isNew = cases.isEmpty() || cases.constLast().mode != m_cases.at(i).mode;
        const bool isTurn = i % 4 == cases.size() % 4;
        if (takesLong || isNew) {
            cases.append(m_cases.at(i));
            paths.append(m_paths.at(i));
        } else if (isTurn) {
            cases.last() = m_cases.at(i);
            paths.last() = m_paths.at(i);
        }
    }
    collect(
        cases,
        [&](int index, int place) {
            const OutcomeCase &item = cases.at(index);
            return std::make_unique<SendingProgram>(m_thread, addressOf(place), item.kind, item.modeText,
                                                    paths.at(index), timeoutMs);
        },
        [](CrowdMember &member) { return static_cast<SendingProgram &>(member).verdict(); });
}

void OutcomesTest::programs()
{
    QFETCH(const QString, verdict);
    QVERIFY2(verdict.isEmpty(), qPrintable(verdict));
}

QTEST_GUILESS_MAIN(OutcomesTest)
#include "tst_outcomes.moc"

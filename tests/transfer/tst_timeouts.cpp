#include "filestream.h"
#include "session.h"
#include "transferkinds.h"

#include "control/qconnectqmlplugin.h"

#include <QElapsedTimer>
#include <QTest>
#include <QTimer>

// An engine that does not answer. All cases are started first and checked one after the other.

namespace {

constexpr int endWaitMs = 15000;
constexpr int queryWaitMs = 20000;

} // namespace

class TransferTimeoutsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void outcome_data();
    void outcome();

private:
    struct Case
    {
        QByteArray name;
        std::unique_ptr<Session> session;
        QStringList expected;
        int waitMs;
        bool aborts = false; ///< leaves the next task queued
        qint64 startedMs = -1;
        qint64 finishedMs = -1;
    };
    Session &start(const QByteArray &name, const QStringList &expected, int waitMs);

    TestFiles m_files;
    std::vector<Case> m_cases;
    QElapsedTimer m_clock;
};

Session &TransferTimeoutsTest::start(const QByteArray &name, const QStringList &expected, int waitMs)
{
    m_cases.push_back({name, std::make_unique<Session>(), expected, waitMs});
    Session &session = *m_cases.back().session;
    answerOldVersions(session.peer());
    session.peer().answerEnd({});
    m_cases.back().startedMs = m_clock.elapsed();
    return session;
}

void TransferTimeoutsTest::initTestCase()
{
    const QVector<TransferKind> kinds = quickKinds();
    m_cases.reserve(40);
    m_clock.start();

    // The time-out of a sound bank, ten minutes, has a test of its own.
    for (const TransferKind &kind : kinds) {
        if (qstrcmp(kind.content, "SB") == 0)
            continue;
        // Imports report the engine's status, which stays 0.
        const QStringList completed = kind.completed(kind.passesStatusOn ? 0 : 0xFF);
        Session &session =
            start(QByteArray("end: ") + kind.name, kind.before + kind.progressed(2) + completed, endWaitMs);
        kind.send(session.plugin(), m_files.write(kind.fileName, kind.file(600)));
    }

    // An acknowledgement after the time-out has no effect, also not on the next transfer.
    const TransferKind triggerBank = kinds.at(2);
    Session &late = start("late end", triggerBank.progressed(2) + triggerBank.completed(0xFF), endWaitMs);
    triggerBank.send(late.plugin(), m_files.write(triggerBank.fileName, triggerBank.file(600)));
    connect(&late.plugin(), &QConnectQmlPlugin::triggerbankTransferComplete, this,
            [this, &late, raised = false]() mutable {
                if (!raised)
                    QTimer::singleShot(2000, this, [&late] { late.peer().raise({"DE", 0, 1}); });
                raised = true;
            });

    // Data acknowledgements do not end a wait.
    Session &refused =
        start("refusals during the wait", triggerBank.progressed(2) + triggerBank.completed(0xFF), endWaitMs);
    refused.peer().answerEnd(
        {{"DC", 0, 0}, {"DC", 5, 0x0100}, {"DC", 5, 0xBE}, {"DC", 5, 0xE0}, {"DC", 5, 0x01}, {"AB", 1, 2}});
    triggerBank.send(refused.plugin(), m_files.path(triggerBank.fileName));

    // "Memory full" does not end the wait either, but the next task stays in the queue. Imports report the
    // status.
    for (const TransferKind &kind : kinds) {
        if (qstrcmp(kind.content, "SB") == 0)
            continue;
        const QStringList completed = kind.completed(kind.passesStatusOn ? 0xE2 : 0xFF);
        Session &full = start(QByteArray("memory full: ") + kind.name,
                              kind.before + kind.progressed(2) + completed, endWaitMs);
        full.peer().answerEnd({{"DC", 0, 0x00E2}});
        m_cases.back().aborts = true;
        kind.send(full.plugin(), m_files.path(kind.fileName));
    }

    start("query: sound bank", {}, queryWaitMs).plugin().requestSoundBankVersion();
    start("query: trigger bank", {}, queryWaitMs).plugin().requestTriggerBankVersion();
    Session &pedal =
        start("query: pedal, then version", {QStringLiteral("triggerbankVersionChanged()")}, queryWaitMs);
    pedal.plugin().requestHHRawValue();
    pedal.plugin().requestTriggerBankVersion();
    pedal.peer().answerQuery("TN", {{"TN", 1, 1}});
    Session &board = start(
        "query: trigger firmware",
        {QStringLiteral("intFwUpdateStarted()"), QStringLiteral("intTriggerFirmwareUpdateStarted(0, 65541)"),
         QStringLiteral("intFwUpdateFinished()"), QStringLiteral("intTriggerFirmwareUpdateFinished()")},
        queryWaitMs);
    board.peer().answerQuery("TV", {});
    board.peer().answerEnd({{"DE", 0, 0}});
    board.plugin().sendTriggerFirmware(m_files.path(kinds.first().fileName));
    // Refusals and unknown events do not end the wait for a reply.
    Session &strays = start("query: strays", {}, queryWaitMs);
    strays.peer().answerQuery("SN", {{"DC", 0, 0xBE}, {"DC", 0, 0xE0}, {"AB", 0, 0}});
    strays.plugin().requestSoundBankVersion();

    // A query behind each task records the time when the wait ended.
    for (Case &testCase : m_cases) {
        if (testCase.name == "query: pedal, then version")
            continue;
        testCase.session->peer().answerQuery("HL", {{"HL", 54321, 0}});
        testCase.session->plugin().requestHHRawValue();
    }
    for (Case &testCase : m_cases) {
        connect(&testCase.session->plugin(), &QConnectQmlPlugin::hihatRawValueChanged, this,
                [this, &testCase] { testCase.finishedMs = m_clock.elapsed(); });
    }
}

void TransferTimeoutsTest::outcome_data()
{
    QTest::addColumn<int>("index");
    for (std::size_t i = 0; i < m_cases.size(); ++i)
        QTest::newRow(m_cases.at(i).name) << int(i);
}

void TransferTimeoutsTest::outcome()
{
    QFETCH(const int, index);
    Case &testCase = m_cases.at(std::size_t(index));
    Session &session = *testCase.session;

    if (testCase.name == "query: pedal, then version") {
        QVERIFY(session.waitFor(testCase.expected.first()));
        QVERIFY(m_clock.elapsed() - testCase.startedMs >= testCase.waitMs);
        QCOMPARE(session.differenceWhenFinished(testCase.expected), QString());
        return;
    }
    if (testCase.aborts) {
        QVERIFY(session.waitFor(testCase.expected.last()));
        QVERIFY(session.peer().waitUntilSilent());
        QCOMPARE(session.difference(testCase.expected), QString());
        QVERIFY(!session.peer().received().contains(QByteArray("HL\0\0", 4)));
        // The task in the queue runs before the new one.
        session.plugin().requestTriggerBankVersion();
        QVERIFY(session.waitFor(Session::tasksFinished()));
        QCOMPARE(session.difference(testCase.expected + QStringList{Session::tasksFinished()}), QString());
        return;
    }
    QVERIFY(session.waitFor(Session::tasksFinished()));
    const qint64 waitedMs = testCase.finishedMs - testCase.startedMs;
    // The upper limit excludes the ten minutes of a sound bank.
    QVERIFY2(waitedMs >= testCase.waitMs && waitedMs < 3 * testCase.waitMs, QByteArray::number(waitedMs));
    QCOMPARE(session.difference(testCase.expected + QStringList{Session::tasksFinished()}), QString());

    if (testCase.name == "late end") {
        QVERIFY(session.waitFor(QStringLiteral("udpPacketArrived(17477, 0, 1)")));
        session.peer().answerEnd({{"DE", 0, 0}});
        session.forgetSeen();
        const TransferKind triggerBank = quickKinds().at(2);
        triggerBank.send(session.plugin(), m_files.path(triggerBank.fileName));
        QCOMPARE(session.differenceWhenFinished(triggerBank.progressed(2) + triggerBank.completed(0)),
                 QString());
    }
}

QTEST_GUILESS_MAIN(TransferTimeoutsTest)
#include "tst_timeouts.moc"

#include "filestream.h"
#include "session.h"
#include "transferkinds.h"

#include "control/qconnectqmlplugin.h"
#include "support/processresources.h"

#include <QElapsedTimer>
#include <QTest>

#include <atomic>

// The control object is destroyed in each phase of a transfer. Its destructor waits for the thread, and
// nothing is sent after it has returned.

namespace {

// A wait is ended, a pause between packets is finished. A complete wait would take 15 s or 20 s.
constexpr int promptMs = 7500;
constexpr int afterEndMs = 20000;

} // namespace

class DestructionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_threads = testsupport::threadCount(); }
    void atOnce();
    void rightAfterQueuing();
    void duringAQuery();
    void duringTheData_data();
    void duringTheData();
    void duringAResendPause();
    void duringTheEndWait();
    void duringTheSleepAfterFirmware();
    void afterAnAbort();
    void manyTimes();

private:
    static void verifySilence(Session &session);

    TestFiles m_files;
    int m_threads = 0;
};

void DestructionTest::verifySilence(Session &session)
{
    QVERIFY(session.peer().waitUntilCaughtUp());
    const int count = session.peer().received().size();
    QTest::qWait(200);
    QVERIFY(session.peer().waitUntilCaughtUp());
    QCOMPARE(session.peer().received().size(), count);
}

void DestructionTest::atOnce()
{
    {
        Session session;
        QVERIFY(session.destroyPlugin() < promptMs);
    }
    QTRY_COMPARE_WITH_TIMEOUT(testsupport::threadCount(), m_threads, patienceMs);
}

// The thread may not have started yet.
void DestructionTest::rightAfterQueuing()
{
    for (int i = 0; i < 50; ++i) {
        Session session(Session::NoRecording);
        session.plugin().requestSoundBankVersion();
        session.plugin().requestTriggerBankVersion();
        if (i % 2 != 0)
            QThread::usleep(ulong(i) * 10);
        QVERIFY(session.destroyPlugin() < promptMs);
        QVERIFY(session.peer().waitUntilCaughtUp());
        QVERIFY(session.peer().received().size() <= 1);
    }
}

void DestructionTest::duringAQuery()
{
    Session session;
    session.plugin().requestSoundBankVersion();
    session.plugin().requestTriggerBankVersion();
    QVERIFY(session.peer().waitForCount(1, patienceMs));
    QVERIFY(session.destroyPlugin() < promptMs);
    verifySilence(session);
    QCOMPARE(session.peer().received(), QVector<QByteArray>{QByteArray("SN\0\0", 4)});
}

void DestructionTest::duringTheData_data()
{
    QTest::addColumn<TransferKind>("kind");

    QVector<TransferKind> kinds = quickKinds();
    kinds.append(zeltaFirmwareKind());
    for (const TransferKind &kind : qAsConst(kinds))
        QTest::newRow(kind.name) << kind;
}

void DestructionTest::duringTheData()
{
    QFETCH(const TransferKind, kind);

    Session session;
    answerOldVersions(session.peer());
    kind.send(session.plugin(), m_files.write(kind.fileName, kind.file(kind.chunkBytes * 20000)));
    session.plugin().requestSoundBankVersion();
    QVERIFY(QTest::qWaitFor([&] { return session.peer().lastDataNumber() > 30; }, patienceMs));
    QVERIFY(session.destroyPlugin() < promptMs);
    verifySilence(session);
    const FileStream stream(session.peer().received(), kind.content);
    QVERIFY(stream.isPlain(stream.numbers.size()));
    QVERIFY(stream.ends.isEmpty());
    QVERIFY(!session.peer().received().contains(QByteArray("SN\0\0", 4)));
}

void DestructionTest::duringAResendPause()
{
    Session session;
    const TransferKind kind = quickKinds().at(2);
    session.peer().answerData(20, {{"DC", 5, 0xBE}});
    kind.send(session.plugin(), m_files.write(kind.fileName, kind.file(kind.chunkBytes * 2000)));
    QVERIFY(QTest::qWaitFor([&] { return session.peer().lastDataNumber() >= 20; }, patienceMs));
    QVERIFY(session.peer().waitUntilSilent());
    session.destroyPlugin();
    verifySilence(session);
    // The packet after the pause is the last one.
    QCOMPARE(session.peer().lastDataNumber(), 5);
    QVERIFY(FileStream(session.peer().received(), kind.content).ends.isEmpty());
}

void DestructionTest::duringTheEndWait()
{
    const auto kinds = quickKinds();
    for (const TransferKind &kind : kinds) {
        Session session;
        answerOldVersions(session.peer());
        session.peer().answerEnd({});
        kind.send(session.plugin(), m_files.write(kind.fileName, kind.file(1000)));
        session.plugin().requestSoundBankVersion();
        QVERIFY(session.peer().waitForPrefix("DE", patienceMs));
        QVERIFY(session.destroyPlugin() < promptMs);
        verifySilence(session);
        QCOMPARE(session.peer().received().last().left(2), QByteArray("DE"));
    }
}

void DestructionTest::duringTheSleepAfterFirmware()
{
    QElapsedTimer clock;
    std::atomic<qint64> endedMs{-1};
    clock.start();
    Session session;
    answerOldVersions(session.peer());
    // Called before the answer, so before the pause.
    session.peer().watch([&](const QByteArray &datagram) {
        if (datagram.startsWith("DE"))
            endedMs = clock.elapsed();
    });
    const TransferKind kind = zeltaFirmwareKind();
    kind.send(session.plugin(), m_files.write(kind.fileName, kind.file(1000)));
    session.plugin().requestSoundBankVersion();
    QVERIFY(session.waitFor(QStringLiteral("udpPacketArrived(17477, 0, 0)")));
    session.destroyPlugin();
    // The pause is finished first.
    const qint64 sleptMs = clock.elapsed() - endedMs;
    QVERIFY2(endedMs >= 0 && sleptMs >= afterEndMs, QByteArray::number(sleptMs));
    verifySilence(session);
    QCOMPARE(session.peer().received().last().left(2), QByteArray("DE"));
}

void DestructionTest::afterAnAbort()
{
    Session session;
    const TransferKind kind = quickKinds().at(4);
    session.peer().answerData(20, {{"DC", 0, 0xE1}});
    kind.send(session.plugin(), m_files.write(kind.fileName, kind.file(kind.chunkBytes * 2000)));
    session.plugin().requestSoundBankVersion();
    QVERIFY(session.waitFor(kind.completed(0xE1).constFirst()));
    QVERIFY(session.destroyPlugin() < promptMs);
    verifySilence(session);
    QVERIFY(!session.peer().received().contains(QByteArray("SN\0\0", 4)));
}

void DestructionTest::manyTimes()
{
    const TransferKind kind = quickKinds().constLast();
    const QString path = m_files.write(kind.fileName, kind.file(kind.chunkBytes * 200));
    for (int i = 0; i < 100; ++i) {
        Session session(Session::NoRecording);
        kind.send(session.plugin(), path);
        QTest::qWait(i % 25);
        QVERIFY(session.destroyPlugin() < promptMs);
    }
    QTRY_COMPARE_WITH_TIMEOUT(testsupport::threadCount(), m_threads, patienceMs);
}

QTEST_GUILESS_MAIN(DestructionTest)
#include "tst_destruction.moc"

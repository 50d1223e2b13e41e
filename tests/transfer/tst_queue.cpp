#include "filestream.h"
#include "session.h"
#include "transferkinds.h"

#include "control/qconnectqmlplugin.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QSemaphore>
#include <QTest>
#include <QTimer>

// Several tasks, and handlers that queue further ones.

namespace {

constexpr int rounds = 500;

const QString soundBankVersionSeen = QStringLiteral("soundbankVersionChanged()");
const QString triggerBankVersionSeen = QStringLiteral("triggerbankVersionChanged()");

/// Tags of every datagram except data packets.
QStringList outline(const QVector<QByteArray> &datagrams)
{
    QStringList result;
    for (const QByteArray &datagram : datagrams) {
        if (!datagram.startsWith("DC"))
            result.append(QString::fromLatin1(datagram.left(datagram.size() > 4 ? 4 : 2)));
    }
    return result;
}

/// A transfer engine whose thread takes a while to end after its last task.
class SlowlyEndingEngine : public qconnectfirmware
{
public:
    explicit SlowlyEndingEngine(QConnectQmlPlugin &plugin)
        : qconnectfirmware(&plugin, nullptr)
    {}
    ~SlowlyEndingEngine() override { stop(); }
    Q_DISABLE_COPY(SlowlyEndingEngine)

    QSemaphore ending;

protected:
    void run() override
    {
        qconnectfirmware::run();
        ending.release();
        msleep(300);
    }
};

} // namespace

class TransferQueueTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void severalAtOnce();
    void whileOneRuns();
    void unsendableInBetween();
    void queuedWhileTheLastOneEnds_data();
    void queuedWhileTheLastOneEnds();
    void queuedWhileTheThreadEnds();
    void endPacketIsSentLocked();
    void handlersThatCallBack();
    void handlerThatQueuesTheSame();
    void settingsDuringATransfer();
    void checkDuringATransfer();

private:
    TestFiles m_files;
};

void TransferQueueTest::severalAtOnce()
{
    Session session;
    answerOldVersions(session.peer());
    session.peer().answerQuery("SN", {{"SN", 1, 1}});
    session.peer().answerQuery("TN", {{"TN", 1, 1}});
    QConnectQmlPlugin &plugin = session.plugin();
    const QVector<TransferKind> kinds = quickKinds();
    QStringList expected;
    const auto send = [&](int index) {
        const TransferKind &kind = kinds.at(index);
        kind.send(plugin, m_files.write(kind.fileName, kind.file(kind.chunkBytes * 3)));
        expected += kind.before + kind.progressed(3) + kind.completed(0);
    };
    send(3);
    plugin.requestTriggerBankVersion();
    expected << triggerBankVersionSeen;
    send(1);
    send(0);
    send(5);
    plugin.requestSoundBankVersion();
    expected << soundBankVersionSeen;
    send(4);
    send(2);
    QCOMPARE(session.differenceWhenFinished(expected), QString());
    QCOMPARE(outline(session.peer().received()).join(QLatin1Char(' ')),
             QStringLiteral("DSIS DEIS TN DSSB DESB TV DSTF DETF DSBF DEBF SN DSIW DEIW DSTB DETB HL"));
}

void TransferQueueTest::whileOneRuns()
{
    Session session;
    session.peer().answerQuery("SN", {{"SN", 1, 1}});
    const TransferKind triggerBank = quickKinds().at(2);
    const TransferKind sample = quickKinds().at(4);
    triggerBank.send(session.plugin(),
                     m_files.write(triggerBank.fileName, triggerBank.file(triggerBank.chunkBytes * 400)));
    QVERIFY(session.peer().waitForCount(20, patienceMs));
    sample.send(session.plugin(), m_files.write(sample.fileName, sample.file(10)));
    session.plugin().requestSoundBankVersion();
    QCOMPARE(session.differenceWhenFinished(triggerBank.progressed(400) + triggerBank.completed(0) +
                                            sample.progressed(1) + sample.completed(0) +
                                            QStringList{soundBankVersionSeen}),
             QString());
    QCOMPARE(outline(session.peer().received()).join(QLatin1Char(' ')),
             QStringLiteral("DSTB DETB DSIW DEIW SN HL"));
}

void TransferQueueTest::unsendableInBetween()
{
    Session session;
    session.peer().answerQuery("SN", {{"SN", 1, 1}});
    QConnectQmlPlugin &plugin = session.plugin();
    const QString missing = m_files.path(QStringLiteral("missing"));
    plugin.sendSoundBank(missing);
    plugin.sendZeltaFirmware(missing);
    plugin.sendTriggerFirmware(m_files.write(QStringLiteral("no firmware"), "TGFX\x05\0\1\0"));
    plugin.sendBtFw(QString());
    plugin.requestSoundBankVersion();
    plugin.sendImportWaveSample(m_files.path(QString()), 3);
    QCOMPARE(session.differenceWhenFinished({soundBankVersionSeen}), QString());
    QCOMPARE(outline(session.peer().received()), (QStringList{QStringLiteral("SN"), QStringLiteral("HL")}));
}

void TransferQueueTest::queuedWhileTheLastOneEnds_data()
{
    QTest::addColumn<int>("delayUs");

    // The next task is queued before, while and after the thread ends.
    for (const int delayUs : {0, 20, 50, 100, 300})
        QTest::addRow("%d us later", delayUs) << delayUs;
}

// The reply to a query ends the last task; the next task is queued while the thread ends.
void TransferQueueTest::queuedWhileTheLastOneEnds()
{
    QFETCH(const int, delayUs);

    Session session;
    session.peer().answerQuery("SN", {{"SN", 1, 1}});
    int replies = 0;
    QEventLoop loop;
    QTimer::singleShot(patienceMs, &loop, &QEventLoop::quit);
    connect(&session.plugin(), &QConnectQmlPlugin::soundbankVersionChanged, this, [&] {
        if (++replies == rounds) {
            loop.quit();
            return;
        }
        QElapsedTimer timer;
        timer.start();
        while (timer.nsecsElapsed() < delayUs * 1000) {
        }
        session.plugin().requestSoundBankVersion();
    });
    session.plugin().requestSoundBankVersion();
    loop.exec();
    QCOMPARE(replies, rounds);
    QCOMPARE(session.peer().received().size(), rounds);
}

// A task that is queued after the last look at the queue runs, although the thread has not ended yet.
void TransferQueueTest::queuedWhileTheThreadEnds()
{
    Session session;
    session.peer().answerQuery("SN", {{"SN", 1, 1}});
    session.peer().answerQuery("TN", {{"TN", 1, 1}});
    SlowlyEndingEngine engine(session.plugin());
    engine.requestSoundBankVersion();
    QVERIFY(session.waitFor(soundBankVersionSeen));
    QVERIFY(engine.ending.tryAcquire(1, patienceMs));
    engine.requestTriggerBankVersion();
    QVERIFY(session.waitFor(triggerBankVersionSeen));
}

// The end packet is not sent while another thread holds the lock; otherwise its acknowledgement could be
// handled before the wait for it begins. The file ends before a pause, in which the GUI thread takes the
// lock. A busy machine may take it too late now and then.
void TransferQueueTest::endPacketIsSentLocked()
{
    constexpr int filesToCheck = 100000;
    constexpr qint64 marginMs = 20;
    Session session;
    const TransferKind triggerBank = quickKinds().at(2);
    const QString path = m_files.write(triggerBank.fileName, triggerBank.file(triggerBank.chunkBytes * 40));
    QStringList files;
    while (files.size() < filesToCheck)
        files.append(path);
    int sentWhileLocked = 0;
    for (int round = 0; round < 5; ++round) {
        const int before = session.peer().received().size();
        triggerBank.send(session.plugin(), path);
        QElapsedTimer patience;
        patience.start();
        while (session.peer().received().size() < before + 41 && !patience.hasExpired(patienceMs))
            QThread::usleep(500);
        const qint64 lockedMs = QDateTime::currentMSecsSinceEpoch();
        QCOMPARE(session.plugin().checkBtFw(files), 0);
        const qint64 unlockedMs = QDateTime::currentMSecsSinceEpoch();
        QVERIFY(session.finishTasks());
        session.forgetSeen();
        const QVector<QByteArray> datagrams = session.peer().received();
        const QVector<qint64> times = session.peer().receivedAtNs();
        QVERIFY(datagrams.at(before + 41).startsWith("DETB"));
        const qint64 endMs = times.at(before + 41) / 1000000;
        if (endMs >= lockedMs && endMs < unlockedMs - marginMs)
            ++sentWhileLocked;
    }
    QVERIFY2(sentWhileLocked <= 2, QByteArray::number(sentWhileLocked));
}

// Every signal of transfers and versions has a handler that calls many methods. No call blocks and no task is
// lost.
void TransferQueueTest::handlersThatCallBack()
{
    Session session;
    answerOldVersions(session.peer());
    for (const Tag query : {Tag("SN"), Tag("TN")})
        session.peer().answerQuery(query, {{query, 1, 1}});
    QConnectQmlPlugin &plugin = session.plugin();
    const QString sample = m_files.write(QStringLiteral("short.wav"), noise(100));
    int calls = 0;
    const auto callEverything = [&] {
        if (++calls > 200)
            return;
        plugin.zeltaFwVersion();
        plugin.triggerFwVersion();
        plugin.soundBankVersion();
        plugin.triggerBankVersion();
        plugin.checkBtFw({sample});
        plugin.requestMemInfo();
        plugin.parseJsonFile(sample);
        plugin.setMetronomeTempo(120);
        if (calls % 5 == 0) {
            plugin.requestSoundBankVersion();
            plugin.requestTriggerBankVersion();
            plugin.sendImportWaveSample(sample, calls);
        }
    };
    connect(&plugin, &QConnectQmlPlugin::zeltaVersionChanged, this, callEverything);
    connect(&plugin, &QConnectQmlPlugin::triggerVersionChanged, this, callEverything);
    connect(&plugin, &QConnectQmlPlugin::soundbankVersionChanged, this, callEverything);
    connect(&plugin, &QConnectQmlPlugin::triggerbankVersionChanged, this, callEverything);
    connect(&plugin, &QConnectQmlPlugin::hihatRawValueChanged, this, callEverything);
    connect(&plugin, &QConnectQmlPlugin::soundProgressChanged, this, callEverything);
    connect(&plugin, &QConnectQmlPlugin::triggerProgressChanged, this, callEverything);
    connect(&plugin, &QConnectQmlPlugin::btfwProgressChanged, this, callEverything);
    connect(&plugin, &QConnectQmlPlugin::waveTransferProgress, this, callEverything);
    connect(&plugin, &QConnectQmlPlugin::waveTransferComplete, this, callEverything);
    connect(&plugin, &QConnectQmlPlugin::soundbankTransferComplete, this, callEverything);
    connect(&plugin, &QConnectQmlPlugin::triggerbankTransferComplete, this, callEverything);
    connect(&plugin, &QConnectQmlPlugin::bluetoothTransferComplete, this, callEverything);
    connect(&plugin, &QConnectQmlPlugin::intFwUpdateStarted, this, callEverything);
    connect(&plugin, &QConnectQmlPlugin::intFwUpdateFinished, this, callEverything);
    connect(&plugin, &QConnectQmlPlugin::intTriggerFirmwareUpdateStarted, this, callEverything);
    connect(&plugin, &QConnectQmlPlugin::intTriggerFirmwareUpdateFinished, this, callEverything);
    connect(&plugin, &QConnectQmlPlugin::udpPacketArrived, this, callEverything);

    QVector<TransferKind> kinds = quickKinds();
    for (const TransferKind &kind : qAsConst(kinds))
        kind.send(plugin, m_files.write(kind.fileName, kind.file(kind.chunkBytes * 2)));
    session.peer().answerQuery("HL", {{"HL", 1, 0}});
    plugin.requestHHRawValue();

    // Handlers queue further tasks, so all of them must have ended.
    QVERIFY(QTest::qWaitFor([&] { return calls >= 200; }, patienceMs));
    QVERIFY(session.finishTasks());
    const QStringList seen = session.seen();
    for (const TransferKind &kind : qAsConst(kinds)) {
        const auto signals = kind.completed(0);
        for (const QString &signal : signals)
            QVERIFY2(seen.contains(signal), qPrintable(signal));
    }
    // Calls 5, 10, ... 200 queued a sample each.
    for (int slot = 5; slot <= 200; slot += 5)
        QVERIFY2(session.waitFor(QStringLiteral("waveTransferComplete(%1, 0)").arg(slot)),
                 QByteArray::number(slot));
}

// The handler of a completion starts the same transfer again, as a screen does that retries.
void TransferQueueTest::handlerThatQueuesTheSame()
{
    Session session;
    const TransferKind soundBank = quickKinds().at(1);
    const QString path = m_files.write(soundBank.fileName, soundBank.file(10));
    int completions = 0;
    connect(&session.plugin(), &QConnectQmlPlugin::soundbankTransferComplete, this, [&](ushort status) {
        QCOMPARE(status, ushort(0));
        if (++completions < 50)
            session.plugin().sendSoundBank(path);
    });
    session.plugin().sendSoundBank(path);
    QVERIFY2(QTest::qWaitFor([&] { return completions == 50; }, patienceMs), QByteArray::number(completions));
    QCOMPARE(FileStream(session.peer().received(), "SB").starts.size(), 50);
}

// Two threads send: settings arrive complete between the packets of a file.
void TransferQueueTest::settingsDuringATransfer()
{
    Session session;
    const TransferKind bluetooth = quickKinds().constLast();
    const int packets = bluetooth.packetsFor(1000);
    const QByteArray content = bluetooth.file(512 * packets);
    bluetooth.send(session.plugin(), m_files.write(bluetooth.fileName, content));
    int settings = 0;
    while (session.peer().lastDataNumber() < packets / 2) {
        session.plugin().requestMemInfo();
        ++settings;
        QTest::qWait(1); // not faster than the engine receives
    }
    QVERIFY(session.finishTasks());
    const QVector<QByteArray> datagrams = session.peer().received();
    const FileStream stream(datagrams, "BF");
    QVERIFY(stream.isPlain(packets));
    QVERIFY(stream.content(512) == content);
    QCOMPARE(datagrams.count(QByteArray::fromHex("494d00030bb9633d0bb9620f0bb90600")), settings);
    QCOMPARE(datagrams.size(), packets + 2 + settings + 1);
}

// checkBtFw() takes a lock of the transfer thread and must not wait for the end of a query.
void TransferQueueTest::checkDuringATransfer()
{
    Session session;
    const QString path = m_files.write(QStringLiteral("a.b00"), noise(10));
    session.plugin().requestSoundBankVersion(); // not answered
    QVERIFY(session.peer().waitForCount(1, patienceMs));
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(session.plugin().checkBtFw({path}), 0);
    QCOMPARE(session.plugin().checkBtFw({path, m_files.path(QStringLiteral("a.b01"))}), -1);
    // The query waits for 20 s.
    QVERIFY2(timer.elapsed() < 10000, QByteArray::number(timer.elapsed()));
}

QTEST_GUILESS_MAIN(TransferQueueTest)
#include "tst_queue.moc"

#include "filestream.h"
#include "session.h"
#include "transferkinds.h"

#include "control/qconnectqmlplugin.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTest>
#include <QTimer>

// Several tasks, and handlers that queue new ones.

namespace {

constexpr int rounds = 500;

const QString soundBankVersionSeen = QStringLiteral("soundbankVersionChanged()");
const QString triggerBankVersionSeen = QStringLiteral("triggerbankVersionChanged()");

/// First two bytes of every datagram but data packets, with the content word of those that have one.
QStringList outline(const QVector<QByteArray> &datagrams)
{
    QStringList result;
    for (const QByteArray &datagram : datagrams) {
        if (!datagram.startsWith("DC"))
            result.append(QString::fromLatin1(datagram.left(datagram.size() > 4 ? 4 : 2)));
    }
    return result;
}

} // namespace

class tst_TransferQueue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void severalAtOnce();
    void whileOneRuns();
    void unsendableInBetween();
    void queuedWhileTheLastOneEnds_data();
    void queuedWhileTheLastOneEnds();
    void handlersThatCallBack();
    void handlerThatQueuesTheSame();
    void settingsDuringATransfer();
    void checkDuringATransfer();

private:
    TestFiles m_files;
};

void tst_TransferQueue::severalAtOnce()
{
    Session session;
    answerOldVersions(session.peer());
    session.peer().answerQuery(0x534E, {{0x534E, 1, 1}});
    session.peer().answerQuery(0x544E, {{0x544E, 1, 1}});
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
    QCOMPARE(session.differenceWhenSettled(expected), QString());
    QCOMPARE(outline(session.peer().received()).join(QLatin1Char(' ')),
             QStringLiteral("DSIS DEIS TN DSSB DESB TV DSTF DETF DSBF DEBF SN DSIW DEIW DSTB DETB HL"));
}

void tst_TransferQueue::whileOneRuns()
{
    Session session;
    session.peer().answerQuery(0x534E, {{0x534E, 1, 1}});
    const TransferKind triggerBank = quickKinds().at(2);
    const TransferKind sample = quickKinds().at(4);
    triggerBank.send(session.plugin(),
                     m_files.write(triggerBank.fileName, triggerBank.file(triggerBank.chunkBytes * 400)));
    QVERIFY(session.peer().waitForCount(20, patienceMs));
    sample.send(session.plugin(), m_files.write(sample.fileName, sample.file(10)));
    session.plugin().requestSoundBankVersion();
    QCOMPARE(session.differenceWhenSettled(triggerBank.progressed(400) + triggerBank.completed(0) +
                                           sample.progressed(1) + sample.completed(0) +
                                           QStringList{soundBankVersionSeen}),
             QString());
    QCOMPARE(outline(session.peer().received()).join(QLatin1Char(' ')),
             QStringLiteral("DSTB DETB DSIW DEIW SN HL"));
}

void tst_TransferQueue::unsendableInBetween()
{
    Session session;
    session.peer().answerQuery(0x534E, {{0x534E, 1, 1}});
    QConnectQmlPlugin &plugin = session.plugin();
    const QString missing = m_files.path(QStringLiteral("missing"));
    plugin.sendSoundBank(missing);
    plugin.sendZeltaFirmware(missing);
    plugin.sendTriggerFirmware(m_files.write(QStringLiteral("no firmware"), "TGFX\x05\0\1\0"));
    plugin.sendBtFw(QString());
    plugin.requestSoundBankVersion();
    plugin.sendImportWaveSample(m_files.path(QString()), 3);
    QCOMPARE(session.differenceWhenSettled({soundBankVersionSeen}), QString());
    QCOMPARE(outline(session.peer().received()), (QStringList{QStringLiteral("SN"), QStringLiteral("HL")}));
}

void tst_TransferQueue::queuedWhileTheLastOneEnds_data()
{
    QTest::addColumn<int>("delayUs");

    // The next task comes at once, or a moment later: before, while and after the thread goes.
    for (const int delayUs : {0, 20, 50, 100, 300})
        QTest::addRow("%d us later", delayUs) << delayUs;
}

// The reply to a query ends the last task; the next one is queued while its thread is on its way out.
void tst_TransferQueue::queuedWhileTheLastOneEnds()
{
    QFETCH(const int, delayUs);

    Session session;
    session.peer().answerQuery(0x534E, {{0x534E, 1, 1}});
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

// Every signal of a transfer or version has a handler that calls all there is. Nothing hangs, nothing is
// lost.
void tst_TransferQueue::handlersThatCallBack()
{
    Session session;
    answerOldVersions(session.peer());
    for (const quint16 query : {quint16(0x534E), quint16(0x544E)})
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
    session.peer().answerQuery(0x484C, {{0x484C, 1, 0}});
    plugin.requestHHRawValue();

    // Tasks are queued on the way, so the engine is done when every one of them was answered.
    QVERIFY(QTest::qWaitFor([&] { return calls >= 200; }, patienceMs));
    QVERIFY(session.settle());
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

// A bank's completion starts the same transfer again, as a screen may do that retries.
void tst_TransferQueue::handlerThatQueuesTheSame()
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

// The two threads share the socket: settings arrive whole between the packets of a file.
void tst_TransferQueue::settingsDuringATransfer()
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
        QTest::qWait(1); // no faster than the engine reads them
    }
    QVERIFY(session.settle());
    const QVector<QByteArray> datagrams = session.peer().received();
    const FileStream stream(datagrams, "BF");
    QVERIFY(stream.isPlain(packets));
    QVERIFY(stream.content(512) == content);
    QCOMPARE(datagrams.count(QByteArray::fromHex("494d00030bb9633d0bb9620f0bb90600")), settings);
    QCOMPARE(datagrams.size(), packets + 2 + settings + 1);
}

// checkBtFw() shares a lock with the transfer thread and must not be held up by it.
void tst_TransferQueue::checkDuringATransfer()
{
    Session session;
    const QString path = m_files.write(QStringLiteral("a.b00"), noise(10));
    session.plugin().requestSoundBankVersion(); // is not answered
    QVERIFY(session.peer().waitForCount(1, patienceMs));
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(session.plugin().checkBtFw({path}), 0);
    QCOMPARE(session.plugin().checkBtFw({path, m_files.path(QStringLiteral("a.b01"))}), -1);
    // The query goes on waiting for twenty seconds.
    QVERIFY2(timer.elapsed() < 10000, QByteArray::number(timer.elapsed()));
}

QTEST_GUILESS_MAIN(tst_TransferQueue)
#include "tst_queue.moc"

#include "session.h"
#include "transferkinds.h"

#include "control/qconnectqmlplugin.h"
#include "support/signalrecorder.h"

#include <QPair>
#include <QTest>

#include <functional>

// The signals of the transfer engine itself, such as transferDone(), which QML does not get. The engine under
// test is created beside the one of the control object.

namespace {

const QString done = QStringLiteral("transferDone()");

} // namespace

class TransferEngineTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void triggerFirmware_data();
    void triggerFirmware();
    void banksAndImports();
    void notOpened();
    void queries();
    void refusedForMemory();
    void importRefusedForMemory();
    void importPastTheEnd();
    void memoryFullDuringAQuery();
    void priority();
    void priorityStaysWhileTheThreadRuns();
    void stop();
    void neverStarted();

private:
    /// The signals of the engine without those of QThread.
    QStringList emitted() const;
    bool waitUntilIdle() const;

    TestFiles m_files;
    std::unique_ptr<Session> m_session;
    std::unique_ptr<qconnectfirmware> m_engine;
    std::unique_ptr<testsupport::SignalRecorder> m_recorder;
};

void TransferEngineTest::init()
{
    m_session = std::make_unique<Session>(Session::NoRecording);
    answerOldVersions(m_session->peer());
    m_engine = std::make_unique<qconnectfirmware>(&m_session->plugin(), nullptr);
    m_recorder = std::make_unique<testsupport::SignalRecorder>(m_engine.get());
}

void TransferEngineTest::cleanup()
{
    m_recorder.reset();
    m_engine.reset();
    m_session.reset();
}

QStringList TransferEngineTest::emitted() const
{
    QStringList result;
    const auto texts = m_recorder->texts();
    for (const QString &text : texts) {
        if (!text.startsWith(QLatin1String("started(")) && !text.startsWith(QLatin1String("finished(")))
            result.append(text);
    }
    return result;
}

bool TransferEngineTest::waitUntilIdle() const
{
    return QTest::qWaitFor([&] { return !m_engine->isRunning(); }, patienceMs);
}

void TransferEngineTest::triggerFirmware_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("expected");

    // The engine reports 0x00010004.
    QTest::newRow("newer") << QByteArray("TGFW\x05\0\x01\0", 8)
                           << QStringList{QStringLiteral("internalUpdateStarted()"),
                                          QStringLiteral("triggerFirmwareUpdateStarted(65540, 65541)"),
                                          QStringLiteral("internalUpdateFinished()"),
                                          QStringLiteral("triggerFirmwareUpdateFinished()"), done};
    QTest::newRow("same") << QByteArray("TGFW\x04\0\x01\0", 8) << QStringList{done};
    QTest::newRow("older") << QByteArray("TGFW\x03\0\x01\0", 8) << QStringList{done};
    QTest::newRow("no version") << QByteArray("TGFX\x05\0\x01\0", 8) << QStringList();
    QTest::newRow("negative version") << QByteArray("TGFW\x05\0\xFF\xFF", 8) << QStringList();
}

void TransferEngineTest::triggerFirmware()
{
    QFETCH(const QByteArray, content);
    QFETCH(const QStringList, expected);

    m_engine->sendTriggerFirmware(m_files.write(QStringLiteral("board"), content));
    QVERIFY(waitUntilIdle());
    QCOMPARE(emitted(), expected);
    QCOMPARE(m_session->peer().received().isEmpty(), expected.isEmpty());
}

void TransferEngineTest::banksAndImports()
{
    const QString path = m_files.write(QStringLiteral("file.b02"), noise(100));
    m_engine->sendSoundBank(path);
    m_engine->sendTriggerBank(path);
    m_engine->sendImportSoundBank(path, QStringLiteral("name"), 7);
    m_engine->sendImportWaveSample(path, 8);
    m_engine->sendBtFirmware(path);
    QVERIFY(waitUntilIdle());
    QCOMPARE(emitted(),
             (QStringList{
                 QStringLiteral("soundTransferProgress(1)"), QStringLiteral("importSBComplete(0, 0)"), done,
                 QStringLiteral("triggerTransferProgress(1)"), QStringLiteral("importTBComplete(0)"), done,
                 QStringLiteral("importSlotProgress(7, 1)"), QStringLiteral("importSlotComplete(7, 0)"), done,
                 QStringLiteral("importSlotProgress(8, 1)"), QStringLiteral("importSlotComplete(8, 0)"), done,
                 QStringLiteral("btfwTransferProgress(0.176470588235)"),
                 QStringLiteral("importBTComplete(0)"), done}));
}

// transferDone() is emitted for each task except firmware without a version.
void TransferEngineTest::notOpened()
{
    for (const QString &path : {QString(), m_files.path(QStringLiteral("missing"))}) {
        m_engine->sendSoundBank(path);
        m_engine->sendTriggerBank(path);
        m_engine->sendImportSoundBank(path, QStringLiteral("name"), 7);
        m_engine->sendImportWaveSample(path, 8);
        m_engine->sendBtFirmware(path);
        m_engine->sendZeltaFirmware(path);
        m_engine->sendTriggerFirmware(path);
    }
    QVERIFY(waitUntilIdle());
    QCOMPARE(emitted(), (QStringList{done, done, done, done, done, done, done, done, done, done}));
    QCOMPARE(m_session->peer().received().size(), 0);
}

void TransferEngineTest::queries()
{
    const auto ids = std::vector<Tag>{"SN", "TN", "HL"};
    for (const Tag id : ids)
        m_session->peer().answerQuery(id, {{id, 0x8000, 1}});
    m_engine->requestSoundBankVersion();
    m_engine->requestTriggerBankVersion();
    m_engine->requestHHRawValue();
    QVERIFY(waitUntilIdle());
    QCOMPARE(emitted(), (QStringList{done, done, done}));
    QCOMPARE(m_engine->getSoundBankVersion(), QStringLiteral("V -32768.01"));
    QCOMPARE(m_engine->getTriggerBankVersion(), QStringLiteral("V -2147483647"));
}

void TransferEngineTest::refusedForMemory()
{
    m_session->peer().answerData(10, {{"DC", 0, 0x00E3}});
    m_engine->sendTriggerBank(m_files.write(QStringLiteral("bank"), noise(512 * 1000)));
    m_engine->requestSoundBankVersion();
    QVERIFY(waitUntilIdle());
    QCOMPARE(emitted().constLast(), done);
    QCOMPARE(emitted().count(done), 1);
    QVERIFY(!emitted().contains(QStringLiteral("importTBComplete(0)")));
}

void TransferEngineTest::importRefusedForMemory()
{
    m_session->peer().answerData(10, {{"DC", 0, 0x00E3}});
    m_engine->sendImportWaveSample(m_files.write(QStringLiteral("a.wav"), noise(512 * 1000)), 8);
    m_engine->requestSoundBankVersion();
    QVERIFY(waitUntilIdle());
    QStringList seen = emitted();
    QCOMPARE(seen.takeLast(), done);
    QCOMPARE(seen.takeLast(), QStringLiteral("importSlotComplete(8, 227)"));
    QCOMPARE(seen.filter(QStringLiteral("importSlotProgress(8, ")), seen);
}

void TransferEngineTest::importPastTheEnd()
{
    m_session->peer().answerData(10, {{"DC", 0x0005, 0x01BE}});
    m_engine->sendImportWaveSample(m_files.write(QStringLiteral("a.wav"), noise(512 * 1000)), 8);
    QVERIFY(waitUntilIdle());
    QStringList seen = emitted();
    QCOMPARE(seen.takeLast(), done);
    QCOMPARE(seen.takeLast(), QStringLiteral("importSlotComplete(8, 0)"));
    QCOMPARE(seen.filter(QStringLiteral("importSlotProgress(8, ")), seen);
}

// The thread ends as soon as the wait is over. transferDone() is not emitted.
void TransferEngineTest::memoryFullDuringAQuery()
{
    m_session->peer().answerQuery("SN", {{"DC", 0, 0x00E1}, {"SN", 1, 1}});
    m_engine->requestSoundBankVersion();
    m_engine->requestTriggerBankVersion();
    QVERIFY(waitUntilIdle());
    QCOMPARE(emitted(), QStringList());
    QCOMPARE(m_session->peer().received(), QVector<QByteArray>{QByteArray("SN\0\0", 4)});
}

// Only sound banks are sent with time-critical priority.
void TransferEngineTest::priority()
{
    const QString path = m_files.write(QStringLiteral("file.b02"), noise(512 * 1000));
    using Queue = std::function<void(qconnectfirmware &)>;
    const QVector<QPair<Queue, QThread::Priority>> rows = {
        {[&](qconnectfirmware &engine) { engine.sendSoundBank(path); }, QThread::TimeCriticalPriority},
        {[&](qconnectfirmware &engine) { engine.sendTriggerBank(path); }, QThread::NormalPriority},
        {[&](qconnectfirmware &engine) { engine.sendImportSoundBank(path, QStringLiteral("name"), 7); },
         QThread::NormalPriority},
        {[&](qconnectfirmware &engine) { engine.sendImportWaveSample(path, 8); }, QThread::NormalPriority},
        {[&](qconnectfirmware &engine) { engine.sendBtFirmware(path); }, QThread::NormalPriority},
        {[&](qconnectfirmware &engine) { engine.requestSoundBankVersion(); }, QThread::NormalPriority},
        {[&](qconnectfirmware &engine) { engine.requestTriggerBankVersion(); }, QThread::NormalPriority},
        {[&](qconnectfirmware &engine) { engine.requestHHRawValue(); }, QThread::NormalPriority},
    };
    for (int i = 0; i < rows.size(); ++i) {
        qconnectfirmware engine(&m_session->plugin(), nullptr);
        rows.at(i).first(engine);
        QVERIFY2(engine.isRunning(), QByteArray::number(i));
        QCOMPARE(engine.priority(), rows.at(i).second);
    }
}

void TransferEngineTest::priorityStaysWhileTheThreadRuns()
{
    m_engine->requestSoundBankVersion();
    QVERIFY(m_session->peer().waitForCount(1, patienceMs));
    m_engine->sendSoundBank(m_files.write(QStringLiteral("bank"), noise(100)));
    QVERIFY(m_engine->isRunning());
    QCOMPARE(m_engine->priority(), QThread::NormalPriority);
}

// No task starts afterwards, and a second call has no effect.
void TransferEngineTest::stop()
{
    m_engine->requestSoundBankVersion();
    QVERIFY(m_session->peer().waitForCount(1, patienceMs));
    m_engine->stop();
    QVERIFY(m_engine->isFinished());
    m_engine->stop();
    m_engine->requestTriggerBankVersion();
    m_engine->sendTriggerBank(m_files.write(QStringLiteral("bank"), noise(100)));
    QVERIFY(m_engine->isFinished());
    m_engine->stop();
    QCOMPARE(emitted(), QStringList());
    QCOMPARE(m_session->peer().received(), QVector<QByteArray>{QByteArray("SN\0\0", 4)});
}

void TransferEngineTest::neverStarted()
{
    m_engine->stop();
    QVERIFY(!m_engine->isRunning());
    m_engine->requestSoundBankVersion();
    QVERIFY(!m_engine->isRunning());
}

QTEST_GUILESS_MAIN(TransferEngineTest)
#include "tst_enginesignals.moc"

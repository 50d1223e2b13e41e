#include "filestream.h"
#include "session.h"

#include "control/qconnectqmlplugin.h"

#include <QTest>

// Installed versions: queries, texts, and the decision to send firmware.

namespace {

const QString noVersion = QStringLiteral("V 0.00");

QByteArray triggerFirmware(quint16 major, quint16 minor)
{
    const char header[] = {
        'T', 'G', 'F', 'W', char(minor & 0xFF), char(minor >> 8), char(major & 0xFF), char(major >> 8)};
    return QByteArray(header, sizeof(header));
}

} // namespace

class VersionQueriesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initially();
    void texts_data();
    void texts();
    void unaskedVersions();
    void hihatValue_data();
    void hihatValue();
    void firmwareGate_data();
    void firmwareGate();
    void anyReplyAnswersTheQuery();
    void abortDuringTheQuery();

private:
    TestFiles m_files;
};

void VersionQueriesTest::initially()
{
    Session session;
    QCOMPARE(session.plugin().zeltaFwVersion(), noVersion);
    QCOMPARE(session.plugin().soundBankVersion(), noVersion);
    QCOMPARE(session.plugin().triggerFwVersion(), QStringLiteral("V 0"));
    QCOMPARE(session.plugin().triggerBankVersion(), QStringLiteral("V 0"));
    QCOMPARE(session.differenceWhenFinished({}), QString());
}

void VersionQueriesTest::texts_data()
{
    QTest::addColumn<int>("major");
    QTest::addColumn<int>("minor");
    QTest::addColumn<QString>("bank");
    QTest::addColumn<QString>("board");

    QTest::newRow("1.05") << 1 << 5 << QStringLiteral("V 1.05") << QStringLiteral("V 65541");
    QTest::newRow("2.12") << 2 << 12 << QStringLiteral("V 2.12") << QStringLiteral("V 131084");
    QTest::newRow("1.100") << 1 << 100 << QStringLiteral("V 1.100") << QStringLiteral("V 65636");
    QTest::newRow("0.00") << 0 << 0 << QStringLiteral("V 0.00") << QStringLiteral("V 0");
    QTest::newRow("0.65535") << 0 << 0xFFFF << QStringLiteral("V 0.65535") << QStringLiteral("V 65535");
    QTest::newRow("largest") << 0x7FFF << 0xFFFF << QStringLiteral("V 32767.65535")
                             << QStringLiteral("V 2147483647");
    QTest::newRow("negative") << 0x8000 << 0 << QStringLiteral("V -32768.00")
                              << QStringLiteral("V -2147483648");
    QTest::newRow("all ones") << 0xFFFF << 0xFFFF << QStringLiteral("V -1.65535") << QStringLiteral("V -1");
}

void VersionQueriesTest::texts()
{
    QFETCH(const int, major);
    QFETCH(const int, minor);
    QFETCH(const QString, bank);
    QFETCH(const QString, board);

    Session session;
    session.peer().answerQuery("SN", {{"SN", quint16(major), quint16(minor)}});
    session.peer().answerQuery("TN", {{"TN", quint16(major), quint16(minor)}});
    session.plugin().requestSoundBankVersion();
    session.plugin().requestTriggerBankVersion();
    QCOMPARE(session.differenceWhenFinished({QStringLiteral("soundbankVersionChanged()"),
                                             QStringLiteral("triggerbankVersionChanged()")}),
             QString());
    QCOMPARE(session.plugin().soundBankVersion(), bank);
    QCOMPARE(session.plugin().triggerBankVersion(), board);
    QCOMPARE(session.plugin().zeltaFwVersion(), noVersion);
    QCOMPARE(session.plugin().triggerFwVersion(), QStringLiteral("V 0"));
    QCOMPARE(session.peer().received(), (QVector<QByteArray>{QByteArray("SN\0\0", 4), QByteArray("TN\0\0", 4),
                                                             QByteArray("HL\0\0", 4)}));

    session.peer().raise({"VN", quint16(major), quint16(minor)});
    session.peer().raise({"TV", quint16(major), quint16(minor)});
    QVERIFY(session.waitFor(QStringLiteral("triggerVersionChanged()")));
    QCOMPARE(session.plugin().zeltaFwVersion(), bank);
    QCOMPARE(session.plugin().triggerFwVersion(), board);
}

// The engine may report versions without a query; the signal is emitted each time, changed or not.
void VersionQueriesTest::unaskedVersions()
{
    Session session;
    QVERIFY(session.finishTasks());
    session.forgetSeen();
    const auto ids = std::vector<Tag>{"VN", "TV", "SN", "TN", "HL", "VN"};
    for (const Tag id : ids)
        session.peer().raise({id, 3, 1});
    session.peer().raise({"AB", 9, 9});
    QVERIFY(session.waitFor(QStringLiteral("udpPacketArrived(16706, 9, 9)")));
    QCOMPARE(session.difference(
                 {QStringLiteral("zeltaVersionChanged()"), QStringLiteral("triggerVersionChanged()"),
                  QStringLiteral("soundbankVersionChanged()"), QStringLiteral("triggerbankVersionChanged()"),
                  QStringLiteral("hihatRawValueChanged(3)"), QStringLiteral("zeltaVersionChanged()")}),
             QString());
    QCOMPARE(session.plugin().zeltaFwVersion(), QStringLiteral("V 3.01"));
}

void VersionQueriesTest::hihatValue_data()
{
    QTest::addColumn<int>("value");

    QTest::newRow("0") << 0;
    QTest::newRow("1") << 1;
    QTest::newRow("largest") << 0xFFFF;
}

void VersionQueriesTest::hihatValue()
{
    QFETCH(const int, value);

    Session session;
    session.peer().answerQuery("HL", {{"HL", quint16(value), 0x1234}});
    session.plugin().requestHHRawValue();
    QVERIFY(session.waitFor(QStringLiteral("hihatRawValueChanged(%1)").arg(value)));
    QCOMPARE(session.peer().received(), QVector<QByteArray>{QByteArray("HL\0\0", 4)});
}

void VersionQueriesTest::firmwareGate_data()
{
    QTest::addColumn<int>("deviceMajor");
    QTest::addColumn<int>("deviceMinor");
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("started");

    const auto started = [](int device, int file) {
        return QStringLiteral("intTriggerFirmwareUpdateStarted(%1, %2)").arg(device).arg(file);
    };
    QTest::newRow("same") << 1 << 5 << triggerFirmware(1, 5) << QString();
    QTest::newRow("file is older") << 1 << 5 << triggerFirmware(1, 4) << QString();
    QTest::newRow("file is older, larger minor") << 2 << 0 << triggerFirmware(1, 0xFFFF) << QString();
    QTest::newRow("file is newer") << 1 << 4 << triggerFirmware(1, 5) << started(65540, 65541);
    QTest::newRow("file is newer, smaller minor")
        << 1 << 0xFFFF << triggerFirmware(2, 0) << started(131071, 131072);
    QTest::newRow("device without version") << 0 << 0 << triggerFirmware(0, 1) << started(0, 1);
    QTest::newRow("negative device") << 0xFFFF << 0xFFFF << triggerFirmware(0, 0) << started(-1, 0);
    QTest::newRow("file of version 0") << 0 << 0 << triggerFirmware(0, 0) << QString();
    QTest::newRow("header cut short") << 0 << 6 << QByteArray("TGFW\x07") << started(6, 7);
}

// Firmware is sent only if it is newer than the version of the device.
void VersionQueriesTest::firmwareGate()
{
    QFETCH(const int, deviceMajor);
    QFETCH(const int, deviceMinor);
    QFETCH(const QByteArray, file);
    QFETCH(const QString, started);

    Session session;
    session.peer().answerQuery("TV", {{"TV", quint16(deviceMajor), quint16(deviceMinor)}});
    session.plugin().sendTriggerFirmware(m_files.write(QStringLiteral("board.bin"), file));
    QStringList expected{QStringLiteral("triggerVersionChanged()")};
    if (!started.isEmpty())
        expected << QStringLiteral("intFwUpdateStarted()") << started
                 << QStringLiteral("intFwUpdateFinished()")
                 << QStringLiteral("intTriggerFirmwareUpdateFinished()");
    QCOMPARE(session.differenceWhenFinished(expected), QString());
    const FileStream stream(session.peer().received(), "TF");
    QCOMPARE(stream.starts.size(), started.isEmpty() ? 0 : 1);
    QCOMPARE(session.peer().received().first(), QByteArray("TV\0\0", 4));
    // The stored version of the board is the one that it reported.
    QCOMPARE(session.plugin().triggerFwVersion(),
             QStringLiteral("V %1").arg(qint32(quint32(deviceMajor) << 16 | quint32(deviceMinor))));
}

// Replies are not matched with the query: the first value counts.
void VersionQueriesTest::anyReplyAnswersTheQuery()
{
    Session session;
    session.peer().answerQuery("TV", {{"HL", 7, 0}});
    session.plugin().sendTriggerFirmware(m_files.write(QStringLiteral("board.bin"), triggerFirmware(1, 5)));
    QCOMPARE(session.differenceWhenFinished({QStringLiteral("hihatRawValueChanged(7)"),
                                             QStringLiteral("intFwUpdateStarted()"),
                                             QStringLiteral("intTriggerFirmwareUpdateStarted(7, 65541)"),
                                             QStringLiteral("intFwUpdateFinished()"),
                                             QStringLiteral("intTriggerFirmwareUpdateFinished()")}),
             QString());
    QCOMPARE(session.plugin().triggerFwVersion(), QStringLiteral("V 0"));

    // An end acknowledgement ends the wait as well, without a value.
    session.forgetSeen();
    session.peer().answerQuery("TV", {{"DE", 0, 0}});
    session.plugin().sendTriggerFirmware(m_files.path(QStringLiteral("board.bin")));
    QCOMPARE(session.differenceWhenFinished({QStringLiteral("intFwUpdateStarted()"),
                                             QStringLiteral("intTriggerFirmwareUpdateStarted(0, 65541)"),
                                             QStringLiteral("intFwUpdateFinished()"),
                                             QStringLiteral("intTriggerFirmwareUpdateFinished()")}),
             QString());
}

// "Memory full" ends the thread after the reply; the next task stays in the queue until another one is
// queued.
void VersionQueriesTest::abortDuringTheQuery()
{
    Session session;
    session.peer().answerQuery("TV", {{"DC", 0, 0x00E1}, {"TV", 1, 4}});
    session.peer().answerQuery("SN", {{"SN", 1, 1}});
    session.plugin().sendTriggerFirmware(m_files.write(QStringLiteral("board.bin"), triggerFirmware(1, 5)));
    session.plugin().requestSoundBankVersion();
    QVERIFY(session.waitFor(QStringLiteral("triggerVersionChanged()")));
    // A new task would withdraw the abort, so the thread must have ended before. It would have sent the next
    // query at once.
    QVERIFY(session.peer().waitUntilSilent());
    QCOMPARE(session.peer().received(), QVector<QByteArray>{QByteArray("TV\0\0", 4)});
    QCOMPARE(session.differenceWhenFinished(
                 {QStringLiteral("triggerVersionChanged()"), QStringLiteral("soundbankVersionChanged()")}),
             QString());
    QVERIFY(FileStream(session.peer().received(), "TF").starts.isEmpty());
}

QTEST_GUILESS_MAIN(VersionQueriesTest)
#include "tst_versionqueries.moc"

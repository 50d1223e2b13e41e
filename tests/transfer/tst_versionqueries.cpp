#include "filestream.h"
#include "session.h"

#include "control/qconnectqmlplugin.h"

#include <QTest>

// Versions of what is installed: how they are asked for and shown, and how they decide on firmware.

namespace {

const QString noVersion = QStringLiteral("V 0.00");

QByteArray triggerFirmware(quint16 major, quint16 minor)
{
    const char header[] = {
        'T', 'G', 'F', 'W', char(minor & 0xFF), char(minor >> 8), char(major & 0xFF), char(major >> 8)};
    return QByteArray(header, sizeof(header));
}

} // namespace

class tst_VersionQueries : public QObject
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

void tst_VersionQueries::initially()
{
    Session session;
    QCOMPARE(session.plugin().zeltaFwVersion(), noVersion);
    QCOMPARE(session.plugin().soundBankVersion(), noVersion);
    QCOMPARE(session.plugin().triggerFwVersion(), QStringLiteral("V 0"));
    QCOMPARE(session.plugin().triggerBankVersion(), QStringLiteral("V 0"));
    QCOMPARE(session.differenceWhenSettled({}), QString());
}

void tst_VersionQueries::texts_data()
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

void tst_VersionQueries::texts()
{
    QFETCH(const int, major);
    QFETCH(const int, minor);
    QFETCH(const QString, bank);
    QFETCH(const QString, board);

    Session session;
    session.peer().answerQuery(0x534E, {{0x534E, quint16(major), quint16(minor)}});
    session.peer().answerQuery(0x544E, {{0x544E, quint16(major), quint16(minor)}});
    session.plugin().requestSoundBankVersion();
    session.plugin().requestTriggerBankVersion();
    QCOMPARE(session.differenceWhenSettled({QStringLiteral("soundbankVersionChanged()"),
                                            QStringLiteral("triggerbankVersionChanged()")}),
             QString());
    QCOMPARE(session.plugin().soundBankVersion(), bank);
    QCOMPARE(session.plugin().triggerBankVersion(), board);
    QCOMPARE(session.plugin().zeltaFwVersion(), noVersion);
    QCOMPARE(session.plugin().triggerFwVersion(), QStringLiteral("V 0"));
    QCOMPARE(session.peer().received(), (QVector<QByteArray>{QByteArray("SN\0\0", 4), QByteArray("TN\0\0", 4),
                                                             QByteArray("HL\0\0", 4)}));

    session.peer().raise({0x564E, quint16(major), quint16(minor)});
    session.peer().raise({0x5456, quint16(major), quint16(minor)});
    QVERIFY(session.waitFor(QStringLiteral("triggerVersionChanged()")));
    QCOMPARE(session.plugin().zeltaFwVersion(), bank);
    QCOMPARE(session.plugin().triggerFwVersion(), board);
}

// The engine may tell its versions without being asked; the signal comes every time, changed or not.
void tst_VersionQueries::unaskedVersions()
{
    Session session;
    QVERIFY(session.settle());
    session.forgetSeen();
    const auto ids = QVector<quint16>{0x564E, 0x5456, 0x534E, 0x544E, 0x484C, 0x564E};
    for (const quint16 id : ids)
        session.peer().raise({id, 3, 1});
    session.peer().raise({0x4142, 9, 9});
    QVERIFY(session.waitFor(QStringLiteral("udpPacketArrived(16706, 9, 9)")));
    QCOMPARE(session.difference(
                 {QStringLiteral("zeltaVersionChanged()"), QStringLiteral("triggerVersionChanged()"),
                  QStringLiteral("soundbankVersionChanged()"), QStringLiteral("triggerbankVersionChanged()"),
                  QStringLiteral("hihatRawValueChanged(3)"), QStringLiteral("zeltaVersionChanged()")}),
             QString());
    QCOMPARE(session.plugin().zeltaFwVersion(), QStringLiteral("V 3.01"));
}

void tst_VersionQueries::hihatValue_data()
{
    QTest::addColumn<int>("value");

    QTest::newRow("0") << 0;
    QTest::newRow("1") << 1;
    QTest::newRow("largest") << 0xFFFF;
}

void tst_VersionQueries::hihatValue()
{
    QFETCH(const int, value);

    Session session;
    session.peer().answerQuery(0x484C, {{0x484C, quint16(value), 0x1234}});
    session.plugin().requestHHRawValue();
    QVERIFY(session.waitFor(QStringLiteral("hihatRawValueChanged(%1)").arg(value)));
    QCOMPARE(session.peer().received(), QVector<QByteArray>{QByteArray("HL\0\0", 4)});
}

void tst_VersionQueries::firmwareGate_data()
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

// Firmware goes out only if it is newer than what the device has.
void tst_VersionQueries::firmwareGate()
{
    QFETCH(const int, deviceMajor);
    QFETCH(const int, deviceMinor);
    QFETCH(const QByteArray, file);
    QFETCH(const QString, started);

    Session session;
    session.peer().answerQuery(0x5456, {{0x5456, quint16(deviceMajor), quint16(deviceMinor)}});
    session.plugin().sendTriggerFirmware(m_files.write(QStringLiteral("board.bin"), file));
    QStringList expected{QStringLiteral("triggerVersionChanged()")};
    if (!started.isEmpty())
        expected << QStringLiteral("intFwUpdateStarted()") << started
                 << QStringLiteral("intFwUpdateFinished()")
                 << QStringLiteral("intTriggerFirmwareUpdateFinished()");
    QCOMPARE(session.differenceWhenSettled(expected), QString());
    const FileStream stream(session.peer().received(), "TF");
    QCOMPARE(stream.starts.size(), started.isEmpty() ? 0 : 1);
    QCOMPARE(session.peer().received().first(), QByteArray("TV\0\0", 4));
    // The board keeps the version that it told itself.
    QCOMPARE(session.plugin().triggerFwVersion(),
             QStringLiteral("V %1").arg(qint32(quint32(deviceMajor) << 16 | quint32(deviceMinor))));
}

// Replies are not matched against the query: the value that comes first is the one that counts.
void tst_VersionQueries::anyReplyAnswersTheQuery()
{
    Session session;
    session.peer().answerQuery(0x5456, {{0x484C, 7, 0}});
    session.plugin().sendTriggerFirmware(m_files.write(QStringLiteral("board.bin"), triggerFirmware(1, 5)));
    QCOMPARE(session.differenceWhenSettled({QStringLiteral("hihatRawValueChanged(7)"),
                                            QStringLiteral("intFwUpdateStarted()"),
                                            QStringLiteral("intTriggerFirmwareUpdateStarted(7, 65541)"),
                                            QStringLiteral("intFwUpdateFinished()"),
                                            QStringLiteral("intTriggerFirmwareUpdateFinished()")}),
             QString());
    QCOMPARE(session.plugin().triggerFwVersion(), QStringLiteral("V 0"));

    // An end acknowledgement ends the wait as well, without a value.
    session.forgetSeen();
    session.peer().answerQuery(0x5456, {{0x4445, 0, 0}});
    session.plugin().sendTriggerFirmware(m_files.path(QStringLiteral("board.bin")));
    QCOMPARE(session.differenceWhenSettled({QStringLiteral("intFwUpdateStarted()"),
                                            QStringLiteral("intTriggerFirmwareUpdateStarted(0, 65541)"),
                                            QStringLiteral("intFwUpdateFinished()"),
                                            QStringLiteral("intTriggerFirmwareUpdateFinished()")}),
             QString());
}

// A refusal for lack of memory ends the thread once the reply is there; what is queued waits for new work.
void tst_VersionQueries::abortDuringTheQuery()
{
    Session session;
    session.peer().answerQuery(0x5456, {{0x4443, 0, 0x00E1}, {0x5456, 1, 4}});
    session.peer().answerQuery(0x534E, {{0x534E, 1, 1}});
    session.plugin().sendTriggerFirmware(m_files.write(QStringLiteral("board.bin"), triggerFirmware(1, 5)));
    session.plugin().requestSoundBankVersion();
    QVERIFY(session.waitFor(QStringLiteral("triggerVersionChanged()")));
    // What is queued takes an abort back, so the thread has to be through with it. A query in the queue would
    // have gone within moments.
    QVERIFY(session.peer().waitUntilSilent());
    QCOMPARE(session.peer().received(), QVector<QByteArray>{QByteArray("TV\0\0", 4)});
    QCOMPARE(session.differenceWhenSettled(
                 {QStringLiteral("triggerVersionChanged()"), QStringLiteral("soundbankVersionChanged()")}),
             QString());
    QVERIFY(FileStream(session.peer().received(), "TF").starts.isEmpty());
}

QTEST_GUILESS_MAIN(tst_VersionQueries)
#include "tst_versionqueries.moc"

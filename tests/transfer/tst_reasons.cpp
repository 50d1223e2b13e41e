#include "runningtransfer.h"

#include "control/qconnectqmlplugin.h"

#include <QLoggingCategory>
#include <QMutex>
#include <QTest>

// The log category that says why a transfer ended without a signal.

namespace {

/// What the category has logged, in any thread.
struct ReasonLog
{
    QMutex mutex;
    QStringList lines;
    QtMessageHandler previousHandler = nullptr;
};

ReasonLog &reasonLog()
{
    static ReasonLog log;
    return log;
}

bool hasLogged()
{
    const QMutexLocker locker(&reasonLog().mutex);
    return !reasonLog().lines.isEmpty();
}

void handleMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (qstrcmp(context.category, "zeltaconnect.transfer") != 0) {
        reasonLog().previousHandler(type, context, text);
        return;
    }
    const QMutexLocker locker(&reasonLog().mutex);
    reasonLog().lines.append(text);
}

} // namespace

class TransferReasonsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { reasonLog().previousHandler = qInstallMessageHandler(handleMessage); }
    void cleanupTestCase() { qInstallMessageHandler(reasonLog().previousHandler); }
    void reason_data();
    void reason();
    void abortedBeforeTheData();
    void objectIsDeleted();

private:
    void verifyReason(const QString &path, const QString &reason);

    TestFiles m_files;
};

using Send = void (*)(QConnectQmlPlugin &plugin, const QString &path);
Q_DECLARE_METATYPE(Send)

void TransferReasonsTest::reason_data()
{
    QTest::addColumn<Send>("send");
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<quint16>("answer"); // to the data, 0 for none
    QTest::addColumn<QString>("reason");

    const Send sendTriggerFirmware = [](QConnectQmlPlugin &plugin, const QString &path) {
        plugin.sendTriggerFirmware(path);
    };
    const Send sendZeltaFirmware = [](QConnectQmlPlugin &plugin, const QString &path) {
        plugin.sendZeltaFirmware(path);
    };
    const Send sendTriggerBank = [](QConnectQmlPlugin &plugin, const QString &path) {
        plugin.sendTriggerBank(path);
    };
    const Send sendSample = [](QConnectQmlPlugin &plugin, const QString &path) {
        plugin.sendImportWaveSample(path, 1);
    };
    const quint16 none = 0;
    const QByteArray large(512 * 400, 'x');

    QTest::newRow("missing file") << sendTriggerBank << QStringLiteral("missing") << QByteArray() << none
                                  << QStringLiteral("cannot be opened: No such file or directory");
    QTest::newRow("missing firmware")
        << sendZeltaFirmware << QStringLiteral("missing") << QByteArray() << none
        << QStringLiteral("cannot be opened: No such file or directory");
    QTest::newRow("folder") << sendSample << QStringLiteral(".") << QByteArray() << none
                            << QStringLiteral("cannot be opened: not a regular file");
    QTest::newRow("empty path") << sendSample << QString() << QByteArray() << none
                                << QStringLiteral("cannot be opened: no path");
    QTest::newRow("board firmware without a version")
        << sendTriggerFirmware << QStringLiteral("a.bin") << QByteArray("TGFX1234") << none
        << QStringLiteral("carries no version");
    QTest::newRow("engine firmware without a version")
        << sendZeltaFirmware << QStringLiteral("b.bin") << QByteArray("4810QN-abc") << none
        << QStringLiteral("carries no version");
    QTest::newRow("board firmware not newer")
        << sendTriggerFirmware << QStringLiteral("c.bin") << QByteArray("TGFW\x04\0\x01\0", 8) << none
        << QStringLiteral("is not newer: V 1.04 in the file, V 1.04 in the device");
    QTest::newRow("engine firmware not newer")
        << sendZeltaFirmware << QStringLiteral("g.bin") << QByteArray("4810QN-abc1.02 - ") << none
        << QStringLiteral("is not newer: V 1.02 in the file, V 1.04 in the device");
    QTest::newRow("memory full") << sendTriggerBank << QStringLiteral("d.bin") << large << quint16(0xE2)
                                 << QStringLiteral("aborted: status 0xe2");
    QTest::newRow("beyond the end") << sendTriggerBank << QStringLiteral("e.bin") << large << quint16(0x01BE)
                                    << QStringLiteral("aborted: read failed");
    QTest::newRow("sent") << sendTriggerBank << QStringLiteral("f.bin") << QByteArray("x") << none
                          << QString();
}

// One line with path and reason when the category is switched on, nothing otherwise.
void TransferReasonsTest::reason()
{
    QFETCH(const Send, send);
    QFETCH(const QString, fileName);
    QFETCH(const QByteArray, content);
    QFETCH(const quint16, answer);
    QFETCH(const QString, reason);

    QString path = content.isEmpty() ? m_files.path(fileName) : m_files.write(fileName, content);
    if (fileName.isEmpty())
        path.clear();
    for (const bool on : {false, true}) {
        QLoggingCategory::setFilterRules(on ? QStringLiteral("zeltaconnect.transfer.info=true") : QString());
        Session session;
        answerOldVersions(session.peer());
        session.peer().answerData(20, {{"DC", 0, answer}});
        send(session.plugin(), path);
        // A task that is queued before the abort would stay in the queue.
        if (answer != 0) {
            QVERIFY(session.waitFor(QStringLiteral("udpPacketArrived(17475, 0, %1)").arg(answer)));
            if (answer == 0x01BE)
                QVERIFY(session.peer().waitForPrefix(QByteArray("DCTB\0\x01\0\0", 8), patienceMs));
            QVERIFY(session.peer().waitUntilSilent());
            QVERIFY(!on || QTest::qWaitFor(hasLogged, patienceMs));
        }
        QVERIFY(session.finishTasks());
        QLoggingCategory::setFilterRules(QString());

        verifyReason(path, on ? reason : QString());
    }
}

// Exactly this reason was logged, or nothing if it is empty.
void TransferReasonsTest::verifyReason(const QString &path, const QString &reason)
{
    const QMutexLocker locker(&reasonLog().mutex);
    QStringList expected;
    if (!reason.isEmpty())
        expected.append(QLatin1Char('"') + path + QStringLiteral("\" ") + reason);
    QCOMPARE(reasonLog().lines, expected);
    reasonLog().lines.clear();
}

// The engine answers the version query with "memory full".
void TransferReasonsTest::abortedBeforeTheData()
{
    const QString path = m_files.write(QStringLiteral("h.bin"), QByteArray("TGFW\x04\0\x02\0", 8));
    QLoggingCategory::setFilterRules(QStringLiteral("zeltaconnect.transfer.info=true"));
    Session session;
    session.peer().answerQuery("TV", {{"DC", 0, 0xE1}});
    session.plugin().sendTriggerFirmware(path);
    QVERIFY(QTest::qWaitFor(hasLogged, patienceMs));
    QVERIFY(session.finishTasks());
    QLoggingCategory::setFilterRules(QString());
    verifyReason(path, QStringLiteral("aborted: before the data"));
}

void TransferReasonsTest::objectIsDeleted()
{
    const QString path = m_files.write(QStringLiteral("i.bin"), QByteArray(512 * 4000, 'x'));
    QLoggingCategory::setFilterRules(QStringLiteral("zeltaconnect.transfer.info=true"));
    {
        Session session;
        session.plugin().sendTriggerBank(path);
        QVERIFY(session.peer().waitForPrefix("DCTB", patienceMs));
    }
    QLoggingCategory::setFilterRules(QString());
    verifyReason(path, QStringLiteral("aborted: the object is deleted"));
}

QTEST_GUILESS_MAIN(TransferReasonsTest)
#include "tst_reasons.moc"

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

private:
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
    QTest::newRow("board firmware without a version")
        << sendTriggerFirmware << QStringLiteral("a.bin") << QByteArray("TGFX1234") << none
        << QStringLiteral("carries no version");
    QTest::newRow("engine firmware without a version")
        << sendZeltaFirmware << QStringLiteral("b.bin") << QByteArray("4810QN-abc") << none
        << QStringLiteral("carries no version");
    QTest::newRow("board firmware not newer")
        << sendTriggerFirmware << QStringLiteral("c.bin") << QByteArray("TGFW\x04\0\x01\0", 8) << none
        << QStringLiteral("is not newer: V 1.04 in the file, V 1.04 in the device");
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

    const QString path = content.isEmpty() ? m_files.path(fileName) : m_files.write(fileName, content);
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

        const QMutexLocker locker(&reasonLog().mutex);
        const QStringList expected =
            on && !reason.isEmpty() ? QStringList{QLatin1Char('"') + path + QStringLiteral("\" ") + reason}
                                    : QStringList();
        QCOMPARE(reasonLog().lines, expected);
        reasonLog().lines.clear();
    }
}

QTEST_GUILESS_MAIN(TransferReasonsTest)
#include "tst_reasons.moc"

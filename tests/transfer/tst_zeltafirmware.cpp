#include "filestream.h"
#include "session.h"
#include "transferkinds.h"

#include "control/qconnectqmlplugin.h"

#include <QElapsedTimer>
#include <QTest>
#include <QTimer>

// Firmware of the sound engine. The thread pauses for 20 s after its end, so all cases run at once: they are
// started first and checked one after the other.

namespace {

constexpr Tag endAck = "DE";
constexpr Tag versionQuery = "VN";
constexpr int afterEndMs = 20000;
constexpr int endWaitMs = 15000;
constexpr int queryWaitMs = 20000;

QStringList failed()
{
    return {QStringLiteral("intFwUpdateFinished()"), QStringLiteral("intZeltaFirmwareUpdateFinished()")};
}

/// One transfer with an engine of its own.
struct Case
{
    QByteArray name;
    std::unique_ptr<Session> session;
    QByteArray content;
    QStringList expected;
    int leastMs;
    qint64 finishedMs = -1; ///< when QML got the last signal
};

} // namespace

class ZeltaFirmwareTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void outcome_data();
    void outcome();
    void handlersThatCallBack();

private:
    Session &start(const QByteArray &name, const QByteArray &content, const QStringList &expected,
                   int leastMs = afterEndMs);

    TestFiles m_files;
    const TransferKind m_kind = zeltaFirmwareKind();
    std::vector<Case> m_cases;
    QElapsedTimer m_clock;
    // A session whose handlers queue tasks.
    std::unique_ptr<Session> m_asking;
    int m_questions = 0;
};

Session &ZeltaFirmwareTest::start(const QByteArray &name, const QByteArray &content,
                                  const QStringList &expected, int leastMs)
{
    m_cases.push_back({name, std::make_unique<Session>(), content, expected, leastMs});
    answerOldVersions(m_cases.back().session->peer());
    return *m_cases.back().session;
}

void ZeltaFirmwareTest::initTestCase()
{
    const QStringList before = m_kind.before;
    const QStringList done = m_kind.completed(0);

    for (const int size : {0, 1, 16})
        start("too short for a version: " + QByteArray::number(size), m_kind.header.left(size), {}, 0);
    for (const int size : {31, 511, 512, 513, 5120, 5121, 512 * 1000 + 1})
        start(QByteArray::number(size) + " bytes", m_kind.file(size), before + done);
    start("no version", noise(2000), {}, 0);
    start("same version", "4810QN-abc1.04 - ", {before.first()}, 0);
    start("older version", "4810QN-abc1.03 - ", {before.first()}, 0);

    start("checksum error", m_kind.file(600), before + failed()).peer().answerEnd({{endAck, 0, 2}});
    start("no end acknowledgement", m_kind.file(600), before + failed(), endWaitMs + afterEndMs)
        .peer()
        .answerEnd({});
    start("refused", m_kind.file(600), before + done).peer().answerStart({{"DC", 0, 0xE0}});

    // The status is read after the pause: a late error still counts, a late success does not.
    Session &lateError = start("error after another reply", m_kind.file(600),
                               before + QStringList{QStringLiteral("soundbankVersionChanged()")} + failed());
    lateError.peer().answerEnd({{"SN", 1, 1}});
    QTimer::singleShot(10000, this, [&lateError] { lateError.peer().raise({endAck, 0, 1}); });
    Session &lateSuccess =
        start("success after the time-out", m_kind.file(600), before + failed(), endWaitMs + afterEndMs);
    lateSuccess.peer().answerEnd({});
    QTimer::singleShot(25000, this, [&lateSuccess] { lateSuccess.peer().raise({endAck, 0, 0}); });

    // Without a reply the device counts as version 0.
    start("no reply to the query", m_kind.file(600),
          QStringList{QStringLiteral("intFwUpdateStarted()"),
                      QStringLiteral("intZeltaFirmwareUpdateStarted(0, 65541)")} +
              done,
          queryWaitMs + afterEndMs)
        .peer()
        .answerQuery(versionQuery, {});
    start("no reply to the query, file of version 0", "4810QN-abcA.B - ", {}, queryWaitMs)
        .peer()
        .answerQuery(versionQuery, {});

    m_asking = std::make_unique<Session>();
    answerOldVersions(m_asking->peer());
    m_asking->peer().answerQuery("SN", {{"SN", 1, 1}});
    QConnectQmlPlugin &asking = m_asking->plugin();
    const auto ask = [this, &asking] {
        ++m_questions;
        asking.requestSoundBankVersion();
        asking.setMetronomeTempo(120);
    };
    connect(&asking, &QConnectQmlPlugin::zeltaVersionChanged, this, ask);
    connect(&asking, &QConnectQmlPlugin::intFwUpdateStarted, this, ask);
    connect(&asking, &QConnectQmlPlugin::intZeltaFirmwareUpdateStarted, this, ask);
    connect(&asking, &QConnectQmlPlugin::updateZeltaFwComplete, this, ask);
    connect(&asking, &QConnectQmlPlugin::intFwUpdateFinished, this, ask);
    connect(&asking, &QConnectQmlPlugin::intZeltaFirmwareUpdateFinished, this, ask);
    m_kind.send(asking, m_files.write(QStringLiteral("asking/fw.bin"), m_kind.file(600)));

    m_clock.start();
    for (Case &testCase : m_cases) {
        connect(&testCase.session->plugin(), &QConnectQmlPlugin::intZeltaFirmwareUpdateFinished, this,
                [this, &testCase] { testCase.finishedMs = m_clock.elapsed(); });
        const QString path =
            m_files.write(QString::fromLatin1(testCase.name) + QLatin1String("/fw.bin"), testCase.content);
        m_kind.send(testCase.session->plugin(), path);
    }
}

void ZeltaFirmwareTest::outcome_data()
{
    QTest::addColumn<int>("index");
    for (std::size_t i = 0; i < m_cases.size(); ++i)
        QTest::newRow(m_cases.at(i).name) << int(i);
}

void ZeltaFirmwareTest::outcome()
{
    QFETCH(const int, index);
    const Case &testCase = m_cases.at(std::size_t(index));
    Session &session = *testCase.session;

    QCOMPARE(session.differenceWhenFinished(testCase.expected), QString());
    QVERIFY(m_clock.elapsed() >= testCase.leastMs);
    if (testCase.expected.contains(QStringLiteral("intZeltaFirmwareUpdateFinished()")))
        QVERIFY2(testCase.finishedMs >= testCase.leastMs, QByteArray::number(testCase.finishedMs));
    else
        QCOMPARE(testCase.finishedMs, qint64(-1));

    const FileStream stream(session.peer().received(), "FW");
    const bool sent = testCase.expected.contains(QStringLiteral("intFwUpdateStarted()"));
    QCOMPARE(stream.starts.size(), sent ? 1 : 0);
    QCOMPARE(stream.ends.size(), sent ? 1 : 0);
    if (testCase.expected.contains(QStringLiteral("updateZeltaFwComplete()")))
        QCOMPARE(session.plugin().zeltaFwVersion(), QStringLiteral("V 1.05"));
    else if (testCase.expected.contains(QStringLiteral("zeltaVersionChanged()")))
        QCOMPARE(session.plugin().zeltaFwVersion(), QStringLiteral("V 1.04"));
    else
        QCOMPARE(session.plugin().zeltaFwVersion(), QStringLiteral("V 0.00"));
    if (!sent)
        return;
    QCOMPARE(stream.ends.first().toHex(), QByteArray("4445465700000000"));
    QCOMPARE(stream.fault, QString());
    if (testCase.name == "refused")
        return;
    QByteArray padded = testCase.content;
    if (padded.size() % 2 != 0)
        padded.append('\0');
    QVERIFY(stream.isPlain((padded.size() + 511) / 512));
    QVERIFY(stream.content(512) == padded);
    QCOMPARE(stream.starts.first().toHex(),
             "44534657" + QByteArray::number(testCase.content.size(), 16).rightJustified(8, '0'));
}

void ZeltaFirmwareTest::handlersThatCallBack()
{
    QVERIFY(m_asking->waitFor(QStringLiteral("intZeltaFirmwareUpdateFinished()")));
    QVERIFY(m_asking->finishTasks());
    // zeltaVersionChanged() is emitted twice, each other signal once.
    QCOMPARE(m_questions, 7);
    QCOMPARE(m_asking->peer().received().count(QByteArray("SN\0\0", 4)), 7);
    QCOMPARE(m_asking->plugin().zeltaFwVersion(), QStringLiteral("V 1.05"));
}

QTEST_GUILESS_MAIN(ZeltaFirmwareTest)
#include "tst_zeltafirmware.moc"

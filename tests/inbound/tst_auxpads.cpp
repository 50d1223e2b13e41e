#include "support/connectedmodule.h"
#include "support/hex.h"
#include "support/texts.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTest>

#include <algorithm>

using namespace testsupport;

namespace {

// Strikes at full velocity; the last byte is the note.
const char *const aux3Pad = "494D4143 9909 7F5C";
const char *const aux3Rim = "494D4143 9909 7F5D";
const char *const aux4Pad = "494D4143 9909 7F5E";
const char *const aux4Rim = "494D4143 9909 7F5F";

constexpr qint64 debounceMs = 200;
// A coarse timer may be early by a twentieth.
constexpr qint64 earliestMs = debounceMs - debounceMs / 20 - 1;
constexpr int boundMs = 10000;
constexpr int strikePauseMs = 5;

QStringList withoutHandOvers(QStringList signalTexts)
{
    const auto isHandOver = [](const QString &text) {
        return text.startsWith(QLatin1String("notePacketArrived("));
    };
    signalTexts.erase(std::remove_if(signalTexts.begin(), signalTexts.end(), isHandOver), signalTexts.end());
    return signalTexts;
}

QList<QByteArray> strikes(std::initializer_list<const char *> texts)
{
    QList<QByteArray> result;
    for (const char *text : texts)
        result += hex(text);
    return result;
}

} // namespace

/// Pads 12 and 13 work as the switches aux 3 and aux 4, at most once in 200 ms.
class AuxPadsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void strikes_data();
    void strikes();
    void pressComesBeforeRelease();
    void strikeReleasesAHeldSwitch();
    void pressesAgainAfterTheTime_data();
    void pressesAgainAfterTheTime();
    void theSwitchItselfIsNotHeldBack();
};

void AuxPadsTest::strikes_data()
{
    QTest::addColumn<QList<QByteArray>>("sent");
    QTest::addColumn<QStringList>("expected");
    const QStringList aux3Strike = texts({"noteChanged()", "aux3Changed()", "aux3Changed()"});
    const QStringList aux4Strike = texts({"noteChanged()", "aux4Changed()", "aux4Changed()"});
    const QStringList strike = texts({"noteChanged()"});

    QTest::newRow("pad 12") << ::strikes({aux3Pad}) << aux3Strike;
    QTest::newRow("pad 12, second zone") << ::strikes({aux3Rim}) << aux3Strike;
    QTest::newRow("pad 13") << ::strikes({aux4Pad}) << aux4Strike;
    QTest::newRow("pad 13, second zone") << ::strikes({aux4Rim}) << aux4Strike;
    QTest::newRow("velocity 1") << ::strikes({"494D4143 9909 015C"}) << aux3Strike;
    QTest::newRow("velocity 255") << ::strikes({"494D4143 9909 FF5C"}) << aux3Strike;
    QTest::newRow("pad 12 twice") << ::strikes({aux3Pad, aux3Pad}) << aux3Strike + strike;
    QTest::newRow("both zones of pad 12") << ::strikes({aux3Pad, aux3Rim}) << aux3Strike + strike;
    QTest::newRow("both pads share the time") << ::strikes({aux3Pad, aux4Pad}) << aux3Strike + strike;
    QTest::newRow("and the other way round") << ::strikes({aux4Rim, aux3Rim}) << aux4Strike + strike;
    QTest::newRow("velocity 0") << ::strikes({"494D4143 9909 005C"}) << strike;
    QTest::newRow("velocity 0 takes no time")
        << ::strikes({"494D4143 9909 005E", aux4Pad}) << strike + aux4Strike;
    QTest::newRow("third zone of pad 12") << ::strikes({"494D4143 9909 7F18"}) << strike;
    QTest::newRow("third zone of pad 13") << ::strikes({"494D4143 9909 7F19"}) << strike;
    QTest::newRow("third zones take no time")
        << ::strikes({"494D4143 9909 7F18", "494D4143 9909 7F19", aux3Pad}) << strike + strike + aux3Strike;
    QTest::newRow("pads 10 and 11 press nothing")
        << ::strikes({"494D4143 9909 7F58", "494D4143 9909 7F59", "494D4143 9909 7F5A", "494D4143 9909 7F5B"})
        << strike + strike + strike + strike;
    QTest::newRow("pressure presses nothing")
        << ::strikes({"494D4143 A90A 7F5C"}) << texts({"afterTouchNoteChanged()"});
}

void AuxPadsTest::strikes()
{
    QFETCH(QList<QByteArray>, sent);
    QFETCH(QStringList, expected);
    constexpr int attempts = 5;
    QStringList signalTexts;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        ConnectedModule connected;
        QElapsedTimer delivery;
        delivery.start();
        QVERIFY(connected.deliver(sent));
        signalTexts = withoutHandOvers(connected.recorder.texts());
        QVERIFY(!connected.module.aux3Pressed());
        QVERIFY(!connected.module.aux4Pressed());
        // A machine that was too busy to deliver them in time says nothing about strikes in quick succession.
        if (delivery.elapsed() < earliestMs)
            break;
    }
    QCOMPARE(signalTexts, expected);
}

void AuxPadsTest::pressComesBeforeRelease()
{
    ConnectedModule connected;
    QList<bool> states;
    connect(&connected.module, &QConnectQmlPlugin::aux4Changed, this,
            [&] { states += connected.module.aux4Pressed(); });
    QVERIFY(connected.deliver(::strikes({aux4Pad})));
    QCOMPARE(states, (QList<bool>{true, false}));
}

void AuxPadsTest::strikeReleasesAHeldSwitch()
{
    ConnectedModule connected;
    QVERIFY(connected.deliver({hex("53574143 4133 0001")}));
    QVERIFY(connected.module.aux3Pressed());
    connected.recorder.clear();
    QVERIFY(connected.deliver(::strikes({aux3Pad})));
    QCOMPARE(withoutHandOvers(connected.recorder.texts()), texts({"noteChanged()", "aux3Changed()"}));
    QVERIFY(!connected.module.aux3Pressed());
}

void AuxPadsTest::pressesAgainAfterTheTime_data()
{
    QTest::addColumn<QByteArray>("again");
    QTest::addColumn<QByteArray>("signal");
    QTest::newRow("same pad") << hex(aux3Pad) << QByteArray("aux3Changed");
    QTest::newRow("other pad") << hex(aux4Pad) << QByteArray("aux4Changed");
}

// Struck over and over: strikes that come too early must not put the next press off either.
void AuxPadsTest::pressesAgainAfterTheTime()
{
    QFETCH(QByteArray, again);
    QFETCH(QByteArray, signal);
    ConnectedModule connected;
    QElapsedTimer sinceStrike;
    sinceStrike.start();
    QVERIFY(connected.deliver(::strikes({aux3Pad})));
    QCOMPARE(connected.recorder.count("aux3Changed"), 2);
    connected.recorder.clear();

    int struck = 0;
    while (connected.recorder.count(signal.constData()) == 0 && !sinceStrike.hasExpired(boundMs)) {
        QTest::qWait(strikePauseMs);
        QVERIFY(connected.deliver({again}));
        ++struck;
    }
    QVERIFY2(sinceStrike.elapsed() >= earliestMs, qPrintable(QString::number(sinceStrike.elapsed())));
    QCOMPARE(connected.recorder.count(signal.constData()), 2);
    QCOMPARE(connected.recorder.count("noteChanged"), struck);
}

void AuxPadsTest::theSwitchItselfIsNotHeldBack()
{
    ConnectedModule connected;
    QVERIFY(connected.deliver(::strikes({aux3Pad})));
    connected.recorder.clear();
    QVERIFY(connected.deliver({hex("53574143 4133 0001"), hex("53574143 4133 0000")}));
    QCOMPARE(connected.recorder.texts(), texts({"aux3Changed()", "aux3Changed()"}));
}

QTEST_MAIN(AuxPadsTest)
#include "tst_auxpads.moc"

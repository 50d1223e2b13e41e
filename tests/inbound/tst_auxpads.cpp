#include "support/connectedmodule.h"
#include "support/datagram.h"
#include "support/texts.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTest>
#include <QTimer>

#include <algorithm>

using namespace testsupport;

namespace {

// Strikes with velocity 127. The last byte is the note.
const char *const aux3Pad = "IM AC 9909 7F5C";
const char *const aux3Rim = "IM AC 9909 7F5D";
const char *const aux4Pad = "IM AC 9909 7F5E";
const char *const aux4Rim = "IM AC 9909 7F5F";

constexpr qint64 debounceMs = 200;
// A coarse timer can fire 5 % early.
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
        result += datagram(text);
    return result;
}

} // namespace

/// Pads 12 and 13 press the switches aux 3 and aux 4, at most once in 200 ms.
class AuxPadsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void strikes_data();
    void strikes();
    void pressComesBeforeRelease();
    void strikeReleasesAHeldSwitch();
    void pressesAgainAfterTheDebounceTime_data();
    void pressesAgainAfterTheDebounceTime();
    void pressesAgainWhenTheTimeIsOver();
    void switchesAreNotDebounced();
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
    QTest::newRow("velocity 1") << ::strikes({"IM AC 9909 015C"}) << aux3Strike;
    QTest::newRow("velocity 255") << ::strikes({"IM AC 9909 FF5C"}) << aux3Strike;
    QTest::newRow("pad 12 twice") << ::strikes({aux3Pad, aux3Pad}) << aux3Strike + strike;
    QTest::newRow("both zones of pad 12") << ::strikes({aux3Pad, aux3Rim}) << aux3Strike + strike;
    QTest::newRow("both pads share the debounce time")
        << ::strikes({aux3Pad, aux4Pad}) << aux3Strike + strike;
    QTest::newRow("both pads in reverse order") << ::strikes({aux4Rim, aux3Rim}) << aux4Strike + strike;
    QTest::newRow("velocity 0") << ::strikes({"IM AC 9909 005C"}) << strike;
    QTest::newRow("velocity 0 starts no debounce time")
        << ::strikes({"IM AC 9909 005E", aux4Pad}) << strike + aux4Strike;
    QTest::newRow("third zone of pad 12") << ::strikes({"IM AC 9909 7F18"}) << strike;
    QTest::newRow("third zone of pad 13") << ::strikes({"IM AC 9909 7F19"}) << strike;
    QTest::newRow("third zones start no debounce time")
        << ::strikes({"IM AC 9909 7F18", "IM AC 9909 7F19", aux3Pad}) << strike + strike + aux3Strike;
    QTest::newRow("pads 10 and 11 press nothing")
        << ::strikes({"IM AC 9909 7F58", "IM AC 9909 7F59", "IM AC 9909 7F5A", "IM AC 9909 7F5B"})
        << strike + strike + strike + strike;
    QTest::newRow("pressure presses nothing")
        << ::strikes({"IM AC A90A 7F5C"}) << texts({"afterTouchNoteChanged()"});
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
        // If the machine is too slow, the strikes are not in quick succession.
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
    QVERIFY(connected.deliver({datagram("SW AC A3 0001")}));
    QVERIFY(connected.module.aux3Pressed());
    connected.recorder.clear();
    QVERIFY(connected.deliver(::strikes({aux3Pad})));
    QCOMPARE(withoutHandOvers(connected.recorder.texts()), texts({"noteChanged()", "aux3Changed()"}));
    QVERIFY(!connected.module.aux3Pressed());
}

void AuxPadsTest::pressesAgainAfterTheDebounceTime_data()
{
    QTest::addColumn<QByteArray>("again");
    QTest::addColumn<QByteArray>("signal");
    QTest::newRow("same pad") << datagram(aux3Pad) << QByteArray("aux3Changed");
    QTest::newRow("other pad") << datagram(aux4Pad) << QByteArray("aux4Changed");
}

// Repeated strikes. Strikes that are too early must not delay the next press.
void AuxPadsTest::pressesAgainAfterTheDebounceTime()
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

// The reference timer starts later, and is longer by more than the possible delay of a coarse timer. Timers
// of one thread expire in the order of their due times, even on a busy machine. The debounce time therefore
// ends before the strike.
void AuxPadsTest::pressesAgainWhenTheTimeIsOver()
{
    constexpr int referenceMs = debounceMs + debounceMs / 20 + 5;
    ConnectedModule connected;
    const auto strike = [&connected] {
        // MIDI event, note on, note 92 at velocity 127.
        QVERIFY(QMetaObject::invokeMethod(&connected.module, "udpPacket", Q_ARG(quint16, 0x494D),
                                          Q_ARG(quint16, 0x9909), Q_ARG(quint16, 0x7F5C)));
    };
    bool struckAgain = false;
    strike();
    QCOMPARE(connected.recorder.count("aux3Changed"), 2);
    QTimer::singleShot(referenceMs, Qt::PreciseTimer, &connected.module, [&] {
        strike();
        struckAgain = true;
    });
    QTRY_VERIFY_WITH_TIMEOUT(struckAgain, patienceMs);
    QCOMPARE(connected.recorder.count("aux3Changed"), 4);
}

void AuxPadsTest::switchesAreNotDebounced()
{
    ConnectedModule connected;
    QVERIFY(connected.deliver(::strikes({aux3Pad})));
    connected.recorder.clear();
    QVERIFY(connected.deliver({datagram("SW AC A3 0001"), datagram("SW AC A3 0000")}));
    QCOMPARE(connected.recorder.texts(), texts({"aux3Changed()", "aux3Changed()"}));
}

QTEST_MAIN(AuxPadsTest)
#include "tst_auxpads.moc"

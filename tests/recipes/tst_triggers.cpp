// The recipes for triggers: hi-hat calibration, trigger curve.

#include "main.h"
#include "recipe.h"
#include "support/patience.h"

#include <QElapsedTimer>

using namespace testsupport;

namespace {

// Tags.
const QString hiHatQuery = QStringLiteral("HL");
const QString bankQuery = QStringLiteral("SN");

} // namespace

class TriggersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hiHat();
    void hiHatQueriesDoNotPileUp_data();
    void hiHatQueriesDoNotPileUp();
    void triggerCurve();
};

void TriggersTest::hiHat()
{
    Recipe recipe(QStringLiteral("HiHat.qml"), QString(),
                  [](SoundEngine &engine) { engine.setHiHatRaw(100); });
    QVERIFY2(recipe.root(), qPrintable(recipe.errorString()));
    QCOMPARE(recipe.text("raw"), QStringLiteral("Waiting for the pedal"));
    QVERIFY(!recipe.find("open")->property("enabled").toBool());
    QTRY_COMPARE_WITH_TIMEOUT(recipe.text("raw"), QStringLiteral("Raw value 100"), patienceMs);
    recipe.click("open");
    recipe.engine().setHiHatRaw(900);
    QTRY_COMPARE_WITH_TIMEOUT(recipe.text("raw"), QStringLiteral("Raw value 900"), patienceMs);
    QCOMPARE(recipe.root()->property("travel").toDouble(), -1.0);
    recipe.click("closed");
    QCOMPARE(recipe.root()->property("travel").toDouble(), 1.0);
    recipe.engine().setHiHatRaw(500);
    QTRY_COMPARE_WITH_TIMEOUT(recipe.find("travel")->property("value").toDouble(), 0.5, patienceMs);
    recipe.engine().setHiHatRaw(0);
    QTRY_COMPARE_WITH_TIMEOUT(recipe.text("raw"), QStringLiteral("Raw value 0"), patienceMs);
    QCOMPARE(recipe.root()->property("travel").toDouble(), 0.0);

    recipe.drag("sendTriggerHHLowPosition", 11);
    recipe.drag("sendTriggerHHHighPosition", 99);
    QTRY_COMPARE_WITH_TIMEOUT(recipe.engine().parameter(0x45, 7), 11, patienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(recipe.engine().parameter(0x46, 7), 99, patienceMs);
}

void TriggersTest::hiHatQueriesDoNotPileUp_data()
{
    QTest::addColumn<bool>("repeated");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("only waiting") << false << QStringList{hiHatQuery, bankQuery};
    QTest::newRow("Measure again") << true << QStringList{hiHatQuery, hiHatQuery, bankQuery};
}

// Another query shows which ones are in the module's queue before it.
void TriggersTest::hiHatQueriesDoNotPileUp()
{
    QFETCH(bool, repeated);
    QFETCH(QStringList, expected);
    QStringList queries;
    Recipe recipe(QStringLiteral("HiHat.qml"), QString(), [&](SoundEngine &engine) {
        engine.setFailure(QStringLiteral("late-query-reply=5000"));
        connect(&engine, &SoundEngine::datagramReceived, this, [&](const QByteArray &datagram) {
            const QString tag = QString::fromLatin1(datagram.left(2));
            if (tag == hiHatQuery || tag == bankQuery)
                queries += tag;
        });
    });
    QVERIFY2(recipe.root(), qPrintable(recipe.errorString()));
    QTRY_COMPARE_WITH_TIMEOUT(queries, QStringList{hiHatQuery}, patienceMs);
    const QObject *again = recipe.find("again");
    QVERIFY(again && !again->property("enabled").toBool());
    QVERIFY(recipe.root()->setProperty("answerMs", 10));
    QTRY_COMPARE_WITH_TIMEOUT(recipe.text("raw"), QStringLiteral("No answer yet"), patienceMs);
    QVERIFY(recipe.root()->setProperty("answerMs", 21000));
    if (repeated) {
        recipe.click("again");
        QCOMPARE(recipe.text("raw"), QStringLiteral("Waiting for the pedal"));
        QVERIFY(!again->property("enabled").toBool());
    }
    QVERIFY(QMetaObject::invokeMethod(recipe.zelta(), "requestSoundBankVersion"));
    QTRY_VERIFY_WITH_TIMEOUT(queries.contains(bankQuery), patienceMs);
    QCOMPARE(queries.mid(0, queries.indexOf(bankQuery) + 1), expected);
    // The late answer resumes the measurement.
    QTRY_VERIFY_WITH_TIMEOUT(recipe.root()->property("raw").toInt() >= 0, patienceMs);
    QTRY_VERIFY_WITH_TIMEOUT(queries.size() > expected.size(), patienceMs);
    QCOMPARE(queries.constLast(), hiHatQuery);
}

void TriggersTest::triggerCurve()
{
    Recipe recipe(QStringLiteral("TriggerCurve.qml"));
    QVERIFY2(recipe.root(), qPrintable(recipe.errorString()));
    QVERIFY(recipe.root()->setProperty("curve", 3));
    int curves = 0;
    connect(&recipe.engine(), &SoundEngine::datagramReceived, this, [&](const QByteArray &datagram) {
        if (datagram.startsWith("TC"))
            ++curves;
    });
    QElapsedTimer elapsed;
    elapsed.start();
    for (int i = 0; i < 300; ++i) {
        recipe.drag("point4", i % 128);
        QCoreApplication::processEvents();
    }
    recipe.drag("point0", 5);
    recipe.drag("point4", 90);
    recipe.drag("point8", 126);
    const QByteArray expected = QByteArray::fromHex("05 10 20 30 5A 50 60 70 7E");
    QTRY_COMPARE_WITH_TIMEOUT(recipe.engine().triggerCurve(3), expected, patienceMs);
    QVERIFY2(curves <= elapsed.elapsed() / 39 + 2, qPrintable(QString::number(curves)));
    QCOMPARE(recipe.engine().violations(), QStringList());
}

int main(int argc, char **argv)
{
    return runRecipes<TriggersTest>(argc, argv);
}

#include "tst_triggers.moc"

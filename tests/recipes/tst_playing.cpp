// The recipes for playing and mixing: kit with names, meters, faders.

#include "main.h"
#include "recipe.h"
#include "support/patience.h"

#include <QElapsedTimer>

using namespace testsupport;

class PlayingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void kitNames_data();
    void kitNames();
    void metersAskForEachFrame();
    void metersFall();
    void hiddenMetersDoNotAsk();
    void faders_data();
    void faders();
    void cleanup() { m_recipe.reset(); }

private:
    void show(const char *file);

    std::unique_ptr<Recipe> m_recipe;
};

void PlayingTest::show(const char *file)
{
    m_recipe = std::make_unique<Recipe>(QLatin1String(file));
    QVERIFY2(m_recipe->root(), qPrintable(m_recipe->errorString()));
    QTRY_VERIFY_WITH_TIMEOUT(m_recipe->engine().knowsModule(), patienceMs);
}

void PlayingTest::kitNames_data()
{
    QTest::addColumn<int>("note");
    QTest::addColumn<QString>("pad");
    QTest::addColumn<QString>("zone");
    QTest::newRow("kick") << 36 << "Kick"
                          << "Head";
    QTest::newRow("snare rim") << 40 << "Snare"
                               << "Rim";
    QTest::newRow("ride bell") << 53 << "Ride"
                               << "Bell";
    QTest::newRow("open hi-hat") << 46 << "Hi-hat"
                                 << "Bow";
    QTest::newRow("crash edge") << 52 << "Crash 2"
                                << "Edge";
    QTest::newRow("aux side") << 25 << "Aux 4"
                              << "Side";
}

void PlayingTest::kitNames()
{
    QFETCH(int, note);
    QFETCH(QString, pad);
    QFETCH(QString, zone);
    show("KitNames.qml");
    const QObject *tile = m_recipe->find(qPrintable(pad));
    QVERIFY(tile);
    QCOMPARE(tile->property("hitText").toString(), QString());
    QVERIFY(m_recipe->engine().strike(quint8(note), 91));
    QTRY_COMPARE_WITH_TIMEOUT(tile->property("hitText").toString(), zone + QStringLiteral(" 91"), patienceMs);
}

void PlayingTest::metersAskForEachFrame()
{
    QElapsedTimer elapsed;
    elapsed.start();
    show("Meters.qml");
    QTRY_VERIFY_WITH_TIMEOUT(m_recipe->engine().counters().datagrams >= 60, patienceMs);
    QVERIFY(m_recipe->engine().counters().datagrams <= quint64(elapsed.elapsed()) / 15 + 5);
    // A timer of a second, for example, would take a minute.
    QVERIFY(elapsed.elapsed() < patienceMs / 4);
}

void PlayingTest::metersFall()
{
    show("Meters.qml");
    SoundEngine::OutputLevels levels{};
    levels[0] = 70;
    levels[1] = 35;
    m_recipe->engine().setOutputLevels(levels);
    const QObject *left = m_recipe->find("left");
    const QObject *right = m_recipe->find("right");
    QTRY_COMPARE_WITH_TIMEOUT(left->property("shown").toDouble(), 1.0, patienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(right->property("shown").toDouble(), 0.5, patienceMs);
    QCOMPARE(left->property("peak").toDouble(), 1.0);

    m_recipe->engine().setOutputLevels({});
    bool isBetween = false;
    bool isPeakHeld = false;
    const auto isDown = [&] {
        const double shown = left->property("shown").toDouble();
        isBetween = isBetween || (shown > 0 && shown < 1);
        isPeakHeld = isPeakHeld || (shown < 1 && left->property("peak").toDouble() == 1.0);
        return shown == 0 && left->property("peak").toDouble() == 0;
    };
    QTRY_VERIFY_WITH_TIMEOUT(isDown(), patienceMs);
    QVERIFY(isBetween);
    QVERIFY(isPeakHeld);
}

void PlayingTest::hiddenMetersDoNotAsk()
{
    show("Meters.qml");
    QTRY_VERIFY_WITH_TIMEOUT(m_recipe->engine().counters().datagrams >= 10, patienceMs);
    QVERIFY(m_recipe->root()->setProperty("visible", false));
    // What is on its way arrives. After that only the heartbeat asks, once a second.
    QTest::qWait(0);
    const quint64 before = m_recipe->engine().counters().datagrams;
    QElapsedTimer elapsed;
    elapsed.start();
    QTRY_VERIFY_WITH_TIMEOUT(m_recipe->engine().counters().datagrams >= before + 3, patienceMs);
    QVERIFY(elapsed.elapsed() > 500);
}

void PlayingTest::faders_data()
{
    QTest::addColumn<QString>("method");
    QTest::addColumn<int>("msb");
    QTest::newRow("master") << "setMasterOutLevel" << 0x38;
    QTest::newRow("monitor") << "setMonitorOutLevel" << 0x39;
    QTest::newRow("headphones") << "setHeadphoneOutLevel" << 0x3A;
}

void PlayingTest::faders()
{
    QFETCH(QString, method);
    QFETCH(int, msb);
    show("Faders.qml");
    QVector<int> values;
    connect(&m_recipe->engine(), &SoundEngine::parameterReceived, this, [&](int high, int low, int value) {
        if (high == msb && low == 7)
            values.append(value);
    });
    QElapsedTimer elapsed;
    elapsed.start();
    for (int i = 0; i < 1000; ++i) {
        m_recipe->drag(qPrintable(method), i % 128);
        QCoreApplication::processEvents();
    }
    m_recipe->drag(qPrintable(method), 77);
    QTRY_COMPARE_WITH_TIMEOUT(m_recipe->engine().parameter(quint8(msb), 7), 77, patienceMs);
    QCOMPARE(values.last(), 77);
    QVERIFY2(values.size() <= elapsed.elapsed() / 39 + 2, qPrintable(QString::number(values.size())));
}

int main(int argc, char **argv)
{
    return runRecipes<PlayingTest>(argc, argv);
}

#include "tst_playing.moc"

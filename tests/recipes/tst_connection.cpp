// The recipes for start and connection: first frame, heartbeat, one object for all pages.

#include "main.h"
#include "recipe.h"
#include "support/patience.h"

using namespace testsupport;

class ConnectionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void firstFrame();
    void heartbeat();
    void oneObject();
};

void ConnectionTest::firstFrame()
{
    Recipe recipe(QStringLiteral("FirstFrame.qml"));
    QVERIFY2(recipe.root(), qPrintable(recipe.errorString()));
    // The engine object does not exist before a frame has been shown.
    bool hasFrame = false;
    connect(recipe.window(), &QQuickWindow::frameSwapped, this, [&] { hasFrame = true; });
    QVERIFY(!recipe.find("signal"));
    while (!recipe.find("signal")) {
        QVERIFY(recipe.find("waiting")->property("visible").toBool());
        QCOMPARE(recipe.engine().counters().datagrams, quint64(0));
        QTest::qWait(1);
        QVERIFY(hasFrame || !recipe.find("signal"));
    }
    QTRY_COMPARE_WITH_TIMEOUT(recipe.text("signal"), QStringLiteral("connected"), patienceMs);
    QVERIFY(!recipe.find("waiting")->property("visible").toBool());
}

void ConnectionTest::heartbeat()
{
    Recipe recipe(QStringLiteral("Heartbeat.qml"));
    QVERIFY2(recipe.root(), qPrintable(recipe.errorString()));
    QCOMPARE(recipe.text("signal"), QStringLiteral("no signal"));
    QTRY_COMPARE_WITH_TIMEOUT(recipe.text("signal"), QStringLiteral("connected"), patienceMs);
    QMetaObject::invokeMethod(recipe.root()->findChild<QObject *>(QStringLiteral("master")), "set",
                              Q_ARG(QVariant, 42));
    QTRY_COMPARE_WITH_TIMEOUT(recipe.engine().parameter(0x38, 0x07), 42, patienceMs);

    recipe.removeEngine();
    QTRY_COMPARE_WITH_TIMEOUT(recipe.text("signal"), QStringLiteral("no signal"), patienceMs);
    recipe.startEngine();
    QCOMPARE(recipe.engine().parameter(0x38, 0x07), -1);
    QTRY_COMPARE_WITH_TIMEOUT(recipe.text("signal"), QStringLiteral("connected"), patienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(recipe.engine().parameter(0x38, 0x07), 42, patienceMs);
}

void ConnectionTest::oneObject()
{
    Recipe recipe(QStringLiteral("OneObject.qml"));
    QVERIFY2(recipe.root(), qPrintable(recipe.errorString()));
    // Each object of the module has a port of its own.
    int modules = 0;
    connect(&recipe.engine(), &SoundEngine::moduleChanged, this, [&] { ++modules; });
    recipe.drag("master", 64);
    QTRY_COMPARE_WITH_TIMEOUT(recipe.engine().parameter(0x38, 0x07), 64, patienceMs);
    for (int strikes = 1; strikes <= 5; ++strikes) {
        QVERIFY(recipe.root()->setProperty("page", 1));
        QTRY_VERIFY_WITH_TIMEOUT(!recipe.find("master"), patienceMs);
        QVERIFY(recipe.engine().strike(38, quint8(strikes)));
        QTRY_COMPARE_WITH_TIMEOUT(recipe.find("hits")->property("count").toInt(), strikes, patienceMs);
        QVERIFY(recipe.root()->setProperty("page", 0));
        QTRY_VERIFY_WITH_TIMEOUT(!recipe.find("hits"), patienceMs);
        QCOMPARE(recipe.find("master")->property("value").toInt(), 64);
    }
    QCOMPARE(modules, 1);
}

int main(int argc, char **argv)
{
    return runRecipes<ConnectionTest>(argc, argv);
}

#include "tst_connection.moc"

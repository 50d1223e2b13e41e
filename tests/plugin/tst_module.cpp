// The module imported from the build tree by a QML engine, as the touch screen does it.

#include "support/enginepeer.h"
#include "support/hex.h"
#include "support/logcatcher.h"
#include "support/processresources.h"
#include "support/signalrecorder.h"
#include "support/texts.h"

#include <QLibraryInfo>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlError>
#include <QQuickItem>
#include <QTest>

#include <memory>

using namespace testsupport;

namespace {

QStringList errorTexts(const QQmlComponent &component)
{
    QStringList result;
    const QList<QQmlError> errors = component.errors();
    for (const QQmlError &error : errors)
        result += error.description();
    return result;
}

} // namespace

class ModuleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void importsVersionOne();
    void otherVersionsAreRefused_data();
    void otherVersionsAreRefused();
    void otherNamesAreRefused_data();
    void otherNamesAreRefused();
    void createdAndDestroyedAtOnce();
    void methodsFromQml_data();
    void methodsFromQml();
    void signalsAndPropertiesInQml();
    void testCommandsAndSysExInQml();
    void asAChildOfAScreen();
    void twoInOneScreen();

private:
    std::unique_ptr<QObject> create(const char *source);

    std::unique_ptr<QQmlEngine> m_engine;
    std::unique_ptr<EnginePeer> m_peer;
    std::unique_ptr<LogCatcher> m_log;
};

void ModuleTest::init()
{
    m_peer = std::make_unique<EnginePeer>();
    QVERIFY2(m_peer->isOpen(), qPrintable(m_peer->errorString()));
    m_log = std::make_unique<LogCatcher>();
    m_engine = std::make_unique<QQmlEngine>();
    // The build tree before all else, or an installed module would be tested instead.
    m_engine->setImportPathList({QLibraryInfo::location(QLibraryInfo::Qml2ImportsPath)});
    m_engine->addImportPath(QStringLiteral(ZELTACONNECT_QML_DIR));
}

void ModuleTest::cleanup()
{
    m_engine.reset();
    const QStringList warnings = m_log ? m_log->warnings() : QStringList();
    m_log.reset();
    m_peer.reset();
    QCOMPARE(warnings, QStringList());
}

std::unique_ptr<QObject> ModuleTest::create(const char *source)
{
    QQmlComponent component(m_engine.get());
    component.setData(source, QUrl());
    std::unique_ptr<QObject> object(component.create());
    if (!object)
        qWarning() << errorTexts(component);
    return object;
}

void ModuleTest::importsVersionOne()
{
    const std::unique_ptr<QObject> module = create("import ZeltaConnect 1.0\nZeltaConnect {}");
    QVERIFY(module);
    QCOMPARE(module->metaObject()->className(), "QConnectQmlPlugin");
    QVERIFY(qobject_cast<QQuickItem *>(module.get()));
    QVERIFY(m_peer->connectTo(module.get()));
    QVERIFY(m_peer->settle(module.get()));
}

void ModuleTest::otherVersionsAreRefused_data()
{
    QTest::addColumn<QByteArray>("source");

    QTest::newRow("2.0") << QByteArray("import ZeltaConnect 2.0\nZeltaConnect {}");
    QTest::newRow("0.1") << QByteArray("import ZeltaConnect 0.1\nZeltaConnect {}");
    QTest::newRow("1.1") << QByteArray("import ZeltaConnect 1.1\nZeltaConnect {}");
}

void ModuleTest::otherVersionsAreRefused()
{
    QFETCH(QByteArray, source);

    QQmlComponent component(m_engine.get());
    component.setData(source, QUrl());
    QVERIFY(component.isError());
    const std::unique_ptr<QObject> object(component.create());
    QVERIFY(!object);
    QVERIFY2(errorTexts(component).constFirst().contains(QLatin1String("ZeltaConnect")),
             qPrintable(errorTexts(component).join(QLatin1Char('\n'))));
    // QQmlComponent says so once more when it is asked to create.
    QCOMPARE(m_log->warnings(), QStringList{QStringLiteral("QQmlComponent: Component is not ready")});
    m_log->clear();
}

void ModuleTest::otherNamesAreRefused_data()
{
    QTest::addColumn<QByteArray>("source");

    QTest::newRow("control object") << QByteArray("import ZeltaConnect 1.0\nQConnectQmlPlugin {}");
    QTest::newRow("controller") << QByteArray("import ZeltaConnect 1.0\nQconnectpad {}");
    QTest::newRow("without the import") << QByteArray("import QtQuick 2.0\nZeltaConnect {}");
}

void ModuleTest::otherNamesAreRefused()
{
    QFETCH(QByteArray, source);

    QQmlComponent component(m_engine.get());
    component.setData(source, QUrl());
    QVERIFY(component.isError());
}

void ModuleTest::createdAndDestroyedAtOnce()
{
    create("import ZeltaConnect 1.0\nZeltaConnect {}");
    // One more at most, of the test before, that the kernel has not cleared away yet.
    const int threads = threadCount();
    const int sockets = socketCount();
    const int descriptors = descriptorCount();
    for (int i = 0; i < 10; ++i) {
        std::unique_ptr<QObject> module = create("import ZeltaConnect 1.0\nZeltaConnect {}");
        QVERIFY(module);
        QCOMPARE(socketCount(), sockets + 1);
        module.reset();
        QCOMPARE(socketCount(), sockets);
        QCOMPARE(descriptorCount(), descriptors);
        QTRY_VERIFY_WITH_TIMEOUT(threadCount() <= threads, patienceMs);
    }
}

void ModuleTest::methodsFromQml_data()
{
    QTest::addColumn<QByteArray>("call");
    QTest::addColumn<QByteArray>("datagram");

    QTest::newRow("mixer") << QByteArray("setSnareStyle(1)") << hex("494d0003 0bb96337 0bb96204 0bb90601");
    QTest::newRow("two values") << QByteArray("setPlaybackRouting(2, 5)")
                                << hex("494d0004 0bb96337 0bb9620f 0bb92605 0bb90602");
    QTest::newRow("no value") << QByteArray("requestOutsUpdate()")
                              << hex("494d0003 0bb9633b 0bb9621f 0bb90600");
    QTest::newRow("switch") << QByteArray("setLedEnabled(3, true)") << hex("4c44 0003 0001");
    QTest::newRow("array") << QByteArray("sendSysEx([0x7E, 0x7F, 0x06, 0x01])")
                           << hex("494d0002 04f07e7f 070601f7");
    QTest::newRow("empty array") << QByteArray("sendSysEx([])") << hex("494d0001 05f0f700");
    QTest::newRow("array of one") << QByteArray("sendSysEx([1])") << hex("494d0001 06f001f7");
}

void ModuleTest::methodsFromQml()
{
    QFETCH(QByteArray, call);
    QFETCH(QByteArray, datagram);

    const std::unique_ptr<QObject> module = create(
        "import QtQml 2.0\nimport ZeltaConnect 1.0\nZeltaConnect { Component.onCompleted: " + call + " }");
    QVERIFY(module);
    QCOMPARE(m_peer->next(), datagram);
    QVERIFY(m_peer->nothingSentBy(module.get()));
}

void ModuleTest::signalsAndPropertiesInQml()
{
    const std::unique_ptr<QObject> module =
        create("import ZeltaConnect 1.0\n"
               "ZeltaConnect {\n"
               "    property var seen: []\n"
               "    property int shownTempo: tempo\n"
               "    property bool shownPower: powerPressed\n"
               "    onPowerChanged: seen.push('power ' + powerPressed)\n"
               "    onUdpPacketArrived: seen.push('event ' + id + ' ' + idx + ' ' + data)\n"
               "    onTempoChanged: seen.push('tempo ' + tempo)\n"
               "}");
    QVERIFY(module);
    QVERIFY(m_peer->connectTo(module.get()));
    for (const char *datagram : {"53574143 50570005", "53574143 50570005", "544d4143 00780000",
                                 "544d4143 00000000", "41424143 00010002"})
        QVERIFY(m_peer->send(hex(datagram)));
    QVERIFY(m_peer->settle(module.get()));
    QStringList seen = module->property("seen").toStringList();
    QCOMPARE(seen.mid(0, 3), texts({"power true", "tempo 120", "event 16706 1 2"}));
    QCOMPARE(seen.size(), 4); // the fence
    QCOMPARE(module->property("shownTempo").toInt(), 120);
    QCOMPARE(module->property("shownPower").toBool(), true);
    QVERIFY(!module->setProperty("tempo", 99));
    QCOMPARE(module->property("tempo").toInt(), 120);
}

void ModuleTest::testCommandsAndSysExInQml()
{
    const std::unique_ptr<QObject> module =
        create("import ZeltaConnect 1.0\n"
               "ZeltaConnect {\n"
               "    property var seen: []\n"
               "    onTestCommand: seen.push(high + ' ' + low + ' ' + value)\n"
               "    onSysEx: seen.push(value)\n"
               "}");
    QVERIFY(module);
    QVERIFY(m_peer->connectTo(module.get()));
    for (const char *datagram : {"494d4143 b90b1263", "494d4143 b90b3462", "494d4143 b90b5606",
                                 "494d4143 f0044110", "494d4143 10044212", "494d4143 f7050000"})
        QVERIFY(m_peer->send(hex(datagram)));
    QVERIFY(m_peer->settle(module.get()));
    QCOMPARE(module->property("seen").toStringList(), texts({"12 34 56", "04f010410410124205f70000"}));
}

void ModuleTest::asAChildOfAScreen()
{
    const int sockets = socketCount();
    std::unique_ptr<QObject> screen = create("import QtQuick 2.0\n"
                                             "import ZeltaConnect 1.0\n"
                                             "Item {\n"
                                             "    width: 1280; height: 800\n"
                                             "    property alias back: connection\n"
                                             "    ZeltaConnect { id: connection }\n"
                                             "}");
    QVERIFY(screen);
    auto *module = screen->property("back").value<QObject *>();
    QVERIFY(module);
    QVERIFY(m_peer->connectTo(module));
    QVERIFY(m_peer->settle(module));
    screen.reset();
    QCOMPARE(socketCount(), sockets);
}

void ModuleTest::twoInOneScreen()
{
    const std::unique_ptr<QObject> screen = create("import QtQuick 2.0\n"
                                                   "import ZeltaConnect 1.0\n"
                                                   "Item {\n"
                                                   "    property alias a: first\n"
                                                   "    property alias b: second\n"
                                                   "    ZeltaConnect { id: first }\n"
                                                   "    ZeltaConnect { id: second }\n"
                                                   "}");
    QVERIFY(screen);
    auto *first = screen->property("a").value<QObject *>();
    auto *second = screen->property("b").value<QObject *>();
    QVERIFY(first && second);
    QVERIFY(m_peer->connectTo(first));
    QVERIFY(m_peer->connectTo(second));
    const SignalRecorder firstRecorder(first);
    const SignalRecorder secondRecorder(second);
    QVERIFY(m_peer->send(hex("42544143 00030000")));
    QVERIFY(m_peer->settle(second));
    QCOMPARE(secondRecorder.texts(), texts({"beatChanged()"}));
    QCOMPARE(firstRecorder.texts(), QStringList());
}

QTEST_MAIN(ModuleTest)
#include "tst_module.moc"

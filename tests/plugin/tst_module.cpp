// The module, imported from the build tree by a QML engine.

#include "support/datagram.h"
#include "support/enginepeer.h"
#include "support/logcatcher.h"
#include "support/processresources.h"
#include "support/signalrecorder.h"
#include "support/testprogram.h"
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
    void calledWhileItIsCreated();
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
    // The build tree comes first, so that an installed module is not tested instead.
    m_engine->setImportPathList({QLibraryInfo::location(QLibraryInfo::Qml2ImportsPath)});
    m_engine->addImportPath(testsupport::qmlDir());
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
    // QQmlComponent warns again when create() is called.
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
    // May include one thread of the previous test that the kernel has not removed yet.
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

void ModuleTest::calledWhileItIsCreated()
{
    const std::unique_ptr<QObject> module = create("import QtQml 2.0\nimport ZeltaConnect 1.0\nZeltaConnect "
                                                   "{ Component.onCompleted: setSnareStyle(1) }");
    QVERIFY(module);
    // Parameter 37 04: page 0x37, number 0x04, value 1.
    QCOMPARE(m_peer->next(), datagram("IM 0003 0bb96337 0bb96204 0bb90601"));
    QVERIFY(m_peer->nothingSentBy(module.get()));
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
    QVERIFY(m_peer->send(datagram("TM AC 00780000")));
    QVERIFY(m_peer->settle(second));
    QCOMPARE(secondRecorder.texts(), texts({"tempoChanged()"}));
    QCOMPARE(firstRecorder.texts(), QStringList());
}

QTEST_MAIN(ModuleTest)
#include "tst_module.moc"

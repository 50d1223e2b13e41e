// QML engines that are destroyed while events of the sound engine are in the event queue of the GUI thread.

#include "support/connectedmodule.h"
#include "support/datagram.h"
#include "support/dropwarnings.h"
#include "support/eventstream.h"
#include "support/logcatcher.h"
#include "support/processresources.h"

#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QPointer>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QTest>
#include <QThread>

#include <memory>

using namespace testsupport;

namespace {

constexpr int rounds = 50;
constexpr int events = 100;

const char screenText[] = R"(
import QtQml 2.12
import ZeltaConnect 1.0
QtObject {
    property int heard: 0
    property ZeltaConnect module: ZeltaConnect {
        onTempoChanged: tally.count()
        onNoteChanged: { tally.count(); setMasterOutLevel(note & 0x7f) }
    }
})";

/// Counts the calls of the screen's handlers.
class Tally : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE void count() { ++m_count; }
    Q_INVOKABLE void close()
    {
        if (m_screen)
            m_screen->deleteLater();
    }
    int value() const { return m_count; }
    void setScreen(QObject *screen) { m_screen = screen; }

private:
    int m_count = 0;
    QPointer<QObject> m_screen;
};

} // namespace

class QmlTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_threads = threadCount(); }
    void tornDownWithEventsPending();
    void tornDownByAHandler();

private:
    int m_threads = 0;
};

void QmlTest::tornDownWithEventsPending()
{
    EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    const LogCatcher log;
    for (int round = 0; round < rounds; ++round) {
        Tally tally;
        auto engine = std::make_unique<QQmlEngine>();
        QQmlEngine::setObjectOwnership(&tally, QQmlEngine::CppOwnership);
        engine->globalObject().setProperty(QStringLiteral("tally"), engine->newQObject(&tally));
        QQmlComponent component(engine.get());
        component.setData(screenText, QUrl());
        std::unique_ptr<QObject> root(component.create());
        QVERIFY2(root, qPrintable(component.errorString()));
        auto *module = root->property("module").value<QObject *>();
        QVERIFY(peer.connectTo(module));
        QVERIFY(peer.send(datagram("TM AC 00780000")));
        QTRY_COMPARE_WITH_TIMEOUT(tally.value(), 1, patienceMs);

        // The receive thread reads all of them while this thread processes no events.
        for (int i = 0; i < events; ++i)
            QVERIFY(peer.send(datagram("IM AC 99096426")));
        QDeadlineTimer deadline(patienceMs);
        while (waitingBytes(peer.modulePort()) != 0 && !deadline.hasExpired())
            QThread::yieldCurrentThread();
        QVERIFY(!deadline.hasExpired());
        QCOMPARE(tally.value(), 1);

        // The screen is destroyed before or after its QML engine.
        if (round % 2 == 0) {
            root.reset();
            QCoreApplication::processEvents();
            QCOMPARE(tally.value(), 1);
        } else {
            engine.reset();
        }
        QCoreApplication::processEvents();
        root.reset();
        const int before = tally.value();
        QCoreApplication::processEvents();
        QCOMPARE(tally.value(), before);
        peer.discardPending();
        engine.reset(); // ends its thread, too
        QTRY_COMPARE_WITH_TIMEOUT(threadCount(), m_threads, patienceMs);
    }
    QCOMPARE(log.warnings(), QStringList());
}

// A handler of the screen destroys the screen while more events arrive.
void QmlTest::tornDownByAHandler()
{
    EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    const LogCatcher log;
    for (int round = 0; round < rounds; ++round) {
        auto engine = std::make_unique<QQmlEngine>();
        Tally tally;
        QQmlEngine::setObjectOwnership(&tally, QQmlEngine::CppOwnership);
        engine->globalObject().setProperty(QStringLiteral("tally"), engine->newQObject(&tally));
        QQmlComponent component(engine.get());
        component.setData(
            QByteArray(screenText)
                .replace("onTempoChanged: tally.count()", "onTempoChanged: { tally.count(); tally.close() }"),
            QUrl());
        QObject *root = component.create();
        QVERIFY2(root, qPrintable(component.errorString()));
        const QPointer<QObject> module(root->property("module").value<QObject *>());
        QVERIFY(peer.connectTo(module));
        tally.setScreen(root);
        {
            const EventStream stream(peer);
            QTRY_VERIFY_WITH_TIMEOUT(module.isNull(), patienceMs);
        }
        const int before = tally.value();
        QVERIFY(before > 0);
        QCoreApplication::processEvents();
        QCOMPARE(tally.value(), before);
        engine.reset();
        QTRY_COMPARE_WITH_TIMEOUT(threadCount(), m_threads, patienceMs);
        peer.discardPending();
    }
    // The stream does not wait for the module.
    QCOMPARE(withoutDrops(log.warnings()), QStringList());
}

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    qmlRegisterType<QConnectQmlPlugin>("ZeltaConnect", 1, 0, "ZeltaConnect");
    QmlTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_qml.moc"

// Tests a screen against the simulated engine. Both run in this process.

#include "simulator/kit.h"
#include "simulator/soundengine.h"

#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickView>
#include <QTest>

namespace {
// The longest wait for what must happen, on a busy machine.
constexpr int patienceMs = 30000;
} // namespace

class ScreenTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void showsHits();
    void sendsTheLevel();
    void showsThatTheEngineIsGone();
    void cleanup();

private:
    QString text(const char *name) const { return item(name)->property("text").toString(); }
    QQuickItem *item(const char *name) const
    {
        return m_view.rootObject()->findChild<QQuickItem *>(QLatin1String(name));
    }

    SoundEngine m_engine;
    QQuickView m_view;
};

void ScreenTest::initTestCase()
{
    // Without the variable the module would talk to a real engine.
    const QString address = qEnvironmentVariable("ZELTACONNECT_ENGINE");
    QVERIFY2(address.startsWith(QLatin1String("127.")),
             "set ZELTACONNECT_ENGINE to an address in 127.0.0.0/8");
    QVERIFY2(m_engine.listen(QHostAddress(address)), qPrintable(m_engine.errorString()));

    m_view.setSource(QUrl::fromLocalFile(QStringLiteral(SCREEN)));
    QVERIFY(m_view.rootObject());
    m_view.show();
    QTRY_COMPARE_WITH_TIMEOUT(text("signal"), QStringLiteral("connected"), patienceMs);
}

void ScreenTest::showsHits()
{
    QVERIFY(m_engine.strike(38, 100));
    QTRY_COMPARE_WITH_TIMEOUT(text("hit"), QStringLiteral("Snare 100"), patienceMs);
    const int crash = simulated::noteFromText(QStringLiteral("crash1"));
    QVERIFY(m_engine.strike(quint8(crash), 7));
    QTRY_COMPARE_WITH_TIMEOUT(text("hit"), QStringLiteral("Crash 1 7"), patienceMs);
}

void ScreenTest::sendsTheLevel()
{
    QCOMPARE(m_engine.parameter(0x38, 0x07), -1);
    const QQuickItem *slider = item("level");
    const QPointF end = slider->mapToScene(QPointF(slider->width() - 2, slider->height() / 2));
    QTest::mouseClick(&m_view, Qt::LeftButton, Qt::NoModifier, end.toPoint());
    QTRY_COMPARE_WITH_TIMEOUT(m_engine.parameter(0x38, 0x07), 127, patienceMs);
}

void ScreenTest::showsThatTheEngineIsGone()
{
    m_engine.setAnswering(false);
    QTRY_COMPARE_WITH_TIMEOUT(text("signal"), QStringLiteral("no signal"), patienceMs);
    m_engine.setAnswering(true);
    QTRY_COMPARE_WITH_TIMEOUT(text("signal"), QStringLiteral("connected"), patienceMs);
}

// The module has sent nothing that the engine does not understand.
void ScreenTest::cleanup()
{
    QCOMPARE(m_engine.violations(), QStringList());
}

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    ScreenTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_screen.moc"

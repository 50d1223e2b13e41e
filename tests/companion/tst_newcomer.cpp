// docs/examples/newcomer.qml against the simulated engine: what it shows and what it sends.

#include "failures/enginethread.h"
#include "support/logcatcher.h"
#include "support/patience.h"
#include "support/testprogram.h"

#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <memory>

using namespace testsupport;
using Outcome = simulated::ReceivedFile::Outcome;

namespace {

const QString source = QStringLiteral(ZELTACONNECT_SOURCE_DIR "/docs/examples/newcomer.qml");

constexpr quint8 snareHead = 38;
constexpr quint8 tomHead = 48;

using Items = QVector<QQuickItem *>;

void collect(QQuickItem *root, Items &items)
{
    items.append(root);
    const QList<QQuickItem *> children = root->childItems();
    for (QQuickItem *child : children)
        collect(child, items);
}

} // namespace

class NewcomerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void isShort();
    void padsShowHits();
    void metersPedalAndTempoAreShown();
    void versionsAreShown();
    void masterFader();
    void tapSetsTheTempo();
    void equalizerOfEachPad();
    void uploads();
    void missingFileIsReported();
    void cleanupTestCase();

private:
    Items items() const;
    QQuickItem *withText(const QString &text) const;
    bool shows(const QString &text) const { return withText(text); }
    Items sliders() const;
    void move(QQuickItem *slider, double value);
    void click(QQuickItem *item);
    void onEngine(const std::function<void(SoundEngine &engine)> &function);
    int parameter(quint8 msb, quint8 lsb);

    EngineThread m_thread;
    std::unique_ptr<SoundEngine> m_engine;
    std::unique_ptr<LogCatcher> m_log;
    QQmlEngine m_qml;
    std::unique_ptr<QQuickWindow> m_window;
    std::unique_ptr<QQuickItem> m_screen;
    QTemporaryDir m_folder;
};

void NewcomerTest::onEngine(const std::function<void(SoundEngine &engine)> &function)
{
    m_thread.run([&] { function(*m_engine); });
}

// The last value of a parameter that the engine received, -1 if there was none.
int NewcomerTest::parameter(quint8 msb, quint8 lsb)
{
    int value = -1;
    onEngine([&](SoundEngine &engine) { value = engine.parameter(msb, lsb); });
    return value;
}

void NewcomerTest::initTestCase()
{
    m_thread.run([this] {
        m_engine = std::make_unique<SoundEngine>();
        m_engine->setVersion(SoundEngine::Version::SoundBank, 2, 7);
        m_engine->setVersion(SoundEngine::Version::TriggerBank, 0, 31);
        if (!m_engine->listen(QHostAddress(QString::fromLatin1(qgetenv("ZELTACONNECT_ENGINE")))))
            qFatal("%s", qPrintable(m_engine->errorString()));
    });
    m_log = std::make_unique<LogCatcher>();
    m_qml.addImportPath(testsupport::qmlDir());
    QQmlComponent component(&m_qml, QUrl::fromLocalFile(source));
    m_screen.reset(qobject_cast<QQuickItem *>(component.create()));
    QVERIFY2(m_screen, qPrintable(component.errorString()));
    m_window = std::make_unique<QQuickWindow>();
    m_window->resize(m_screen->size().toSize());
    m_screen->setParentItem(m_window->contentItem());
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    QTRY_VERIFY_WITH_TIMEOUT(m_screen->findChild<QObject *>()->property("connected").toBool(), patienceMs);
}

void NewcomerTest::cleanupTestCase()
{
    m_screen.reset();
    m_window.reset();
    m_thread.run([this] { m_engine.reset(); });
    QCOMPARE(m_log->warnings().join(QLatin1Char('\n')), QString());
}

Items NewcomerTest::items() const
{
    Items all;
    collect(m_screen.get(), all);
    return all;
}

// The first item whose text begins with this one.
QQuickItem *NewcomerTest::withText(const QString &text) const
{
    const Items all = items();
    for (QQuickItem *item : all) {
        if (item->property("text").toString().startsWith(text))
            return item;
    }
    return nullptr;
}

// The master fader, then those of the equaliser.
Items NewcomerTest::sliders() const
{
    Items found;
    const Items all = items();
    for (QQuickItem *item : all) {
        if (item->inherits("QQuickSlider"))
            found.append(item);
    }
    return found;
}

void NewcomerTest::move(QQuickItem *slider, double value)
{
    slider->setProperty("value", value);
    QMetaObject::invokeMethod(slider, "moved");
}

void NewcomerTest::click(QQuickItem *item)
{
    const QPointF middle = item->mapToScene(QPointF(item->width() / 2, item->height() / 2));
    QTest::mouseClick(m_window.get(), Qt::LeftButton, Qt::NoModifier, middle.toPoint());
}

void NewcomerTest::isShort()
{
    QFile file(source);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().count('\n') < 120);
}

void NewcomerTest::padsShowHits()
{
    for (const char *name : {"Kick", "Snare", "Tom 1", "Tom 2", "Tom 3", "Tom 4", "Ride", "Hi-hat", "Crash 1",
                             "Crash 2", "Aux 1", "Aux 2", "Aux 3", "Aux 4"})
        QVERIFY2(shows(QLatin1String(name)), name);
    onEngine([](SoundEngine &engine) {
        engine.strike(snareHead, 101);
        engine.strike(53, 99);
    });
    QTRY_VERIFY_WITH_TIMEOUT(shows(QStringLiteral("Head 101")) && shows(QStringLiteral("Bell 99")),
                             patienceMs);
}

void NewcomerTest::metersPedalAndTempoAreShown()
{
    onEngine([](SoundEngine &engine) {
        SoundEngine::OutputLevels levels{};
        levels[0] = 35;
        engine.setOutputLevels(levels);
        engine.moveHiHat(77);
        engine.sendTempo(133);
    });
    QTRY_VERIFY_WITH_TIMEOUT(shows(QStringLiteral("Tempo 133")), patienceMs);
    const auto bars = [this] {
        QVector<double> values;
        const Items all = items();
        for (const QQuickItem *item : all) {
            if (item->inherits("QQuickProgressBar"))
                values.append(item->property("value").toDouble());
        }
        return values;
    };
    // The pedal, the master output, and the upload.
    QTRY_COMPARE_WITH_TIMEOUT(bars(), (QVector<double>{77, 0.5, 0, 0}), patienceMs);
    QVERIFY(shows(QStringLiteral("Connected, ")));
}

void NewcomerTest::versionsAreShown()
{
    QTRY_VERIFY_WITH_TIMEOUT(shows(QStringLiteral("Sound bank: V 2.07\nTrigger bank: V 31\n")), patienceMs);
}

void NewcomerTest::masterFader()
{
    QCOMPARE(parameter(0x38, 0x07), -1);
    move(sliders().at(0), 64);
    QTRY_COMPARE_WITH_TIMEOUT(parameter(0x38, 0x07), 64, patienceMs);
}

void NewcomerTest::tapSetsTheTempo()
{
    QQuickItem *tap = withText(QStringLiteral("Tap"));
    QElapsedTimer sinceTap;
    sinceTap.start();
    click(tap);
    QTRY_COMPARE_WITH_TIMEOUT(parameter(0x37, 0x6A), 0, patienceMs);
    QCOMPARE(parameter(0x37, 0x64), -1);
    // The shortest time between the two taps: 200 beats per minute. A slow machine takes longer.
    QTest::qWait(300);
    click(tap);
    const double longest = double(sinceTap.elapsed());
    QTRY_VERIFY_WITH_TIMEOUT(parameter(0x37, 0x64) >= 0, patienceMs);
    int tempo = 0;
    onEngine([&](SoundEngine &engine) { tempo = engine.tempo(); });
    QVERIFY2(tempo <= 201 && tempo >= 60000 / longest - 1, qPrintable(QString::number(tempo)));
}

void NewcomerTest::equalizerOfEachPad()
{
    QVERIFY(shows(QStringLiteral("Equaliser of Snare")));
    const QString low = QStringLiteral("Low: ");
    move(sliders().at(1), -3);
    QCOMPARE(withText(low)->property("text").toString(), QStringLiteral("Low: -3 dB"));
    click(withText(QStringLiteral("Tom 1")));
    QVERIFY(shows(QStringLiteral("Equaliser of Tom 1")));
    QCOMPARE(withText(low)->property("text").toString(), QStringLiteral("Low: 0 dB"));
    QCOMPARE(sliders().at(1)->property("value").toInt(), 0);
    move(sliders().at(1), 7);
    click(withText(QStringLiteral("Snare")));
    QCOMPARE(sliders().at(1)->property("value").toInt(), -3);
    click(withText(QStringLiteral("On")));
    // 21 is the low gain, 20 the switch; the low byte is the note of the pad.
    QTRY_VERIFY_WITH_TIMEOUT(parameter(0x21, tomHead) >= 0, patienceMs);
    QTRY_VERIFY_WITH_TIMEOUT(parameter(0x21, snareHead) >= 0, patienceMs);
    QVERIFY(parameter(0x21, snareHead) < parameter(0x21, tomHead));
    QTRY_COMPARE_WITH_TIMEOUT(parameter(0x20, snareHead), 1, patienceMs);
}

void NewcomerTest::uploads()
{
    QFile bank(m_folder.filePath(QStringLiteral("bank.bin")));
    QVERIFY(bank.open(QIODevice::WriteOnly) && bank.write(QByteArray(50000, 'b')) == 50000);
    bank.close();
    QQuickItem *path = nullptr;
    const Items all = items();
    for (QQuickItem *item : all) {
        if (item->inherits("QQuickTextField"))
            path = item;
    }
    QVERIFY(path);
    path->setProperty("text", bank.fileName());
    click(withText(QStringLiteral("Send")));
    QTRY_VERIFY_WITH_TIMEOUT(shows(QStringLiteral("The engine has the file.")), patienceMs);
    QVector<SoundEngine::ReceivedFile> files;
    onEngine([&](SoundEngine &engine) { files = engine.receivedFiles(); });
    QCOMPARE(files.size(), 1);
    QCOMPARE(files.first().outcome, Outcome::Whole);
    QCOMPARE(files.first().data, QByteArray(50000, 'b'));

    path->setProperty("text", m_folder.filePath(QStringLiteral("missing.bin")));
}

void NewcomerTest::missingFileIsReported()
{
    click(withText(QStringLiteral("Send")));
    QTRY_VERIFY_WITH_TIMEOUT(shows(QStringLiteral("There is no file ")), patienceMs);
}

int main(int argc, char *argv[])
{
    QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
    QGuiApplication application(argc, argv);
    NewcomerTest test;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&test, argc, argv);
}
#include "tst_newcomer.moc"

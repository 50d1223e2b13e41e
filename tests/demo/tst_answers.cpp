// The pages for set-up, triggers, routing, programs and service, on top of the simulated engine: what a touch
// sends, and how the screen shows what the engine or the module answers.

#include "shellscreen.h"

#include "simulator/soundengine.h"
#include "support/patience.h"
#include "support/privatehome.h"
#include "support/testprogram.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QTest>

using namespace testsupport;

namespace {

const QString catalogueFolder = QStringLiteral("/home/.local/share/E-Drum");

// The reason why there is no private /home; empty if there is one.
QString &refusal()
{
    static QString text;
    return text;
}

// The part of a control that takes touches.
QQuickItem *touchedPart(QQuickItem *control)
{
    if (!control || control->inherits("QQuickMouseArea") || control->inherits("QQuickAbstractButton"))
        return control;
    const QList<QQuickItem *> children = control->childItems();
    for (QQuickItem *child : children) {
        if (QQuickItem *found = touchedPart(child))
            return found;
    }
    return nullptr;
}

// The visible texts below an item.
QStringList textsOf(QQuickItem *root)
{
    QStringList texts;
    if (!root->isVisible())
        return texts;
    if (root->inherits("QQuickText"))
        texts += root->property("text").toString();
    const QList<QQuickItem *> children = root->childItems();
    for (QQuickItem *child : children)
        texts += textsOf(child);
    return texts;
}

QQuickItem *buttonWithText(QQuickItem *root, const QString &text)
{
    if (root->inherits("QQuickAbstractButton") && root->property("text").toString() == text)
        return root;
    const QList<QQuickItem *> children = root->childItems();
    for (QQuickItem *child : children) {
        if (QQuickItem *found = buttonWithText(child, text))
            return found;
    }
    return nullptr;
}

bool writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

} // namespace

class AnswersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void touchSendsParameter_data();
    void touchSendsParameter();
    void touchSendsMessage_data();
    void touchSendsMessage();
    void dangerousButtonMustBeHeld_data();
    void dangerousButtonMustBeHeld();
    void reportIsShown_data();
    void reportIsShown();
    void wrongBytesAreNotSent_data();
    void wrongBytesAreNotSent();
    void bluetoothFilesAreChecked();
    void catalogueIsShown_data();
    void catalogueIsShown();
    void catalogueIsReplaced_data();
    void catalogueIsReplaced();

private:
    QQuickItem *control(const QString &page, const QString &name);
    void touchControl(const QString &page, const QString &name);
    bool shows(const QString &page, const QString &text);
    QStringList receivedUntilFence();

    SoundEngine m_engine;
    ShellScreen m_screen;
    QStringList m_received;
    uchar m_fence = 0;
};

void AnswersTest::initTestCase()
{
    QVERIFY2(m_engine.listen(QHostAddress(QString::fromLatin1(testsupport::engineAddress))),
             qPrintable(m_engine.errorString()));
    connect(&m_engine, &SoundEngine::messageReceived, this,
            [this](const QString &line) { m_received += line; });
    const QString problem = m_screen.load(QSize(1280, 800));
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
    QTRY_VERIFY_WITH_TIMEOUT(m_engine.knowsModule(), patienceMs);
}

// Name parts are separated by slashes. Marks the test as failed if the control is not on the page.
QQuickItem *AnswersTest::control(const QString &page, const QString &name)
{
    QQuickItem *item = m_screen.open(page);
    const QStringList parts = name.split(QLatin1Char('/'));
    for (const QString &part : parts)
        item = item ? ShellScreen::itemNamed(item, part) : nullptr;
    if (!item)
        QTest::qFail(qPrintable(QStringLiteral("%1 is not on page %2").arg(name, page)), __FILE__, __LINE__);
    return touchedPart(item);
}

void AnswersTest::touchControl(const QString &page, const QString &name)
{
    if (QQuickItem *item = control(page, name))
        ShellScreen::touch(item);
}

bool AnswersTest::shows(const QString &page, const QString &text)
{
    return textsOf(m_screen.open(page)).contains(text);
}

// The messages up to now, without the screen's own requests. A parameter that the screen does not use marks
// the end.
QStringList AnswersTest::receivedUntilFence()
{
    m_fence = uchar(m_fence % 127 + 1);
    QMetaObject::invokeMethod(m_screen.module(), "sendDirectNrpn", Q_ARG(uchar, 0x7A), Q_ARG(uchar, 0x7B),
                              Q_ARG(uchar, m_fence));
    if (!QTest::qWaitFor([this] { return m_engine.parameter(0x7A, 0x7B) == m_fence; }, patienceMs)) {
        QTest::qFail("the engine receives nothing", __FILE__, __LINE__);
        return {};
    }
    QStringList all = m_received;
    all.removeLast();
    return all.filter(QRegularExpression(QStringLiteral("^(?!.*request)")));
}

void AnswersTest::touchSendsParameter_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("high");
    QTest::addColumn<int>("low");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("valueLow");

    const auto row = [](const char *page, const char *name, int high, int low, int value, int valueLow = -1) {
        QTest::newRow(name) << QString::fromLatin1(page) << QString::fromLatin1(name) << high << low << value
                            << valueLow;
    };
    row("setup", "setMidiChannel/more", 0x37, 0x20, 11);
    row("setup", "setLocalControl/more", 0x37, 0x21, 2);
    row("setup", "setMidiInput/more", 0x37, 0x22, 2);
    row("setup", "setUsbMidi/more", 0x37, 0x23, 2);
    row("setup", "setHiHatPedalChannel/more", 0x37, 0x24, 11);
    row("setup", "setSnareChannel/more", 0x37, 0x25, 11);
    row("setup", "setRideChannel/more", 0x37, 0x26, 11);
    row("setup", "setTomAuxChannel/more", 0x37, 0x27, 11);
    row("setup", "setKitVolumeChannel/more", 0x37, 0x28, 11);
    row("setup", "setBluetoothSwitch", 0x37, 0x41, 1);
    row("setup", "setBluetoothEnable", 0x37, 0x41, 64);
    row("setup", "setAutoOff/more", 0x37, 0x42, 31);
    row("setup", "setFixedHiHat", 0x37, 0x03, 1);
    row("trigger", "sendTriggerTriggerType/more", 0x49, 0x00, 1);
    row("trigger", "sendTriggerBankPreset/more", 0x40, 0x00, 1);
    row("trigger", "sendTriggerPositionalSensing", 0x4A, 0x00, 1);
    row("trigger", "transferEnd", 0x4F, 0x00, 0);
    row("routing", "setPlaybackRouting-high/more", 0x37, 0x0F, 1, 0);
    row("routing", "setMetronomeClickRouting-low/more", 0x0F, 0x01, 0, 1);
    row("routing", "setInstReverbRouting-high/more", 0x02, 0x0F, 1, 0);
    row("routing", "setRoomReverbRouting-high/more", 0x03, 0x0F, 1, 0);
    row("routing", "setMultiFxRouting-low/more", 0x04, 0x0F, 0, 1);
    row("routing", "setPadMixerMultiFXDirect-low/more", 0x0F, 38, 0, 1);
    row("padsound", "setPadMidiNote/more", 0x0A, 38, 39);
    row("service", "nrpn-send", 0x37, 0x40, 100);
}

void AnswersTest::touchSendsParameter()
{
    QFETCH(const QString, page);
    QFETCH(const QString, name);
    QFETCH(const int, high);
    QFETCH(const int, low);
    QFETCH(const int, value);
    QFETCH(const int, valueLow);
    touchControl(page, name);
    QTRY_COMPARE_WITH_TIMEOUT(m_engine.parameter(quint8(high), quint8(low)), value, patienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(m_engine.parameterLow(quint8(high), quint8(low)), valueLow, patienceMs);
}

void AnswersTest::touchSendsMessage_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("message");

    QTest::newRow("program") << QStringLiteral("programs") << QStringLiteral("setProgramNumber/more")
                             << QStringLiteral("program change 1");
    QTest::newRow("LED") << QStringLiteral("setup") << QStringLiteral("setLedEnabled")
                         << QStringLiteral("LED 0 on");
    QTest::newRow("bluetooth name") << QStringLiteral("setup") << QStringLiteral("nameBluetooth")
                                    << QStringLiteral("bluetooth name \"Zelta\"");
    QTest::newRow("SysEx") << QStringLiteral("service") << QStringLiteral("sendSysEx")
                           << QStringLiteral("sysex F0 7E 7F 06 01 F7");
    QTest::newRow("straight curve") << QStringLiteral("trigger") << QStringLiteral("straighten")
                                    << QStringLiteral("trigger curve 0: 0 16 32 48 64 80 96 112 127");
}

void AnswersTest::touchSendsMessage()
{
    QFETCH(const QString, page);
    QFETCH(const QString, name);
    QFETCH(const QString, message);
    m_received.clear();
    touchControl(page, name);
    QCOMPARE(receivedUntilFence(), QStringList{message});
}

void AnswersTest::dangerousButtonMustBeHeld_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("message");
    QTest::newRow("power off") << QStringLiteral("setup") << QStringLiteral("Hold to switch the module off")
                               << QStringLiteral("power off");
    QTest::newRow("deep erase") << QStringLiteral("update") << QStringLiteral("Hold to erase deeply")
                                << QStringLiteral("deep erase 120");
    QTest::newRow("one slot") << QStringLiteral("update") << QStringLiteral("Hold to delete slot 1")
                              << QStringLiteral("delete sound bank slot 1");
    QTest::newRow("all slots") << QStringLiteral("update") << QStringLiteral("Hold to delete all slots")
                               << QStringLiteral("delete all slots 126");
}

void AnswersTest::dangerousButtonMustBeHeld()
{
    QFETCH(const QString, page);
    QFETCH(const QString, text);
    QFETCH(const QString, message);
    QQuickItem *button = buttonWithText(m_screen.open(page), text);
    QVERIFY(button);
    m_received.clear();
    ShellScreen::touch(button);
    QCOMPARE(receivedUntilFence(), QStringList());

    m_received.clear();
    ShellScreen::sendMouse(button, QEvent::MouseButtonPress, Qt::LeftButton);
    QTRY_VERIFY_WITH_TIMEOUT(m_received.contains(message), patienceMs);
    ShellScreen::sendMouse(button, QEvent::MouseButtonRelease, Qt::NoButton);
    m_received.removeAll(message);
    QCOMPARE(receivedUntilFence(), QStringList());
}

void AnswersTest::reportIsShown_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<int>("report");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("program") << QStringLiteral("programs") << 0
                             << QStringList{QStringLiteral("12"),
                                            QStringLiteral("last chosen at the engine: 12")};
    QTest::newRow("SysEx") << QStringLiteral("service") << 1
                           << QStringList{QStringLiteral("04f07e7f070602f7")};
    QTest::newRow("test command") << QStringLiteral("service") << 2
                                  << QStringList{QStringLiteral("01  02  7f")};
    QTest::newRow("plain event") << QStringLiteral("service") << 3
                                 << QStringList{QStringLiteral("event AB"), QStringLiteral("513  2")};
    QTest::newRow("pedal") << QStringLiteral("trigger") << 4 << QStringList{QStringLiteral("777")};
    QTest::newRow("bank version") << QStringLiteral("service") << 5
                                  << QStringList{QStringLiteral("V 3.07"), QStringLiteral("bank version")};
}

void AnswersTest::reportIsShown()
{
    QFETCH(const QString, page);
    QFETCH(const int, report);
    QFETCH(const QStringList, texts);
    QTRY_VERIFY_WITH_TIMEOUT(m_engine.knowsModule(), patienceMs);
    for (const QString &text : texts)
        QVERIFY2(!shows(page, text), qPrintable(text));
    switch (report) {
    case 0: QVERIFY(m_engine.sendProgram(12)); break;
    case 1: QVERIFY(m_engine.sendSysEx(QByteArray::fromHex("f07e7f0602f7"))); break;
    case 2: QVERIFY(m_engine.sendTestCommand(0x01, 0x02, 0x7F)); break;
    case 3: QVERIFY(m_engine.sendEvent(0x4142, 513, 2)); break;
    case 4:
        m_engine.setHiHatRaw(777);
        touchControl(page, QStringLiteral("readPedal"));
        break;
    case 5:
        m_engine.setVersion(SoundEngine::Version::SoundBank, 3, 7);
        touchControl(page, QStringLiteral("askSoundBank"));
        break;
    }
    for (const QString &text : texts)
        QTRY_VERIFY2_WITH_TIMEOUT(
            shows(page, text), qPrintable(textsOf(m_screen.open(page)).join(QLatin1Char('|'))), patienceMs);
}

void AnswersTest::wrongBytesAreNotSent_data()
{
    QTest::addColumn<QString>("bytes");
    QTest::newRow("empty") << QString();
    QTest::newRow("words") << QStringLiteral("hello");
    QTest::newRow("three digits") << QStringLiteral("7E 100");
    QTest::newRow("negative") << QStringLiteral("-1");
}

void AnswersTest::wrongBytesAreNotSent()
{
    QFETCH(const QString, bytes);
    QQuickItem *box =
        ShellScreen::itemNamed(m_screen.open(QStringLiteral("service")), QStringLiteral("sysExBytes"));
    QVERIFY(box);
    box->setProperty("text", bytes);
    m_received.clear();
    touchControl(QStringLiteral("service"), QStringLiteral("sendSysEx"));
    QCOMPARE(receivedUntilFence(), QStringList());
}

void AnswersTest::bluetoothFilesAreChecked()
{
    const QString service = QStringLiteral("service");
    QQuickItem *box = ShellScreen::itemNamed(m_screen.open(service), QStringLiteral("bluetoothPaths"));
    QVERIFY(box);
    const QString first = m_screen.folder() + QStringLiteral("/bt.b00");
    const QString second = m_screen.folder() + QStringLiteral("/bt.b01");
    QVERIFY(writeFile(first, "0"));
    box->setProperty("text", QString(first + QStringLiteral(", ") + second));
    touchControl(service, QStringLiteral("files-check"));
    QVERIFY(shows(service, QStringLiteral("A file is missing (\u22121).")));
    QVERIFY(writeFile(second, "1"));
    touchControl(service, QStringLiteral("files-check"));
    QVERIFY(shows(service, QStringLiteral("Every file exists (0).")));
}

#define SKIP_WITHOUT_PRIVATE_HOME()                                                                          \
    if (!refusal().isEmpty())                                                                                \
    QSKIP(qPrintable(QStringLiteral("no private /home: ") + refusal()))

void AnswersTest::catalogueIsShown_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("text");

    const QString list = QStringLiteral("listCatalogue");
    const QString text = QStringLiteral("showCatalogue");
    const QByteArray nested("{\"banks\": [{\"name\": \"Rock\"}], \"count\": 1, \"none\": null}");
    QTest::newRow("sound banks listed")
        << 0 << nested << list << QStringLiteral("banks:\n    0:\n        name: Rock\ncount: 1\nnone: null");
    QTest::newRow("trigger banks listed")
        << 1 << QByteArray("{\"a\": true}") << list << QStringLiteral("a: true");
    QTest::newRow("not JSON") << 0 << QByteArray("hello") << list
                              << QStringLiteral("Nothing to list: there is no catalogue, or it is empty or "
                                                "not JSON.");
    QTest::newRow("sound banks as text") << 0 << QByteArray("hello") << text << QStringLiteral("hello");
    QTest::newRow("trigger banks as text") << 1 << QByteArray("{}") << text << QStringLiteral("{}");
    QTest::newRow("empty") << 1 << QByteArray() << text
                           << QStringLiteral("Nothing to show: the file cannot be read, or it is empty.");
}

void AnswersTest::catalogueIsShown()
{
    SKIP_WITHOUT_PRIVATE_HOME();
    QFETCH(const int, kind);
    QFETCH(const QByteArray, content);
    QFETCH(const QString, button);
    QFETCH(const QString, text);
    const QString programs = QStringLiteral("programs");
    QVERIFY(QDir().mkpath(catalogueFolder));
    const QString names[] = {QStringLiteral("/soundBank.json"), QStringLiteral("/triggerBank.json")};
    // The other catalogue has a content that must not appear.
    QVERIFY(writeFile(catalogueFolder + names[1 - kind], "{\"other\": 1}"));
    QVERIFY(writeFile(catalogueFolder + names[kind], content));
    touchControl(programs, QStringLiteral("catalogues/segment-%1").arg(kind));
    touchControl(programs, button);
    QVERIFY2(shows(programs, text), qPrintable(textsOf(m_screen.open(programs)).join(QLatin1Char('|'))));
}

void AnswersTest::catalogueIsReplaced_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("source");
    QTest::addColumn<bool>("folder");
    QTest::addColumn<QString>("text");
    QTest::newRow("sound banks") << 0 << true << true << QStringLiteral("Copied over the catalogue (0).");
    QTest::newRow("trigger banks") << 1 << true << true << QStringLiteral("Copied over the catalogue (0).");
    QTest::newRow("no source") << 0 << false << true << QStringLiteral("The file cannot be read (\u22121).");
    QTest::newRow("no folder") << 1 << true << false
                               << QStringLiteral("The catalogue cannot be opened for writing (\u22122).");
}

void AnswersTest::catalogueIsReplaced()
{
    SKIP_WITHOUT_PRIVATE_HOME();
    QFETCH(const int, kind);
    QFETCH(const bool, source);
    QFETCH(const bool, folder);
    QFETCH(const QString, text);
    const QString programs = QStringLiteral("programs");
    const QString path = m_screen.folder() + QStringLiteral("/new.json");
    const QString catalogue = catalogueFolder + (kind == 0 ? QStringLiteral("/soundBank.json")
                                                           : QStringLiteral("/triggerBank.json"));
    QDir(QStringLiteral("/home/.local")).removeRecursively();
    if (folder) {
        QVERIFY(QDir().mkpath(catalogueFolder));
        QVERIFY(writeFile(catalogue, "old"));
    }
    QVERIFY(writeFile(path, "new"));
    QQuickItem *page = m_screen.open(programs);
    QTRY_VERIFY_WITH_TIMEOUT(ShellScreen::itemNamed(page, QStringLiteral("file-new.json")), patienceMs);
    touchControl(programs, QStringLiteral("file-new.json"));
    if (!source)
        QVERIFY(QFile::remove(path));
    touchControl(programs, QStringLiteral("catalogues/segment-%1").arg(kind));

    QQuickItem *button = control(programs, QStringLiteral("replaceCatalogue"));
    QVERIFY(button);
    ShellScreen::touch(button);
    QVERIFY(!shows(programs, text));
    ShellScreen::sendMouse(button, QEvent::MouseButtonPress, Qt::LeftButton);
    QTRY_VERIFY_WITH_TIMEOUT(shows(programs, text), patienceMs);
    ShellScreen::sendMouse(button, QEvent::MouseButtonRelease, Qt::NoButton);
    QCOMPARE(contentOf(catalogue), QByteArray(!folder ? "unreadable" : source ? "new" : "old"));
    touchControl(programs, QStringLiteral("showCatalogue"));
}

int main(int argc, char **argv)
{
    // Before the first thread starts: a process with several threads cannot change its user namespace.
    refusal() = enterPrivateHome();
    QGuiApplication application(argc, argv);
    AnswersTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_answers.moc"

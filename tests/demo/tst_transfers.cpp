// The page that sends files, on top of the simulated engine: each kind arrives as that kind.

#include "shellscreen.h"

#include "simulator/soundengine.h"
#include "support/patience.h"
#include "support/testprogram.h"

#include <QFile>
#include <QGuiApplication>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>

using namespace testsupport;
using Outcome = SoundEngine::ReceivedFile::Outcome;

class TransfersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void kindIsSent_data();
    void kindIsSent();
    void pathThatIsNoneIsNotSent();

private:
    // Enters the path and touches the button. Returns false if that is not possible.
    bool send(const QString &path);
    QObject *transfers() const { return ShellScreen::objectOf(m_screen.shell(), "transfers"); }
    QString status() const { return transfers()->property("statusText").toString(); }

    SoundEngine m_engine;
    ShellScreen m_screen;
};

void TransfersTest::initTestCase()
{
    QVERIFY2(m_engine.listen(QHostAddress(QString::fromLatin1(testsupport::engineAddress))),
             qPrintable(m_engine.errorString()));
    const QString problem = m_screen.load(QSize(1280, 800));
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
    QVERIFY(transfers());
    QTRY_VERIFY_WITH_TIMEOUT(m_engine.knowsModule(), patienceMs);
}

bool TransfersTest::send(const QString &path)
{
    QQuickItem *page = m_screen.open(QStringLiteral("update"));
    QQuickItem *box = ShellScreen::itemNamed(page, QStringLiteral("path"));
    QQuickItem *button = ShellScreen::itemNamed(page, QStringLiteral("send"));
    if (!box || !button)
        return false;
    box->setProperty("text", path);
    if (!button->isEnabled())
        return false;
    ShellScreen::touch(button);
    return true;
}

void TransfersTest::kindIsSent_data()
{
    QTest::addColumn<QString>("kind"); // as the page shows it
    QTest::addColumn<QString>("content");
    QTest::addColumn<QString>("method");
    QTest::addColumn<int>("slot");
    QTest::addColumn<QByteArray>("header");
    const auto row = [](const char *kind, const char *content, const char *method, int slot = -1,
                        const QByteArray &header = {}) {
        QTest::newRow(kind) << QString::fromLatin1(kind) << QString::fromLatin1(content)
                            << QString::fromLatin1(method) << slot << header;
    };
    row("Sound bank", "SB", "sendSoundBank");
    row("Trigger bank", "TB", "sendTriggerBank");
    row("Bank to slot", "IS", "sendImportSoundBank", 1);
    row("Sample to slot", "IW", "sendImportWaveSample", 1);
    // The number of the file in its set.
    row("Bluetooth", "BF", "sendBtFw", 0);
    // Newer than the engine's answers.
    row("Trigger firmware", "TF", "sendTriggerFirmware", -1, QByteArray("TGFW\x05\x00\x01\x00", 8));
    // The last one, because the module then pauses for 20 s.
    row("Engine firmware", "FW", "sendZeltaFirmware", -1, "4810QN-abc1.05 - sound engine ");
}

void TransfersTest::kindIsSent()
{
    QFETCH(const QString, kind);
    QFETCH(const QString, content);
    QFETCH(const QString, method);
    QFETCH(const int, slot);
    QFETCH(const QByteArray, header);
    const QByteArray data = header + QByteArray(3000, 'd');
    QFile file(m_screen.folder() + QStringLiteral("/file.b00"));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(data) == data.size());
    file.close();

    QQuickItem *picker =
        ShellScreen::itemNamed(m_screen.open(QStringLiteral("update")), QStringLiteral("transferKind"));
    QVERIFY(picker);
    for (int i = 0; i < 7 && picker->property("text").toString() != kind; ++i)
        QMetaObject::invokeMethod(picker, "moved", Q_ARG(int, 1));
    QCOMPARE(picker->property("text").toString(), kind);

    QSignalSpy called(m_screen.device(), SIGNAL(called(QString, int)));
    const int before = m_engine.receivedFiles().size();
    QVERIFY(send(file.fileName()));
    QTRY_COMPARE_WITH_TIMEOUT(m_engine.receivedFiles().size(), before + 1, patienceMs);
    const SoundEngine::ReceivedFile &received = m_engine.receivedFiles().constLast();
    QCOMPARE(received.content, content);
    QCOMPARE(received.slot, slot);
    QCOMPARE(received.outcome, Outcome::Whole);
    QCOMPARE(received.data, data);
    QTRY_COMPARE_WITH_TIMEOUT(status(), kind + QStringLiteral(": The engine has the file."), patienceMs);
    const auto isMethod = [&method](const QList<QVariant> &call) {
        return call.first().toString() == method;
    };
    QCOMPARE(int(std::count_if(called.begin(), called.end(), isMethod)), 1);
}

void TransfersTest::pathThatIsNoneIsNotSent()
{
    QSignalSpy called(m_screen.device(), SIGNAL(called(QString, int)));
    QVERIFY(send(QStringLiteral("kit.bin")));
    QVERIFY2(status().contains(QStringLiteral("neither an absolute path nor a file URL")),
             qPrintable(status()));
    for (const QList<QVariant> &call : qAsConst(called))
        QVERIFY2(!call.first().toString().startsWith(QLatin1String("send")),
                 qPrintable(call.first().toString()));
}

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    TransfersTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_transfers.moc"

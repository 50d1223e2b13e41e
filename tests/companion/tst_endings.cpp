// Ends that no failure mode of the simulator produces: the file changes while it is sent, and the engine
// answers a query of the screen while the end is awaited. The module is the real one.

#include "failures/enginethread.h"
#include "simulator/wire.h"
#include "support/patience.h"
#include "support/testprogram.h"
#include "transfer/session.h"
#include "transfer/transferkinds.h"

#include <QFile>
#include <QFileInfo>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using testsupport::patienceMs;
using namespace simulated;

namespace {

// Long enough to change the file while it is sent, also on a busy machine.
constexpr int durationMs = 1000;

const char *enumeratorOf(const QByteArray &content)
{
    return content == "TF"   ? "TriggerFirmware"
           : content == "TB" ? "TriggerBank"
           : content == "IW" ? "WaveImport"
                             : "BluetoothFirmware";
}

TransferKind kindOf(const QByteArray &content)
{
    const QVector<TransferKind> kinds = quickKinds();
    for (const TransferKind &kind : kinds) {
        if (content == kind.content)
            return kind;
    }
    qFatal("no kind %s", content.constData());
}

} // namespace

class EndingsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void fileChanges_data();
    void fileChanges();
    void fileCannotBeReadAnyFurther_data();
    void fileCannotBeReadAnyFurther();
    void replyToAQueryWhileTheEndIsAwaited_data();
    void replyToAQueryWhileTheEndIsAwaited();

private:
    void send(const QByteArray &content, const QString &path);
    QString state() const { return m_screen->property("stateName").toString(); }
    QString reason() const { return m_screen->property("reasonName").toString(); }
    bool isOver() const { return m_screen->property("ends").toInt() > 0; }

    TestFiles m_files;
    EngineThread m_thread;
    std::unique_ptr<SoundEngine> m_engine;
    QQmlEngine m_qml;
    std::unique_ptr<QObject> m_screen;
};

void EndingsTest::initTestCase()
{
    m_qml.addImportPath(testsupport::qmlDir());
}

void EndingsTest::init()
{
    m_thread.run([this] {
        m_engine = std::make_unique<SoundEngine>();
        m_engine->setVersion(SoundEngine::Version::TriggerBoard, 1, 4);
        if (!m_engine->listen(QHostAddress(QString::fromLatin1(testsupport::engineAddress))))
            qFatal("%s", qPrintable(m_engine->errorString()));
    });
    QQmlComponent component(&m_qml,
                            QUrl::fromLocalFile(QStringLiteral(COMPANION_TEST_DIR "/TransferScreen.qml")));
    m_screen.reset(component.create());
    QVERIFY2(m_screen, qPrintable(component.errorString()));
}

void EndingsTest::cleanup()
{
    m_screen.reset();
    m_thread.run([this] { m_engine.reset(); });
}

void EndingsTest::send(const QByteArray &content, const QString &path)
{
    QMetaObject::invokeMethod(m_screen.get(), "send",
                              Q_ARG(QVariant, QString::fromLatin1(enumeratorOf(content))),
                              Q_ARG(QVariant, path));
}

void EndingsTest::fileChanges_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<double>("factor");
    // A bluetooth file has so many packets that a busy engine does not answer in time.
    for (const char *content : {"TF", "TB", "IW"}) {
        QTest::addRow("%s becomes shorter", enumeratorOf(content)) << QByteArray(content) << 0.5;
        QTest::addRow("%s becomes longer", enumeratorOf(content)) << QByteArray(content) << 1.1;
    }
}

void EndingsTest::fileChanges()
{
    QFETCH(const QByteArray, content);
    QFETCH(const double, factor);
    const TransferKind kind = kindOf(content);
    const int size = kind.packetsFor(durationMs) * kind.chunkBytes;
    const QString path =
        m_files.write(QStringLiteral("%1-%2/%3").arg(QLatin1String(content)).arg(factor).arg(kind.fileName),
                      kind.file(size));
    m_thread.run([&] {
        QObject::connect(m_engine.get(), &SoundEngine::datagramReceived, m_engine.get(),
                         [path, size, factor, packets = 0](const QByteArray &datagram) mutable {
                             // During the module's pause after ten packets, so that it does not read.
                             if (wordAt(datagram, 0) == simulated::Tag::TransferData && ++packets == 40)
                                 QFile::resize(path, qint64(size * factor));
                         });
    });
    send(content, path);
    QTRY_VERIFY_WITH_TIMEOUT(isOver(), patienceMs);
    QCOMPARE(QFileInfo(path).size(), qint64(size * factor));
    QCOMPARE(reason(), QStringLiteral("Damaged"));
    QCOMPARE(state(), QStringLiteral("Failed"));
}

void EndingsTest::fileCannotBeReadAnyFurther_data()
{
    QTest::addColumn<QByteArray>("content");
    for (const char *content : {"TB", "IW", "BF"})
        QTest::newRow(enumeratorOf(content)) << QByteArray(content);
}

// A file of the kernel is a regular file that ends before its size.
void EndingsTest::fileCannotBeReadAnyFurther()
{
    QFETCH(const QByteArray, content);
    const QString path = QStringLiteral("/sys/devices/system/cpu/online");
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.readAll().size() >= file.size())
        QSKIP("there is no file that ends before its size");
    send(content, path);
    QTRY_VERIFY_WITH_TIMEOUT(isOver(), patienceMs);
    QCOMPARE(reason(), QStringLiteral("Aborted"));
    QCOMPARE(state(), QStringLiteral("Failed"));
}

void EndingsTest::replyToAQueryWhileTheEndIsAwaited_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("completion");
    QTest::addColumn<int>("status"); // of the acknowledgement that follows, -1 for none
    QTest::addColumn<QString>("reason");
    const struct
    {
        const char *content;
        const char *completion;
    } kinds[] = {{"TF", SIGNAL(intTriggerFirmwareUpdateFinished())},
                 {"TB", SIGNAL(triggerbankTransferComplete(ushort))},
                 {"IW", SIGNAL(waveTransferComplete(int, ushort))},
                 {"BF", SIGNAL(bluetoothTransferComplete(ushort))}};
    for (const auto &kind : kinds) {
        const auto row = [&kind](const char *name, int status, const char *reason) {
            QTest::addRow("%s, %s", enumeratorOf(kind.content), name)
                << QByteArray(kind.content) << QByteArray(kind.completion) << status
                << QString::fromLatin1(reason);
        };
        row("then acknowledged", 0, "NoReason");
        row("then an error", 1, "Damaged");
        // The time that the module would have waited passes first.
        if (qstrcmp(kind.content, "IW") == 0)
            row("then nothing", -1, "NotAcknowledged");
    }
}

// The module takes the reply for the acknowledgement, and reports success.
void EndingsTest::replyToAQueryWhileTheEndIsAwaited()
{
    QFETCH(const QByteArray, content);
    QFETCH(const QByteArray, completion);
    QFETCH(const int, status);
    QFETCH(const QString, reason);
    m_thread.run([this] {
        m_engine->setFailure(QStringLiteral("no-end-ack"));
        QObject::connect(m_engine.get(), &SoundEngine::datagramReceived, m_engine.get(),
                         [this](const QByteArray &datagram) {
                             if (wordAt(datagram, 0) == simulated::Tag::TransferEnd)
                                 m_engine->sendEvent(simulated::Tag::SoundBankVersion, 1, 0);
                         });
    });
    QSignalSpy completed(m_screen->property("zelta").value<QObject *>(), completion.constData());
    QVERIFY(completed.isValid());
    const TransferKind kind = kindOf(content);
    send(content, m_files.write(QStringLiteral("whole/") + kind.fileName, kind.file(kind.chunkBytes * 30)));
    QTRY_COMPARE_WITH_TIMEOUT(completed.count(), 1, patienceMs);
    QVERIFY(!isOver());
    if (status >= 0)
        m_thread.run([&] { m_engine->sendEvent(simulated::Tag::TransferEnd, 0, quint16(status)); });
    QTRY_VERIFY_WITH_TIMEOUT(isOver(), patienceMs);
    QCOMPARE(this->reason(), reason);
    QCOMPARE(state(),
             reason == QLatin1String("NoReason") ? QStringLiteral("Done") : QStringLiteral("Failed"));
}

QTEST_GUILESS_MAIN(EndingsTest)
#include "tst_endings.moc"

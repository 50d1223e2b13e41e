#include "filestream.h"
#include "session.h"
#include "transferkinds.h"

#include "control/qconnectqmlplugin.h"
#include "support/logcatcher.h"

#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

// Files that cannot be sent, and files that change while they are sent.

namespace {

// Enough time for a file to be changed while it is sent, on a busy machine too.
constexpr int durationMs = 1000;

} // namespace

class tst_TransferFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void unreadable_data();
    void unreadable();
    void withoutPermission();
    void shrinking();
    void growing();
    void large_data();
    void large();
    void deleted();
    void replaced();
    void names_data();
    void names();
    void bluetoothFiles_data();
    void bluetoothFiles();

private:
    TestFiles m_files;
};

void tst_TransferFiles::initTestCase()
{
    QVERIFY(QDir().mkpath(m_files.path(QStringLiteral("folder"))));
    QCOMPARE(::mkfifo(QFile::encodeName(m_files.path(QStringLiteral("pipe"))).constData(), 0600), 0);
    QVERIFY(
        QFile::link(m_files.path(QStringLiteral("nowhere")), m_files.path(QStringLiteral("broken link"))));
}

void tst_TransferFiles::unreadable_data()
{
    QTest::addColumn<QString>("path");

    QTest::newRow("empty path") << QString();
    QTest::newRow("missing") << m_files.path(QStringLiteral("missing"));
    QTest::newRow("missing folder") << m_files.path(QStringLiteral("missing/file"));
    QTest::newRow("folder") << m_files.path(QStringLiteral("folder"));
    QTest::newRow("folder with a slash") << m_files.path(QStringLiteral("folder/"));
    QTest::newRow("link to nothing") << m_files.path(QStringLiteral("broken link"));
    // Nobody writes to it; opening it must not wait for somebody who does.
    QTest::newRow("pipe") << m_files.path(QStringLiteral("pipe"));
    QTest::newRow("too long a name") << m_files.path(QString(5000, QLatin1Char('x')));
    QTest::newRow("zero character") << m_files.path(QStringLiteral("a")) + QChar(0) + QLatin1Char('b');
}

// No packet and no signal, whatever the kind, and the next task runs.
void tst_TransferFiles::unreadable()
{
    QFETCH(const QString, path);

    testsupport::LogCatcher log;
    Session session;
    QVector<TransferKind> kinds = quickKinds();
    kinds.append(zeltaFirmwareKind());
    for (const TransferKind &kind : qAsConst(kinds))
        kind.send(session.plugin(), path);
    QCOMPARE(session.differenceWhenSettled({}), QString());
    QCOMPARE(session.peer().received(), QVector<QByteArray>{QByteArray("HL\0\0", 4)});
    QCOMPARE(log.warnings(), QStringList());
}

void tst_TransferFiles::withoutPermission()
{
    const QString path = m_files.write(QStringLiteral("private.bin"), noise(100));
    QVERIFY(QFile::setPermissions(path, QFile::Permissions()));
    Session session;
    // The superuser may read everything, so this is tried as somebody else.
    const bool superuser = ::geteuid() == 0;
    if (superuser)
        QCOMPARE(::seteuid(65534), 0);
    session.plugin().sendTriggerBank(path);
    session.plugin().sendImportWaveSample(path, 1);
    const QString difference = session.differenceWhenSettled({});
    if (superuser)
        QCOMPARE(::seteuid(0), 0);
    QCOMPARE(difference, QString());
    QCOMPARE(session.peer().received(), QVector<QByteArray>{QByteArray("HL\0\0", 4)});
}

// The data ends before its announced end: an empty packet, no end packet; imports tell, the others do not.
void tst_TransferFiles::shrinking()
{
    const auto kinds = quickKinds();
    for (const TransferKind &kind : kinds) {
        const int packetCount = kind.packetsFor(durationMs);
        Session session;
        answerOldVersions(session.peer());
        const QByteArray content = kind.file(kind.chunkBytes * packetCount);
        const QString path = m_files.write(QLatin1String(kind.content) + kind.fileName, content);
        kind.send(session.plugin(), path);
        QVERIFY(QTest::qWaitFor([&] { return session.peer().lastDataNumber() >= 30; }, patienceMs));
        const int shrunk = kind.chunkBytes * 10;
        QVERIFY(QFile::resize(path, shrunk));
        QVERIFY2(session.peer().waitUntilSilent(), kind.name);

        const FileStream stream(session.peer().received(), kind.content);
        const int packets = stream.numbers.size();
        QVERIFY2(stream.isPlain(packets) && packets < packetCount, kind.name);
        QVERIFY(stream.ends.isEmpty());
        QCOMPARE(stream.chunks.last(), QByteArray());
        QVERIFY(content.startsWith(stream.content(kind.chunkBytes)));
        QStringList expected = kind.before + kind.progressed(packets);
        if (kind.passesStatusOn)
            expected += kind.completed(0);
        QCOMPARE(session.differenceWhenSettled(expected), QString());
    }
}

// What is added while the file is sent is sent as well; the engine knows the announced size and decides.
void tst_TransferFiles::growing()
{
    const auto kinds = quickKinds();
    for (const TransferKind &kind : kinds) {
        const int packetCount = kind.packetsFor(durationMs);
        Session session;
        answerOldVersions(session.peer());
        QByteArray content = kind.file(kind.chunkBytes * packetCount);
        const QString path = m_files.write(QLatin1String(kind.content) + kind.fileName, content);
        kind.send(session.plugin(), path);
        QVERIFY(QTest::qWaitFor([&] { return session.peer().lastDataNumber() >= 30; }, patienceMs));
        const QByteArray more = noise(kind.chunkBytes * 3, 9);
        QFile file(path);
        QVERIFY(file.open(QIODevice::Append));
        QCOMPARE(file.write(more), qint64(more.size()));
        file.close();
        content += more;

        QVERIFY2(session.settle(), kind.name);
        const FileStream stream(session.peer().received(), kind.content);
        QCOMPARE(stream.starts.first().mid(4, 4).toHex().toInt(nullptr, 16), kind.chunkBytes * packetCount);
        QVERIFY2(stream.isPlain(packetCount + 3), kind.name);
        QVERIFY(stream.content(kind.chunkBytes) == content);
        QCOMPARE(stream.ends.size(), 1);
        QCOMPARE(session.difference(kind.before + kind.progressed(packetCount + 3) + kind.completed(0) +
                                    QStringList{Session::settled()}),
                 QString());
    }
}

void tst_TransferFiles::large_data()
{
    QTest::addColumn<qint64>("size");
    QTest::addColumn<QByteArray>("announced");

    QTest::newRow("2 GiB less 1") << Q_INT64_C(0x7FFFFFFF) << QByteArray("7fffffff");
    QTest::newRow("2 GiB") << Q_INT64_C(0x80000000) << QByteArray("80000000");
    QTest::newRow("3 GiB") << Q_INT64_C(0xC0000000) << QByteArray("c0000000");
    QTest::newRow("4 GiB less 1") << Q_INT64_C(0xFFFFFFFF) << QByteArray("ffffffff");
    QTest::newRow("4 GiB and 5, of which the low 32 bits")
        << Q_INT64_C(0x100000005) << QByteArray("00000005");
}

// They are announced with their size and their data begins, on 32-bit systems too.
void tst_TransferFiles::large()
{
    QFETCH(const qint64, size);
    QFETCH(const QByteArray, announced);

    const QString path = m_files.write(QStringLiteral("large.bin"), noise(1024));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    if (!file.resize(size))
        QSKIP(qPrintable(QStringLiteral("no file of that size: ") + file.errorString()));

    Session session;
    session.plugin().sendTriggerBank(path);
    QVERIFY(QTest::qWaitFor([&] { return session.peer().lastDataNumber() >= 1; }, patienceMs));
    session.destroyPlugin();
    const auto received = session.peer().received();
    QVERIFY(received.first().startsWith("DS"));
    QCOMPARE(received.first().mid(4).toHex(), announced);
    QVERIFY(received.at(1).contains(noise(1024).left(512)));
    QVERIFY(received.at(2).contains(noise(1024).mid(512)));
}

// An open file stays readable until it is closed.
void tst_TransferFiles::deleted()
{
    const auto kinds = quickKinds();
    for (const TransferKind &kind : kinds) {
        const int packetCount = kind.packetsFor(durationMs);
        Session session;
        answerOldVersions(session.peer());
        const QByteArray content = kind.file(kind.chunkBytes * packetCount);
        const QString path = m_files.write(QStringLiteral("deleted-") + kind.fileName, content);
        kind.send(session.plugin(), path);
        QVERIFY(QTest::qWaitFor([&] { return session.peer().lastDataNumber() >= 30; }, patienceMs));
        QVERIFY(QFile::remove(path));
        kind.send(session.plugin(), path);
        const QStringList expected = kind.before + kind.progressed(packetCount) + kind.completed(0);
        QCOMPARE(session.differenceWhenSettled(expected), QString());
        QVERIFY2(FileStream(session.peer().received(), kind.content).content(kind.chunkBytes) == content,
                 kind.name);
    }
}

void tst_TransferFiles::replaced()
{
    const TransferKind kind = quickKinds().at(2);
    const int packetCount = kind.packetsFor(durationMs);
    Session session;
    const QByteArray content = kind.file(kind.chunkBytes * packetCount);
    const QString path = m_files.write(kind.fileName, content);
    kind.send(session.plugin(), path);
    QVERIFY(QTest::qWaitFor([&] { return session.peer().lastDataNumber() >= 30; }, patienceMs));
    QVERIFY(QFile::remove(path));
    m_files.write(kind.fileName, noise(100, 7));
    QCOMPARE(session.differenceWhenSettled(kind.progressed(packetCount) + kind.completed(0)), QString());
    QVERIFY(FileStream(session.peer().received(), kind.content).content(kind.chunkBytes) == content);
}

void tst_TransferFiles::names_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<QString>("bankName");
    QTest::addColumn<int>("slot");
    QTest::addColumn<QByteArray>("sampleFields");
    QTest::addColumn<QByteArray>("bankFields");

    QTest::newRow("plain") << QStringLiteral("a.wav") << QStringLiteral("Bank") << 0
                           << QByteArray("0000612e77617600") << QByteArray("000042616e6b00");
    QTest::newRow("beyond ASCII") << QStringLiteral("\u00e4.wav") << QStringLiteral("\u266a") << 1
                                  << QByteArray("0001c3a42e77617600") << QByteArray("0001e299aa00");
    QTest::newRow("folders and doubled slashes")
        << QStringLiteral("one/two//a.wav") << QStringLiteral("one/two") << 2
        << QByteArray("0002612e77617600") << QByteArray("00026f6e652f74776f00");
    QTest::newRow("no bank name, largest slot")
        << QStringLiteral("a") << QString() << 0xFFFF << QByteArray("ffff6100") << QByteArray("ffff00");
    QTest::newRow("slot beyond 16 bits") << QStringLiteral("a") << QStringLiteral("b") << 0x12345
                                         << QByteArray("23456100") << QByteArray("23456200");
    QTest::newRow("negative slot") << QStringLiteral("a") << QStringLiteral("b") << -2
                                   << QByteArray("fffe6100") << QByteArray("fffe6200");
    QTest::newRow("no slot") << QStringLiteral("a") << QStringLiteral("b") << -1 << QByteArray()
                             << QByteArray();
}

void tst_TransferFiles::names()
{
    QFETCH(const QString, fileName);
    QFETCH(const QString, bankName);
    QFETCH(const int, slot);
    QFETCH(const QByteArray, sampleFields);
    QFETCH(const QByteArray, bankFields);

    Session session;
    const QString path =
        m_files.write(QString::fromLatin1(QTest::currentDataTag()) + QLatin1Char('/') + fileName,
                      QByteArray("\x01\x02\x03\x04"));
    session.plugin().sendImportWaveSample(path, slot);
    session.plugin().sendImportSoundBank(path, bankName, slot);
    const QString complete = QStringLiteral("waveTransferComplete(%1, 0)").arg(slot);
    QCOMPARE(session.differenceWhenSettled({QStringLiteral("waveTransferProgress x1"), complete,
                                            QStringLiteral("waveTransferProgress x1"), complete}),
             QString());
    const QVector<QByteArray> datagrams = session.peer().received();
    QCOMPARE(datagrams.at(0).toHex(), "4453495700000004" + sampleFields);
    QCOMPARE(datagrams.at(3).toHex(), "4453495300000004" + bankFields);
}

void tst_TransferFiles::bluetoothFiles_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<QByteArray>("slotField");
    QTest::addColumn<double>("progress");

    QTest::newRow("b00") << QStringLiteral("m.b00") << QByteArray("0000") << 1.0 / 17.0;
    QTest::newRow("b07") << QStringLiteral("m.b07") << QByteArray("0007") << 8.0 / 17.0;
    QTest::newRow("b15") << QStringLiteral("m.b15") << QByteArray("000f") << 16.0 / 17.0;
    QTest::newRow("b16") << QStringLiteral("m.b16") << QByteArray("0010") << 0.0;
    QTest::newRow("b99") << QStringLiteral("m.b99") << QByteArray("0063") << 0.0;
    QTest::newRow("bin") << QStringLiteral("m.bin") << QByteArray("0000") << 1.0 / 17.0;
    QTest::newRow("ipf") << QStringLiteral("m.ipf") << QByteArray("4950") << 0.0;
    QTest::newRow("IPF") << QStringLiteral("m.IPF") << QByteArray() << 0.0;
    QTest::newRow("B07") << QStringLiteral("m.B07") << QByteArray() << 0.0;
    QTest::newRow("hex") << QStringLiteral("m.hex") << QByteArray() << 0.0;
}

void tst_TransferFiles::bluetoothFiles()
{
    QFETCH(const QString, fileName);
    QFETCH(const QByteArray, slotField);
    QFETCH(const double, progress);

    Session session;
    QVector<double> seen;
    connect(&session.plugin(), &QConnectQmlPlugin::btfwProgressChanged, this,
            [&] { seen.append(session.plugin().btfwProgress()); });
    session.plugin().sendBtFw(m_files.write(fileName, QByteArray(1025, '\x55')));
    QCOMPARE(session.differenceWhenSettled(
                 {QStringLiteral("btfwProgressChanged x3"), QStringLiteral("bluetoothTransferComplete(0)")}),
             QString());
    QCOMPARE(session.peer().received().first().toHex(), "4453424600000401" + slotField);
    QCOMPARE(session.peer().received().at(4).toHex(), QByteArray("4445424600000000"));
    QCOMPARE(seen, QVector<double>(3, progress));
}

QTEST_GUILESS_MAIN(tst_TransferFiles)
#include "tst_files.moc"

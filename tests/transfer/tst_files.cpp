#include "filestream.h"
#include "progressvalues.h"
#include "runningtransfer.h"
#include "session.h"
#include "transferkinds.h"

#include "control/qconnectqmlplugin.h"
#include "support/logcatcher.h"

#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

// Files that cannot be opened, files that change while they are sent, and names of files.

namespace {

// Long enough to change a file while it is sent, also on a busy machine.
constexpr int durationMs = 1000;

/// What happens to a file after its first packets.
struct Change
{
    enum End { Early, AtNewSize, AtOldSize };

    double factor; ///< new size as a fraction of the old one, negative for a file that is deleted
    End end;       ///< where the data ends
};

// True after the packet before a pause. A file that shrinks between the check for its end and the read would
// end the transfer in another way.
bool isInPause(qint64 packet)
{
    return packet >= 30 && packet % 10 == 9;
}

} // namespace

Q_DECLARE_METATYPE(Change)

class TransferFilesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void unreadable_data();
    void unreadable();
    void withoutPermission();
    void changed_data();
    void changed();
    void large_data();
    void large();
    void replaced();
    void names_data();
    void names();
    void bluetoothFiles_data();
    void bluetoothFiles();

private:
    TestFiles m_files;
};

void TransferFilesTest::initTestCase()
{
    QVERIFY(QDir().mkpath(m_files.path(QStringLiteral("folder"))));
    QCOMPARE(::mkfifo(QFile::encodeName(m_files.path(QStringLiteral("pipe"))).constData(), 0600), 0);
    QVERIFY(
        QFile::link(m_files.path(QStringLiteral("nowhere")), m_files.path(QStringLiteral("broken link"))));
}

void TransferFilesTest::unreadable_data()
{
    QTest::addColumn<QString>("path");

    QTest::newRow("empty path") << QString();
    QTest::newRow("missing") << m_files.path(QStringLiteral("missing"));
    QTest::newRow("missing folder") << m_files.path(QStringLiteral("missing/file"));
    QTest::newRow("folder") << m_files.path(QStringLiteral("folder"));
    QTest::newRow("folder with a slash") << m_files.path(QStringLiteral("folder/"));
    QTest::newRow("link to nothing") << m_files.path(QStringLiteral("broken link"));
    // It has no writer; opening it must not wait for one.
    QTest::newRow("pipe") << m_files.path(QStringLiteral("pipe"));
    QTest::newRow("too long a name") << m_files.path(QString(5000, QLatin1Char('x')));
    QTest::newRow("zero character") << m_files.path(QStringLiteral("a")) + QChar(0) + QLatin1Char('b');
}

// No packet is sent and no signal emitted for any kind, and the next task runs.
void TransferFilesTest::unreadable()
{
    QFETCH(const QString, path);

    testsupport::LogCatcher log;
    Session session;
    QVector<TransferKind> kinds = quickKinds();
    kinds.append(zeltaFirmwareKind());
    for (const TransferKind &kind : qAsConst(kinds))
        kind.send(session.plugin(), path);
    QCOMPARE(session.differenceWhenFinished({}), QString());
    QCOMPARE(session.peer().received(), QVector<QByteArray>{QByteArray("HL\0\0", 4)});
    QCOMPARE(log.warnings(), QStringList());
}

void TransferFilesTest::withoutPermission()
{
    const QString path = m_files.write(QStringLiteral("private.bin"), noise(100));
    QVERIFY(QFile::setPermissions(path, QFile::Permissions()));
    Session session;
    // The superuser may read everything, so another user is taken.
    const bool superuser = ::geteuid() == 0;
    if (superuser)
        QCOMPARE(::seteuid(65534), 0);
    session.plugin().sendTriggerBank(path);
    session.plugin().sendImportWaveSample(path, 1);
    const QString difference = session.differenceWhenFinished({});
    if (superuser)
        QCOMPARE(::seteuid(0), 0);
    QCOMPARE(difference, QString());
    QCOMPARE(session.peer().received(), QVector<QByteArray>{QByteArray("HL\0\0", 4)});
}

void TransferFilesTest::changed_data()
{
    QTest::addColumn<Change>("change");

    QTest::newRow("shrunk behind the read position") << Change{0.01, Change::Early};
    QTest::newRow("shrunk ahead of the read position") << Change{0.9, Change::AtNewSize};
    QTest::newRow("shrunk to a size that is no whole number of packets") << Change{0.9001, Change::AtNewSize};
    QTest::newRow("truncated to nothing") << Change{0.0, Change::Early};
    QTest::newRow("grown") << Change{1.01, Change::AtNewSize};
    QTest::newRow("deleted") << Change{-1.0, Change::AtOldSize};
}

// Whatever happens to the file, the data ends at the end that the file has then, the end packet is sent, the
// engine's answer decides, and the next task runs.
void TransferFilesTest::changed()
{
    QFETCH(const Change, change);

    const RunningTransfers all = startAllKinds(m_files, [](TransferPeer &peer) {
        peer.answerQuery("SN", {{"SN", 2, 3}});
    });
    std::vector<std::unique_ptr<ProgressValues>> progress;
    for (const auto &running : all) {
        progress.push_back(std::make_unique<ProgressValues>(running->session.plugin()));
        running->session.plugin().requestSoundBankVersion();
    }
    QVector<qint64> newSizes;
    for (const auto &running : all) {
        const TransferPeer &peer = running->session.peer();
        QVERIFY(QTest::qWaitFor([&] { return isInPause(peer.lastDataNumber()); }, patienceMs));
        const qint64 oldSize = running->content.size();
        const auto newSize = qint64(double(oldSize) * change.factor);
        if (change.factor < 0)
            QVERIFY(QFile::remove(running->path));
        else
            QVERIFY(QFile::resize(running->path, newSize));
        newSizes.append(change.factor < 0 ? oldSize : newSize);
    }
    for (std::size_t i = 0; i < all.size(); ++i) {
        RunningTransfer &running = *all.at(i);
        const TransferKind &kind = running.kind;
        QVERIFY2(running.session.finishTasks(), kind.name);
        const FileStream stream = running.stream();
        QCOMPARE(stream.fault, QString());
        // On a busy machine, the change can miss the shortest pause and come just before a read, which then
        // returns nothing. The transfer is aborted as it should be; the other kinds show what this row is
        // about.
        if (QByteArray(kind.content) == "BF" && change.end == Change::Early && stream.chunks.last().isEmpty())
            continue;
        const int packets = stream.numbers.size();
        QVERIFY2(stream.isPlain(packets), kind.name);
        if (change.end == Change::Early)
            QVERIFY2(packets < running.packets(), kind.name);
        else
            QCOMPARE(packets, int((newSizes.at(int(i)) + kind.chunkBytes - 1) / kind.chunkBytes));
        QVERIFY2(!stream.chunks.last().isEmpty(), kind.name);
        QVERIFY2(stream.content(kind.chunkBytes).startsWith(running.content) ||
                     running.content.startsWith(stream.content(kind.chunkBytes).chopped(1)),
                 kind.name);
        QCOMPARE(stream.starts.first().mid(4, 4).toHex().toInt(nullptr, 16), running.content.size());
        QCOMPARE(stream.ends.size(), 1);
        QCOMPARE(running.session.difference(running.expected(stream, 0)
                                            << QStringLiteral("soundbankVersionChanged()")
                                            << Session::tasksFinished()),
                 QString());
        for (const double fraction : qAsConst(progress.at(i)->values))
            QVERIFY2(fraction > 0.0 && fraction <= 1.0, QByteArray(kind.name) + QByteArray::number(fraction));
        // Bluetooth firmware reports the progress of its set.
        if (change.end != Change::Early && !kind.progress.isEmpty() && qstrcmp(kind.content, "BF") != 0)
            QCOMPARE(progress.at(i)->values.last(), 1.0);
    }
}

void TransferFilesTest::large_data()
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

// The start packet carries the size and the data follows, also on 32-bit systems.
void TransferFilesTest::large()
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

void TransferFilesTest::replaced()
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
    QCOMPARE(session.differenceWhenFinished(kind.progressed(packetCount) + kind.completed(0)), QString());
    QVERIFY(FileStream(session.peer().received(), kind.content).content(kind.chunkBytes) == content);
}

void TransferFilesTest::names_data()
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

void TransferFilesTest::names()
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
    QCOMPARE(session.differenceWhenFinished({QStringLiteral("waveTransferProgress x1"), complete,
                                             QStringLiteral("waveTransferProgress x1"), complete}),
             QString());
    const QVector<QByteArray> datagrams = session.peer().received();
    QCOMPARE(datagrams.at(0).toHex(), "4453495700000004" + sampleFields);
    QCOMPARE(datagrams.at(3).toHex(), "4453495300000004" + bankFields);
}

void TransferFilesTest::bluetoothFiles_data()
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

void TransferFilesTest::bluetoothFiles()
{
    QFETCH(const QString, fileName);
    QFETCH(const QByteArray, slotField);
    QFETCH(const double, progress);

    Session session;
    QVector<double> seen;
    connect(&session.plugin(), &QConnectQmlPlugin::btfwProgressChanged, this,
            [&] { seen.append(session.plugin().btfwProgress()); });
    session.plugin().sendBtFw(m_files.write(fileName, QByteArray(1025, '\x55')));
    QCOMPARE(session.differenceWhenFinished(
                 {QStringLiteral("btfwProgressChanged x3"), QStringLiteral("bluetoothTransferComplete(0)")}),
             QString());
    QCOMPARE(session.peer().received().first().toHex(), "4453424600000401" + slotField);
    QCOMPARE(session.peer().received().at(4).toHex(), QByteArray("4445424600000000"));
    QCOMPARE(seen, QVector<double>(3, progress));
}

QTEST_GUILESS_MAIN(TransferFilesTest)
#include "tst_files.moc"

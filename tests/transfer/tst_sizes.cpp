#include "filestream.h"
#include "session.h"
#include "transferkinds.h"

#include "control/qconnectqmlplugin.h"

#include <QElapsedTimer>
#include <QTest>

#include <algorithm>

namespace {

constexpr int transferTimeoutMs = 60000;

} // namespace

class tst_TransferSizes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everySize_data();
    void everySize();
    void pauses_data();
    void pauses();
    void soundBankOf1025Bytes();
    void progress_data();
    void progress();
    void sampleOf3Bytes();
    void emptyFile();

private:
    TestFiles m_files;
};

void tst_TransferSizes::everySize_data()
{
    QTest::addColumn<TransferKind>("kind");

    QVector<TransferKind> kinds = quickKinds();
    TransferKind unnumbered = kinds.last();
    unnumbered.name = "bluetooth file without a number";
    unnumbered.fileName = QStringLiteral("module.hex");
    unnumbered.startFields.clear();
    kinds.append(unnumbered);
    TransferKind slotless = kinds.at(3);
    slotless.name = "sound bank imported without a slot";
    slotless.send = [](QConnectQmlPlugin &plugin, const QString &path) {
        plugin.sendImportSoundBank(path, QStringLiteral("Kit A"), -1);
    };
    slotless.startFields.clear();
    slotless.complete = QStringLiteral("waveTransferComplete(-1, %1)");
    kinds.append(slotless);
    for (const TransferKind &kind : qAsConst(kinds))
        QTest::newRow(kind.name) << kind;
}

// All sizes of a kind at once, each with an engine of its own.
void tst_TransferSizes::everySize()
{
    QFETCH(const TransferKind, kind);
    const int chunk = kind.chunkBytes;
    const QVector<int> sizes = {0,         1,          chunk - 1,      chunk,
                                chunk + 1, 10 * chunk, 10 * chunk + 1, 1024 * 1024 + 3};

    std::vector<std::unique_ptr<Session>> sessions;
    QVector<QByteArray> contents;
    for (const int size : sizes) {
        sessions.push_back(std::make_unique<Session>());
        Session &session = *sessions.back();
        answerOldVersions(session.peer());
        contents.append(kind.file(size, quint32(size)));
        // The file's name is part of a wave sample's start packet, so every size has a folder of its own.
        const QString path =
            m_files.write(QStringLiteral("%1/%2").arg(size).arg(kind.fileName), contents.last());
        kind.send(session.plugin(), path);
    }
    for (int i = 0; i < sizes.size(); ++i) {
        const int size = sizes.at(i);
        Session &session = *sessions.at(std::size_t(i));
        QVERIFY2(session.settle(transferTimeoutMs), QByteArray::number(size));

        const FileStream stream(session.peer().received(), kind.content);
        if (size < kind.header.size()) {
            QVERIFY(stream.starts.isEmpty() && stream.numbers.isEmpty() && stream.ends.isEmpty());
            QCOMPARE(session.difference({Session::settled()}), QString());
            continue;
        }
        const int packets = (size + chunk - 1) / chunk;
        QCOMPARE(stream.fault, QString());
        QCOMPARE(stream.starts.size(), 1);
        QCOMPARE(stream.starts.first().mid(4).toHex(),
                 QByteArray::number(size, 16).rightJustified(8, '0') + kind.startFields);
        QVERIFY(stream.isPlain(packets));
        QByteArray padded = contents.at(i);
        if (size % 2 != 0)
            padded.append('\0');
        QVERIFY(stream.content(chunk) == padded);
        QCOMPARE(stream.ends.size(), 1);
        QCOMPARE(stream.ends.first().mid(4).toHex().toUInt(nullptr, 16), kind.checksum ? stream.sum() : 0U);

        QCOMPARE(session.seen(), kind.before + kind.progressed(packets) + kind.completed(0) +
                                     QStringList{Session::settled()});
    }
}

void tst_TransferSizes::pauses_data()
{
    QTest::addColumn<TransferKind>("kind");
    QTest::addColumn<int>("pauseMs");

    const QVector<int> pauses = {10, 7, 15, 7, 7, 1};
    const QVector<TransferKind> kinds = quickKinds();
    for (int i = 0; i < kinds.size(); ++i)
        QTest::newRow(kinds.at(i).name) << kinds.at(i) << pauses.at(i);
}

// Ten packets, a pause. A busy machine stretches and squeezes single gaps, so the middle one of many counts.
void tst_TransferSizes::pauses()
{
    QFETCH(const TransferKind, kind);
    QFETCH(const int, pauseMs);

    QVector<qint64> arrivals;
    Session session;
    answerOldVersions(session.peer());
    QElapsedTimer clock;
    clock.start();
    session.peer().watch([&](const QByteArray &datagram) {
        if (datagram.startsWith("DC"))
            arrivals.append(clock.nsecsElapsed());
    });
    kind.send(session.plugin(), m_files.write(kind.fileName, kind.file(kind.chunkBytes * 1005)));
    QVERIFY(session.settle());
    session.peer().watch({});

    QVector<qint64> pausedGaps;
    QVector<qint64> otherGaps;
    for (int i = 1; i < arrivals.size(); ++i)
        (i % 10 == 0 ? pausedGaps : otherGaps).append(arrivals.at(i) - arrivals.at(i - 1));
    QCOMPARE(pausedGaps.size(), 100);
    std::sort(pausedGaps.begin(), pausedGaps.end());
    std::sort(otherGaps.begin(), otherGaps.end());
    const qint64 pauseNs = pauseMs * 1000000LL;
    QVERIFY2(pausedGaps.at(50) > pauseNs * 9 / 10, QByteArray::number(pausedGaps.at(50)));
    QVERIFY2(otherGaps.at(450) < pauseNs / 2, QByteArray::number(otherGaps.at(450)));
    QVERIFY(arrivals.last() - arrivals.first() >= 100 * pauseNs * 9 / 10);
}

void tst_TransferSizes::soundBankOf1025Bytes()
{
    Session session;
    QVector<double> progress;
    connect(&session.plugin(), &QConnectQmlPlugin::soundProgressChanged, this,
            [&] { progress.append(session.plugin().soundBankProgress()); });
    session.plugin().sendSoundBank(m_files.write(QStringLiteral("bank"), QByteArray(1024, '\x01') + '\x02'));
    QVERIFY(session.settle());

    const QVector<QByteArray> datagrams = session.peer().received();
    QCOMPARE(datagrams.size(), 5);
    QCOMPARE(datagrams.at(0).toHex(), QByteArray("4453534200000401"));
    QCOMPARE(datagrams.at(1).left(10).toHex(), QByteArray("44435342000000000200"));
    QCOMPARE(datagrams.at(1).mid(10), QByteArray(1024, '\x01'));
    QCOMPARE(datagrams.at(2).toHex(), QByteArray("444353420000000100010200"));
    // 512 words 0x0101 and one 0x0200.
    QCOMPARE(datagrams.at(3).toHex(), QByteArray("4445534200020400"));
    QCOMPARE(datagrams.at(4).toHex(), QByteArray("484c0000"));
    QCOMPARE(progress, (QVector<double>{1024.0 / 1025.0, 1.0}));
}

void tst_TransferSizes::progress_data()
{
    QTest::addColumn<TransferKind>("kind");
    QTest::addColumn<QByteArray>("property"); ///< nothing for a signal that carries it
    QTest::addColumn<QVector<double>>("expected");

    const QVector<TransferKind> kinds = quickKinds();
    // Three chunks and a byte; of the sound bank's longer chunks, one and a half.
    const QVector<double> fractions{512.0 / 1537, 1024.0 / 1537, 1536.0 / 1537, 1};
    QTest::newRow("sound bank") << kinds.at(1) << QByteArray("soundBankProgress")
                                << QVector<double>{1024.0 / 1537, 1};
    QTest::newRow("trigger bank") << kinds.at(2) << QByteArray("triggerBankProgress") << fractions;
    QTest::newRow("imported sound bank") << kinds.at(3) << QByteArray() << fractions;
    QTest::newRow("imported wave sample") << kinds.at(4) << QByteArray() << fractions;
    // The fourth of seventeen files, whatever there is of it.
    QTest::newRow("bluetooth firmware") << kinds.at(5) << QByteArray("btfwProgress")
                                        << QVector<double>{4.0 / 17, 4.0 / 17, 4.0 / 17, 4.0 / 17};
}

void tst_TransferSizes::progress()
{
    QFETCH(const TransferKind, kind);
    QFETCH(const QByteArray, property);
    QFETCH(const QVector<double>, expected);

    Session session;
    QVector<double> seen;
    connect(&session.plugin(), &QConnectQmlPlugin::waveTransferProgress, this,
            [&](int, double fraction) { seen.append(fraction); });
    const auto note = [&] {
        seen.append(session.plugin().property(property.constData()).toDouble());
    };
    connect(&session.plugin(), &QConnectQmlPlugin::soundProgressChanged, this, note);
    connect(&session.plugin(), &QConnectQmlPlugin::triggerProgressChanged, this, note);
    connect(&session.plugin(), &QConnectQmlPlugin::btfwProgressChanged, this, note);
    kind.send(session.plugin(), m_files.write(kind.fileName, kind.file(1537)));
    QVERIFY(session.settle());
    QCOMPARE(seen, expected);
}

void tst_TransferSizes::sampleOf3Bytes()
{
    Session session;
    session.plugin().sendImportWaveSample(m_files.write(QStringLiteral("tom.wav"), "\x01\x02\x03"), 7);
    QVERIFY(session.settle());

    const QVector<QByteArray> datagrams = session.peer().received();
    QCOMPARE(datagrams.size(), 4);
    QCOMPARE(datagrams.at(0).toHex(), QByteArray("44534957000000030007746f6d2e77617600"));
    QCOMPARE(datagrams.at(1).toHex(), QByteArray("4443495700000000000201020300"));
    QCOMPARE(datagrams.at(2).toHex(), QByteArray("4445495700000402"));
    QCOMPARE(session.difference({QStringLiteral("waveTransferProgress x1"),
                                 QStringLiteral("waveTransferComplete(7, 0)"), Session::settled()}),
             QString());
}

void tst_TransferSizes::emptyFile()
{
    Session session;
    session.plugin().sendTriggerBank(m_files.write(QStringLiteral("empty"), QByteArray()));
    QVERIFY(session.settle());

    const QVector<QByteArray> datagrams = session.peer().received();
    QCOMPARE(datagrams.size(), 3);
    QCOMPARE(datagrams.at(0).toHex(), QByteArray("4453544200000000"));
    QCOMPARE(datagrams.at(1).toHex(), QByteArray("4445544200000000"));
    QCOMPARE(session.difference({QStringLiteral("triggerbankTransferComplete(0)"), Session::settled()}),
             QString());
}

QTEST_GUILESS_MAIN(tst_TransferSizes)
#include "tst_sizes.moc"

#include "filestream.h"
#include "session.h"
#include "transferkinds.h"

#include "control/qconnectqmlplugin.h"

#include <QTest>

#include <algorithm>
#include <array>

class TransferSizesTest : public QObject
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

void TransferSizesTest::everySize_data()
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
void TransferSizesTest::everySize()
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
        // The start packet of a wave sample carries the name of the file, so each size has a folder of its
        // own.
        const QString path =
            m_files.write(QStringLiteral("%1/%2").arg(size).arg(kind.fileName), contents.last());
        kind.send(session.plugin(), path);
    }
    for (int i = 0; i < sizes.size(); ++i) {
        const int size = sizes.at(i);
        Session &session = *sessions.at(std::size_t(i));
        QVERIFY2(session.finishTasks(), QByteArray::number(size));

        const FileStream stream(session.peer().received(), kind.content);
        if (size < kind.header.size()) {
            QVERIFY(stream.starts.isEmpty() && stream.numbers.isEmpty() && stream.ends.isEmpty());
            QCOMPARE(session.difference({Session::tasksFinished()}), QString());
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
                                     QStringList{Session::tasksFinished()});
    }
}

void TransferSizesTest::pauses_data()
{
    QTest::addColumn<TransferKind>("kind");
    QTest::addColumn<int>("pauseMs");

    const QVector<int> pauses = {10, 7, 15, 7, 7, 1};
    const QVector<TransferKind> kinds = quickKinds();
    for (int i = 0; i < kinds.size(); ++i)
        QTest::newRow(kinds.at(i).name) << kinds.at(i) << pauses.at(i);
}

// A pause after every ten packets, never too short. A busy machine stretches single gaps, so the median of
// many gaps shows where there is no pause.
void TransferSizesTest::pauses()
{
    QFETCH(const TransferKind, kind);
    QFETCH(const int, pauseMs);

    Session session;
    answerOldVersions(session.peer());
    kind.send(session.plugin(), m_files.write(kind.fileName, kind.file(kind.chunkBytes * 1005)));
    QVERIFY(session.finishTasks());

    const QVector<QByteArray> datagrams = session.peer().received();
    const QVector<qint64> stampsNs = session.peer().receivedAtNs();
    QVector<qint64> arrivals;
    for (int i = 0; i < datagrams.size(); ++i) {
        if (datagrams.at(i).startsWith("DC"))
            arrivals.append(stampsNs.at(i));
    }
    QCOMPARE(arrivals.size(), 1005);
    // After each first packet of ten, each second one and so on.
    std::array<QVector<qint64>, 10> gaps;
    for (int i = 1; i < arrivals.size(); ++i)
        gaps.at(std::size_t(i % 10)).append(arrivals.at(i) - arrivals.at(i - 1));
    for (QVector<qint64> &places : gaps)
        std::sort(places.begin(), places.end());
    // The stamps are those of the time of day, which the system may keep slowing down or speeding up by 500
    // us in a second.
    const qint64 pauseNs = pauseMs * 1000000LL;
    const qint64 leastNs = pauseNs - pauseNs / 1000 - 1000;
    QCOMPARE(gaps[0].size(), 100);
    // Not the very shortest ones: when a socket first wants stamps, a kernel may give some of them late.
    QVERIFY2(gaps[0].at(10) >= leastNs, QByteArray::number(gaps[0].at(10)));
    for (std::size_t place = 1; place < gaps.size(); ++place) {
        const qint64 middle = gaps.at(place).at(gaps.at(place).size() / 2);
        QVERIFY2(middle < pauseNs, QByteArray::number(middle));
    }
}

void TransferSizesTest::soundBankOf1025Bytes()
{
    Session session;
    QVector<double> progress;
    connect(&session.plugin(), &QConnectQmlPlugin::soundProgressChanged, this,
            [&] { progress.append(session.plugin().soundBankProgress()); });
    session.plugin().sendSoundBank(m_files.write(QStringLiteral("bank"), QByteArray(1024, '\x01') + '\x02'));
    QVERIFY(session.finishTasks());

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

void TransferSizesTest::progress_data()
{
    QTest::addColumn<TransferKind>("kind");
    QTest::addColumn<QByteArray>("property"); ///< empty for a signal with the value
    QTest::addColumn<QVector<double>>("expected");

    const QVector<TransferKind> kinds = quickKinds();
    // Three chunks and a byte; 1.5 of the larger chunks of a sound bank.
    const QVector<double> fractions{512.0 / 1537, 1024.0 / 1537, 1536.0 / 1537, 1};
    QTest::newRow("sound bank") << kinds.at(1) << QByteArray("soundBankProgress")
                                << QVector<double>{1024.0 / 1537, 1};
    QTest::newRow("trigger bank") << kinds.at(2) << QByteArray("triggerBankProgress") << fractions;
    QTest::newRow("imported sound bank") << kinds.at(3) << QByteArray() << fractions;
    QTest::newRow("imported wave sample") << kinds.at(4) << QByteArray() << fractions;
    // The fourth of seventeen files, for every packet.
    QTest::newRow("bluetooth firmware") << kinds.at(5) << QByteArray("btfwProgress")
                                        << QVector<double>{4.0 / 17, 4.0 / 17, 4.0 / 17, 4.0 / 17};
}

void TransferSizesTest::progress()
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
    QVERIFY(session.finishTasks());
    QCOMPARE(seen, expected);
}

void TransferSizesTest::sampleOf3Bytes()
{
    Session session;
    session.plugin().sendImportWaveSample(m_files.write(QStringLiteral("tom.wav"), "\x01\x02\x03"), 7);
    QVERIFY(session.finishTasks());

    const QVector<QByteArray> datagrams = session.peer().received();
    QCOMPARE(datagrams.size(), 4);
    QCOMPARE(datagrams.at(0).toHex(), QByteArray("44534957000000030007746f6d2e77617600"));
    QCOMPARE(datagrams.at(1).toHex(), QByteArray("4443495700000000000201020300"));
    QCOMPARE(datagrams.at(2).toHex(), QByteArray("4445495700000402"));
    QCOMPARE(session.difference({QStringLiteral("waveTransferProgress x1"),
                                 QStringLiteral("waveTransferComplete(7, 0)"), Session::tasksFinished()}),
             QString());
}

void TransferSizesTest::emptyFile()
{
    Session session;
    session.plugin().sendTriggerBank(m_files.write(QStringLiteral("empty"), QByteArray()));
    QVERIFY(session.finishTasks());

    const QVector<QByteArray> datagrams = session.peer().received();
    QCOMPARE(datagrams.size(), 3);
    QCOMPARE(datagrams.at(0).toHex(), QByteArray("4453544200000000"));
    QCOMPARE(datagrams.at(1).toHex(), QByteArray("4445544200000000"));
    QCOMPARE(session.difference({QStringLiteral("triggerbankTransferComplete(0)"), Session::tasksFinished()}),
             QString());
}

QTEST_GUILESS_MAIN(TransferSizesTest)
#include "tst_sizes.moc"

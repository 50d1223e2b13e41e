// The comparison of a module with a recording: planted differences are found, and only those.
#include "recording/capturefile.h"
#include "simulator/comparison.h"
#include "simulator/recording.h"
#include "simulator/sequencediff.h"
#include "support/datagram.h"
#include "support/hex.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <pcap/pcap.h>

using simulated::Comparison;
using simulated::Recording;
using testsupport::datagram;
using testsupport::hex;

namespace {

// A parameter of the master section, for example its out level, 07.
QByteArray parameter(quint8 number, quint8 value)
{
    QByteArray bytes = datagram("IM 0003 0BB96338 0BB96200 0BB90600");
    bytes[11] = char(number);
    bytes[15] = char(value);
    return bytes;
}

QByteArray level(quint8 value)
{
    return parameter(0x07, value);
}

QByteArray led(quint8 number, bool on)
{
    QByteArray bytes = datagram("LD 0000 0000");
    bytes[3] = char(number);
    bytes[5] = on ? 1 : 0;
    return bytes;
}

QByteArray query()
{
    return datagram("SN 0000");
}

// A sound bank of three packets with two words each. The last chunk holds three bytes and a padding byte.
QByteArray start()
{
    return datagram("DS SB 0000000B");
}

QByteArray data(int number)
{
    static constexpr const char *packets[] = {"DC SB 00000000 0002 01020304", "DC SB 00000001 0002 05060708",
                                              "DC SB 00000002 0002 090A0B00"};
    return datagram(packets[number]);
}

QByteArray end()
{
    return datagram("DE SB 00001A1F");
}

using Datagrams = QList<QByteArray>;

Datagrams bank()
{
    return {start(), data(0), data(1), data(2), end()};
}

} // namespace

class ComparisonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void finds_data();
    void finds();
    void describesDifferences();
    void showsBytesWhereTheTextIsTheSame();
    void knowsWhenAllHasArrived();
    void summarises();
    void endsWithALargeRecording();
    void alignsSequences_data();
    void alignsSequences();

private:
    Recording recordingOf(const Datagrams &sent);
    Comparison::Report compare(const Datagrams &recorded, const Datagrams &received);

    QTemporaryDir m_directory;
};

Recording ComparisonTest::recordingOf(const Datagrams &sent)
{
    const QString file = m_directory.filePath(QStringLiteral("recorded.pcap"));
    CaptureFile capture(file, DLT_RAW);
    qint64 ns = 0;
    for (const QByteArray &datagram : sent)
        capture.addDatagram(false, datagram, ns += 1000000);
    // Without this a recording of a silent module would be empty.
    capture.addDatagram(true, datagram("BT AC 0001 0000"), ns);
    capture.finish();
    Recording recording;
    QString problem;
    if (!recording.load(file, &problem))
        qFatal("%s", qPrintable(problem));
    return recording;
}

Comparison::Report ComparisonTest::compare(const Datagrams &recorded, const Datagrams &received)
{
    Comparison comparison(recordingOf(recorded));
    for (const QByteArray &datagram : received)
        comparison.receive(datagram);
    return comparison.report();
}

void ComparisonTest::finds_data()
{
    QTest::addColumn<Datagrams>("recorded");
    QTest::addColumn<Datagrams>("received");
    // missing, extra, changed, order, changed files
    QTest::addColumn<QVector<int>>("counts");
    const auto row = [](const char *name, const Datagrams &recorded, const Datagrams &received,
                        const QVector<int> &counts) {
        QTest::newRow(name) << recorded << received << counts;
    };
    const QVector<int> none{0, 0, 0, 0, 0};
    const QVector<int> missing{1, 0, 0, 0, 0};
    const QVector<int> extra{0, 1, 0, 0, 0};
    const QVector<int> changed{0, 0, 1, 0, 0};
    const QVector<int> order{0, 0, 0, 1, 0};
    const QVector<int> file{0, 0, 0, 0, 1};
    const Datagrams levels{level(1), level(2), level(3)};

    row("nothing at all", {}, {}, none);
    row("the same", levels, levels, none);
    row("silent module", levels, {}, {3, 0, 0, 0, 0});
    row("silent recording", {}, levels, {0, 3, 0, 0, 0});
    row("missing, first", levels, {level(2), level(3)}, missing);
    row("missing, in between", levels, {level(1), level(3)}, missing);
    row("missing, last", levels, {level(1), level(2)}, missing);
    row("missing, one of two alike", {level(1), level(1)}, {level(1)}, missing);
    row("extra, first", levels, {level(9), level(1), level(2), level(3)}, extra);
    row("extra, in between", levels, {level(1), level(9), level(2), level(3)}, extra);
    row("extra, last", levels, {level(1), level(2), level(3), level(9)}, extra);
    row("extra, sent twice", levels, {level(1), level(2), level(2), level(3)}, extra);
    row("changed value", levels, {level(1), level(7), level(3)}, changed);
    row("all values changed", levels, {level(11), level(12), level(13)}, {0, 0, 3, 0, 0});
    row("another parameter", {level(1)}, {parameter(0x08, 1)}, {1, 1, 0, 0, 0});
    row("changed at another place", {level(1), led(1, true), level(2)}, {led(1, true), level(9), level(2)},
        {1, 1, 0, 0, 0});
    row("two in another order", {level(1), led(1, true)}, {led(1, true), level(1)}, order);
    row("one much later", {led(1, true), level(1), level(2), level(3)},
        {level(1), level(2), level(3), led(1, true)}, order);
    row("an empty datagram", {level(1), {}}, {level(1)}, missing);
    row("bytes that are no message", {hex("FF")}, {hex("FE")}, {1, 1, 0, 0, 0});

    row("query", {query(), level(1)}, {level(1), query()}, none);
    row("query missing", {query(), level(1)}, {level(1)}, missing);
    row("query sent twice", {query()}, {query(), query()}, extra);

    row("file", bank(), bank(), none);
    row("file between settings", Datagrams{level(1)} + bank() + Datagrams{level(2)},
        {start(), data(0), level(1), data(1), level(2), data(2), end()}, none);
    row("file, packets repeated", bank(),
        {start(), data(0), data(1), data(0), data(1), data(2), datagram("DE SB 0000350C")}, none);
    row("file, packets recorded twice", {start(), data(0), data(1), data(0), data(1), data(2), end()}, bank(),
        none);
    row("file, changed byte", bank(),
        {start(), data(0), datagram("DC SB 00000001 0002 05060709"), data(2), end()}, file);
    row("file, changed number", bank(),
        {start(), data(0), datagram("DC SB 00000007 0002 05060708"), data(2), end()}, file);
    row("file, packet missing", bank(), {start(), data(0), data(2), end()}, file);
    row("file, packet more", bank(),
        bank().mid(0, 4) + Datagrams{datagram("DC SB 00000003 0001 0102"), end()}, file);
    row("file, without its end", bank(), bank().mid(0, 4), file);
    row("file, without its start", bank(), bank().mid(1), {0, 0, 1, 0, 0});
    row("file, checksum", bank(), bank().mid(0, 4) + Datagrams{datagram("DE SB 00001A20")}, file);
    row("file, size", bank(), Datagrams{datagram("DS SB 0000000C")} + bank().mid(1), changed);
    row("file missing", bank(), {}, missing);
    row("file sent twice", bank(), bank() + bank(), extra);
    row("file, another content", bank(),
        {datagram("DS TB 00000002"), datagram("DC TB 00000000 0001 0102"), datagram("DE TB 00000102")},
        {1, 1, 0, 0, 0});
    row("refused file, ended later", {start(), data(0)}, {start(), data(0), data(1)}, none);
    row("refused file, ended earlier", {start(), data(0), data(1)}, {start(), data(0)}, none);
    row("refused file, changed byte", {start(), data(0), data(1)},
        {start(), datagram("DC SB 00000000 0002 01020305")}, file);
}

void ComparisonTest::finds()
{
    QFETCH(Datagrams, recorded);
    QFETCH(Datagrams, received);
    QFETCH(QVector<int>, counts);
    const Comparison::Report report = compare(recorded, received);
    const QVector<int> found{report.missing, report.extra, report.changed, report.order, report.changedFiles};
    QVERIFY2(found == counts, qPrintable(report.lines.join(QLatin1Char('\n'))));
    // A file can differ in several ways.
    QVERIFY(report.changedFiles > 0 || report.lines.size() == report.differences());
}

void ComparisonTest::describesDifferences()
{
    const Comparison::Report report =
        compare(Datagrams{led(1, true), level(1), level(2), level(3), led(9, true)} + bank(),
                Datagrams{level(1), led(1, true), level(5), led(9, true), led(8, false), start(), data(0),
                          datagram("DC SB 00000001 0002 FF060708"), data(2), end()});
    QStringList lines;
    for (QString line : report.lines) {
        // The time of a received datagram is its real one.
        if (line.contains(QStringLiteral("extra")))
            line.replace(QRegularExpression(QStringLiteral("at [0-9.]+ s")), QStringLiteral("at T"));
        lines.append(line);
    }
    const QStringList expected{
        QStringLiteral("difference: order at 0.000 s: LED 1 on was sent later"),
        QStringLiteral(
            "difference: changed at 0.002 s: mixer master out level 5, recorded mixer master out level 2"),
        QStringLiteral("difference: missing at 0.003 s: mixer master out level 3"),
        QStringLiteral("difference: extra at T: LED 8 off"),
        QStringLiteral(
            "difference: file at 0.005 s: transfer start SB, 11 bytes: packet 1 with another content")};
    QCOMPARE(lines, expected);
}

void ComparisonTest::showsBytesWhereTheTextIsTheSame()
{
    // The status byte of the first event is that of another channel.
    QByteArray other = level(1);
    other[5] = char(0xB8);
    const Comparison::Report report = compare({level(1)}, {other});
    QCOMPARE(report.lines, QStringList{QStringLiteral(
                               "difference: changed at 0.000 s: mixer master out level 1 "
                               "[49 4D 00 03 0B B8 63 38 0B B9 62 07 0B B9 06 01], recorded mixer master "
                               "out level 1 [49 4D 00 03 0B B9 63 38 0B B9 62 07 0B B9 06 01]")});
}

void ComparisonTest::knowsWhenAllHasArrived()
{
    const Recording recording = recordingOf(Datagrams{level(1), level(1), query()} + bank());
    Comparison comparison(recording);
    QVERIFY(comparison.receive(level(1)));
    QVERIFY(!comparison.receive(level(9)));
    QVERIFY(comparison.receive(query()));
    QVERIFY(comparison.receive(level(1)));
    QVERIFY(!comparison.receive(level(1)));
    const Datagrams packets = bank();
    for (const QByteArray &packet : packets) {
        QVERIFY(!comparison.isComplete());
        QVERIFY(comparison.receive(packet));
    }
    QVERIFY(comparison.isComplete());
}

void ComparisonTest::summarises()
{
    const Comparison::Report report =
        compare(Datagrams{level(1), level(2)} + bank(), Datagrams{level(1)} + bank());
    QCOMPARE(report.summary(),
             (QStringList{QStringLiteral("summary compared-datagrams 2"),
                          QStringLiteral("summary compared-files 1"), QStringLiteral("summary missing 1"),
                          QStringLiteral("summary extra 0"), QStringLiteral("summary changed 0"),
                          QStringLiteral("summary order 0"), QStringLiteral("summary changed-files 0"),
                          QStringLiteral("comparison: 1 difference(s)")}));
    QCOMPARE(compare(bank(), bank()).summary().last(), QStringLiteral("comparison: no difference"));
}

// Two long sequences that have nothing in common must not take hours or all memory.
void ComparisonTest::endsWithALargeRecording()
{
    constexpr int count = 20000;
    Datagrams recorded;
    Datagrams received;
    for (int i = 0; i < count; ++i) {
        recorded.append(parameter(quint8(i % 100), 1));
        received.append(parameter(quint8(i % 100), 2));
    }
    const Comparison::Report report = compare(recorded, received);
    QCOMPARE(report.changed + report.missing, count);
    QCOMPARE(report.changed + report.extra, count);
}

void ComparisonTest::alignsSequences_data()
{
    QTest::addColumn<QVector<int>>("left");
    QTest::addColumn<QVector<int>>("right");
    QTest::addColumn<int>("common");
    const auto row = [](const char *name, const QVector<int> &left, const QVector<int> &right, int common) {
        QTest::newRow(name) << left << right << common;
    };
    row("empty", {}, {}, 0);
    row("one side empty", {1, 2}, {}, 0);
    row("equal", {1, 2, 3}, {1, 2, 3}, 3);
    row("nothing in common", {1, 2, 3}, {4, 5, 6}, 0);
    row("one in between", {1, 3}, {1, 2, 3}, 2);
    row("swapped", {1, 2}, {2, 1}, 1);
    row("classic", {1, 2, 3, 1, 2, 2, 1}, {3, 2, 1, 2, 1, 3}, 4);
    // Longer than what is aligned at once.
    QVector<int> left;
    QVector<int> right;
    for (int i = 0; i < 3000; ++i) {
        left.append(i);
        right.append(i % 3 == 0 ? -i - 1 : i);
    }
    row("every third one changed", left, right, 2000);
}

void ComparisonTest::alignsSequences()
{
    QFETCH(QVector<int>, left);
    QFETCH(QVector<int>, right);
    const QVector<QPair<int, int>> pairs = simulated::commonPositions(left, right);
    QPair<int, int> previous(-1, -1);
    for (const QPair<int, int> &pair : pairs) {
        QVERIFY(pair.first > previous.first && pair.second > previous.second);
        QCOMPARE(left.at(pair.first), right.at(pair.second));
        previous = pair;
    }
    QTEST(pairs.size(), "common");
}

QTEST_GUILESS_MAIN(ComparisonTest)
#include "tst_comparison.moc"

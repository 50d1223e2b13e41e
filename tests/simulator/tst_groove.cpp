// Groove, beats and meters.
#include "peer.h"

#include "simulator/groove.h"
#include "simulator/kit.h"

#include <QElapsedTimer>
#include <QSet>

using simulated::Groove;
using simulated::Stroke;

class GrooveTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void kitIsTheModules();
    void playsTheSameFromTheSameSeed();
    void playsTheWholeKit();
    void countsFourBeats();
    void playsAtTheMetronomesTempo();
    void stopsAndStarts();
    void metersFollowTheHits();
    void metersComeThirtyTimesASecond();
};

static QString notesOf(quint32 seed, int steps)
{
    Groove groove(seed);
    QString text;
    for (int i = 0; i < steps; ++i) {
        const auto strokes = groove.next();
        for (const Stroke &stroke : strokes)
            text += QStringLiteral("%1:%2/%3 ").arg(i).arg(stroke.note).arg(stroke.value);
    }
    return text;
}

void GrooveTest::kitIsTheModules()
{
    const QVector<QVector<int>> notesOfPads = {
        {36},         {38, 37, 40}, {48, 50},     {45, 47},
        {43, 58},     {41, 39},     {51, 59, 53}, {21, 42, 44, 46, 26, 19},
        {49, 55, 17}, {57, 52, 18}, {88, 89, 22}, {90, 91, 23},
        {92, 93, 24}, {94, 95, 25}};
    QSet<int> known;
    for (int pad = 0; pad < notesOfPads.size(); ++pad) {
        for (int note : notesOfPads.at(pad)) {
            const simulated::Zone *zone = simulated::zoneOfNote(note);
            QVERIFY2(zone != nullptr, qPrintable(QString::number(note)));
            QCOMPARE(int(zone->pad), pad);
            // Cymbals, hi-hat and aux pads report pressure, drums do not.
            QCOMPARE(zone->canBeChoked, pad >= 6);
            known.insert(note);
        }
    }
    QCOMPARE(simulated::kitZones().size(), known.size());
    for (int note = 0; note < 128; ++note)
        QCOMPARE(simulated::zoneOfNote(note) != nullptr, known.contains(note));
}

void GrooveTest::playsTheSameFromTheSameSeed()
{
    QCOMPARE(notesOf(5, 1000), notesOf(5, 1000));
    QVERIFY(notesOf(5, 1000) != notesOf(6, 1000));
    Groove groove(5);
    groove.next();
    groove.restart(9);
    QString first;
    const auto strokes = groove.next();
    for (const Stroke &stroke : strokes)
        first += QStringLiteral("0:%1/%2 ").arg(stroke.note).arg(stroke.value);
    QCOMPARE(first, notesOf(9, 1));
}

void GrooveTest::playsTheWholeKit()
{
    Groove groove(1);
    QSet<int> pads;
    QSet<int> snareVelocities;
    int chokes = 0;
    int pedalMoves = 0;
    for (int i = 0; i < 16 * 64; ++i) {
        const auto strokes = groove.next();
        for (const Stroke &stroke : strokes) {
            QVERIFY(stroke.value >= 0 && stroke.value <= 127);
            if (stroke.kind == Stroke::Kind::HiHatPosition) {
                ++pedalMoves;
                continue;
            }
            const simulated::Zone *zone = simulated::zoneOfNote(stroke.note);
            if (zone == nullptr)
                QFAIL("a stroke on a pad that does not exist");
            if (stroke.kind == Stroke::Kind::Choke) {
                ++chokes;
                QVERIFY(zone->canBeChoked);
                continue;
            }
            QVERIFY(stroke.value > 0);
            pads.insert(zone->pad);
            if (stroke.note == 38)
                snareVelocities.insert(stroke.value);
        }
    }
    QVERIFY(pads.contains(QSet<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
    QVERIFY(snareVelocities.size() > 10);
    QVERIFY(chokes > 0);
    QVERIFY(pedalMoves > 0);
}

void GrooveTest::countsFourBeats()
{
    Groove groove(1);
    QVector<int> beats;
    for (int i = 0; i < 32; ++i) {
        beats.append(groove.beat());
        groove.next();
    }
    const QVector<int> bar = {1, 0, 0, 0, 2, 0, 0, 0, 3, 0, 0, 0, 4, 0, 0, 0};
    QCOMPARE(beats, bar + bar);
}

void GrooveTest::playsAtTheMetronomesTempo()
{
    SoundEngine engine;
    QVERIFY(Peer::listen(&engine));
    Peer peer(&engine);
    QVERIFY(peer.send("IM 0004 0BB96337 0BB96264 0BB92600 0BB9066E")); // 240 bpm: a beat every 250 ms
    peer.take();
    QElapsedTimer time;
    time.start();
    engine.setGroove(true);
    const auto isBeat = [](const QByteArray &datagram) {
        return datagram.startsWith("BTAC");
    };
    const auto beats = [&] {
        return std::count_if(peer.received.cbegin(), peer.received.cend(), isBeat);
    };
    QTRY_VERIFY(beats() >= 5);
    // The fifth beat is due one second after the first, and must not be early.
    QVERIFY2(time.elapsed() >= 950, qPrintable(QString::number(time.elapsed())));
    QList<QByteArray> sent;
    for (const QByteArray &datagram : qAsConst(peer.received)) {
        if (isBeat(datagram))
            sent.append(datagram);
    }
    const QList<QByteArray> expected = {datagram("BT AC 0001 0000"), datagram("BT AC 0002 0000"),
                                        datagram("BT AC 0003 0000"), datagram("BT AC 0004 0000"),
                                        datagram("BT AC 0001 0000")};
    QCOMPARE(sent.mid(0, 5), expected);
    QVERIFY(engine.counters().padHits > 5);
    QCOMPARE(engine.counters().outputMeters, quint64(0));
}

void GrooveTest::stopsAndStarts()
{
    SoundEngine engine;
    QVERIFY(Peer::listen(&engine));
    Peer peer(&engine);
    engine.setModule(QHostAddress(QHostAddress::LocalHost), peer.port());
    engine.setGroove(true);
    QVERIFY(engine.isGroovePlaying());
    QTRY_VERIFY(engine.counters().padHits > 3);
    engine.setGroove(false);
    QVERIFY(!engine.isGroovePlaying());
    peer.take();
    const quint64 hits = engine.counters().padHits;
    QElapsedTimer time;
    time.start();
    QTRY_VERIFY(time.elapsed() >= 400);
    QCOMPARE(peer.take(), QList<QByteArray>());
    QCOMPARE(engine.counters().padHits, hits);
    engine.setGroove(true);
    QTRY_VERIFY(engine.counters().padHits > hits);
}

void GrooveTest::metersFollowTheHits()
{
    simulated::Meters meters;
    meters.setFader(simulated::Meters::Master, 127);
    meters.setFader(simulated::Meters::Monitor, 0);
    QCOMPARE(meters.outputs(), simulated::OutputLevels{});
    meters.hit(36, 127);
    simulated::OutputLevels levels = meters.outputs();
    QCOMPARE(levels[0], quint16(70));
    QCOMPARE(levels[2], quint16(0)); // monitor fader down
    quint16 before = levels[0];
    for (int i = 0; i < 40 && before > 0; ++i) {
        meters.decay();
        levels = meters.outputs();
        QVERIFY(levels[0] < before || before < 3);
        before = levels[0];
    }
    QCOMPARE(before, quint16(0));

    // A tom on the left is louder on the left. A choke silences a cymbal, but not a drum.
    meters.hit(48, 100);
    levels = meters.outputs();
    QVERIFY(levels[0] > levels[1]);
    meters.choke(48);
    QCOMPARE(meters.outputs(), levels);
    simulated::Meters cymbal;
    cymbal.hit(49, 127);
    QVERIFY(cymbal.outputs()[0] > 0);
    cymbal.choke(49);
    QCOMPARE(cymbal.outputs(), simulated::OutputLevels{});
    cymbal.hit(100, 127); // not a note of the kit
    QCOMPARE(cymbal.outputs(), simulated::OutputLevels{});
}

void GrooveTest::metersComeThirtyTimesASecond()
{
    SoundEngine engine;
    QVERIFY(Peer::listen(&engine));
    Peer peer(&engine);
    engine.setModule(QHostAddress(QHostAddress::LocalHost), peer.port());
    QElapsedTimer time;
    time.start();
    engine.setMeters(true);
    QTRY_VERIFY(engine.counters().outputMeters >= 30);
    QVERIFY2(time.elapsed() >= 900, qPrintable(QString::number(time.elapsed())));
    engine.setMeters(false);
    const auto taken = peer.take();
    QVERIFY(taken.size() >= 30);
    for (const QByteArray &datagram : taken) {
        QCOMPARE(datagram.size(), 38);
        QCOMPARE(datagram.left(2), QByteArray("DR"));
    }
}

QTEST_GUILESS_MAIN(GrooveTest)
#include "tst_groove.moc"

// Every page of parameters, from the datagram to its name and value.
#include "peer.h"

#include "simulator/parametertable.h"

#include <QSet>
#include <QSignalSpy>

class SimParameters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void decodes_data();
    void decodes();
    void knowsEveryName_data();
    void knowsEveryName();
    void keepsTheLastValue();
    void keepsEveryPadApart();
    void knowsNothingAtFirst();
    void keepsUpWithTenThousandASecond();
};

void SimParameters::decodes_data()
{
    QTest::addColumn<QByteArray>("datagram");
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("msb");
    QTest::addColumn<int>("lsb");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("low");

    const auto three = [](const char *row, const char *bytes, const char *line, int msb, int lsb, int value) {
        QTest::newRow(row) << hex(bytes) << QString::fromLatin1(line) << msb << lsb << value << -1;
    };
    const auto four = [](const char *row, const char *bytes, const char *line, int msb, int lsb, int value,
                         int low) {
        QTest::newRow(row) << hex(bytes) << QString::fromLatin1(line) << msb << lsb << value << low;
    };

    three("ambience active", "494D0003 0BB96301 0BB96202 0BB90601", "ambience active 1", 0x01, 0x02, 1);
    three("instrument reverb send", "494D0003 0BB96302 0BB96208 0BB90640",
          "instrument reverb send to room 64", 0x02, 0x08, 64);
    four("room reverb routing", "494D0004 0BB96303 0BB9620F 0BB92600 0BB90601", "room reverb routing 1/0",
         0x03, 0x0F, 1, 0);
    three("multi-FX parameter 4", "494D0003 0BB96304 0BB96208 0BB9061F", "multi-FX parameter 4 31", 0x04,
          0x08, 31);
    three("pad mixer volume", "494D0003 0BB96307 0BB96226 0BB90664", "pad 38 mixer volume 100", 0x07, 38,
          100);
    three("second coarse tuning", "494D0003 0BB96308 0BB96224 0BB90640",
          "pad 36 second sound coarse tuning 64", 0x08, 36, 64);
    three("pad external note", "494D0003 0BB9630A 0BB96226 0BB9063C", "pad 38 external MIDI note 60", 0x0A,
          38, 60);
    four("pad direct routing", "494D0004 0BB9630F 0BB96226 0BB92602 0BB90601",
         "pad 38 multi-FX direct routing 1/2", 0x0F, 38, 1, 2);
    four("click routing", "494D0004 0BB9630F 0BB96201 0BB92605 0BB90602", "metronome click routing 2/5", 0x0F,
         1, 2, 5);
    three("second sound high", "494D0003 0BB96312 0BB96226 0BB90602", "pad 38 second sound select high 2",
          0x12, 38, 2);
    three("second sound low", "494D0003 0BB96314 0BB96226 0BB9062C", "pad 38 second sound select low 44",
          0x14, 38, 44);
    three("pad instrument", "494D0003 0BB96317 0BB96226 0BB90605", "pad 38 sound instrument 5", 0x17, 38, 5);
    three("click sound", "494D0003 0BB96317 0BB96201 0BB90605", "metronome click sound 5", 0x17, 1, 5);
    three("click level", "494D0003 0BB9631A 0BB96201 0BB9067F", "metronome click level 127", 0x1A, 1, 127);
    three("coarse tuning", "494D0003 0BB96318 0BB96226 0BB90634", "pad 38 coarse tuning 52", 0x18, 38, 52);
    three("panning", "494D0003 0BB9631C 0BB96226 0BB90600", "pad 38 panning 0", 0x1C, 38, 0);
    three("pad EQ active", "494D0003 0BB96320 0BB96224 0BB90601", "pad 36 EQ active 1", 0x20, 36, 1);
    three("pad EQ low gain", "494D0003 0BB96321 0BB96226 0BB9063F", "pad 38 EQ low gain 63", 0x21, 38, 63);
    four("pad EQ mid frequency", "494D0004 0BB96325 0BB96226 0BB92668 0BB90607",
         "pad 38 EQ mid frequency 1000", 0x25, 38, 7, 0x68);
    three("pad EQ Q", "494D0003 0BB96327 0BB96226 0BB9060E", "pad 38 EQ mid Q 14", 0x27, 38, 14);
    three("pad compressor knee", "494D0003 0BB9632E 0BB96226 0BB9060A", "pad 38 compressor knee 10", 0x2E, 38,
          10);
    three("snare style", "494D0003 0BB96337 0BB96204 0BB90602", "mixer snare style 2", 0x37, 0x04, 2);
    four("playback routing", "494D0004 0BB96337 0BB9620F 0BB92605 0BB90602", "mixer playback routing 2/5",
         0x37, 0x0F, 2, 5);
    three("MIDI snare channel", "494D0003 0BB96337 0BB96225 0BB90609", "MIDI snare channel 9", 0x37, 0x25, 9);
    three("LED brightness", "494D0003 0BB96337 0BB96240 0BB90650", "LED brightness 80", 0x37, 0x40, 80);
    three("bluetooth enable", "494D0003 0BB96337 0BB96241 0BB90640", "bluetooth switch 64", 0x37, 0x41, 64);
    three("auto-off", "494D0003 0BB96337 0BB96242 0BB9062C", "auto-off 44", 0x37, 0x42, 44);
    three("auto test", "494D0003 0BB96337 0BB96251 0BB90623", "auto test 35", 0x37, 0x51, 35);
    three("deep erase", "494D0003 0BB96337 0BB96256 0BB90678", "deep erase 120", 0x37, 0x56, 120);
    four("tempo 120", "494D0004 0BB96337 0BB96264 0BB92600 0BB90632", "metronome tempo 120", 0x37, 0x64, 50,
         0);
    four("tempo 121", "494D0004 0BB96337 0BB96264 0BB92640 0BB90632", "metronome tempo 121", 0x37, 0x64, 50,
         0x40);
    four("tempo 20", "494D0004 0BB96337 0BB96264 0BB92600 0BB90600", "metronome tempo 20", 0x37, 0x64, 0, 0);
    four("tempo 273", "494D0004 0BB96337 0BB96264 0BB92640 0BB9067E", "metronome tempo 273", 0x37, 0x64, 126,
         0x40);
    three("metronome tap", "494D0003 0BB96337 0BB9626A 0BB90601", "metronome tap 1", 0x37, 0x6A, 1);
    three("master level", "494D0003 0BB96338 0BB96207 0BB90664", "mixer master out level 100", 0x38, 0x07,
          100);
    three("master EQ low gain", "494D0003 0BB96338 0BB96208 0BB9063F", "master EQ low gain 63", 0x38, 0x08,
          63);
    four("master EQ mid 1", "494D0004 0BB96338 0BB9620E 0BB92668 0BB90607", "master EQ mid 1 frequency 1000",
         0x38, 0x0E, 7, 0x68);
    four("master EQ mid 2", "494D0004 0BB96338 0BB9620D 0BB92600 0BB9067D", "master EQ mid 2 frequency 16000",
         0x38, 0x0D, 0x7D, 0);
    three("master compressor", "494D0003 0BB96338 0BB9621C 0BB90604", "master compressor ratio 4", 0x38, 0x1C,
          4);
    three("monitor value above 127", "494D0003 0BB96339 0BB9621B 0BB906C8",
          "monitor compressor threshold 200", 0x39, 0x1B, 200);
    three("headphone balance", "494D0003 0BB9633A 0BB96206 0BB90602", "mixer headphone out balance 2", 0x3A,
          0x06, 2);
    three("headphone EQ active", "494D0003 0BB9633A 0BB96255 0BB90601", "headphone EQ active 1", 0x3A, 0x55,
          1);
    three("direct out 8", "494D0003 0BB9633B 0BB96207 0BB9067F", "mixer direct out 8 level 127", 0x3B, 0x07,
          127);
    three("direct out mode", "494D0003 0BB9633B 0BB96213 0BB90601", "mixer direct out mode 3 1", 0x3B, 0x13,
          1);
    three("mix input gain", "494D0003 0BB9633C 0BB96221 0BB90640", "mix input gain 1 64", 0x3C, 0x21, 64);
    three("delete slots", "494D0003 0BB9633D 0BB9627F 0BB9067E", "delete all slots 126", 0x3D, 0x7F, 126);
    three("trigger gain", "494D0003 0BB96341 0BB96203 0BB90628", "trigger 3 gain 40", 0x41, 3, 40);
    three("trigger end", "494D0003 0BB9634F 0BB96226 0BB90600", "trigger 38 transfer end 0", 0x4F, 38, 0);
    three("trigger dynamics time", "494D0003 0BB96351 0BB96226 0BB90610", "trigger 38 dynamics time 16", 0x51,
          38, 16);
    three("unknown page", "494D0003 0BB9630D 0BB96222 0BB90605", "parameter 0x0d/0x22 value 5", 0x0D, 0x22,
          5);
    three("unknown number", "494D0003 0BB96337 0BB96269 0BB90605", "parameter 0x37/0x69 value 5", 0x37, 0x69,
          5);
    three("no room reverb gate", "494D0003 0BB96303 0BB96206 0BB90605", "parameter 0x03/0x06 value 5", 0x03,
          0x06, 5);
    three("trigger page 75", "494D0003 0BB9634B 0BB96206 0BB90605", "parameter 0x4b/0x06 value 5", 0x4B, 0x06,
          5);
}

void SimParameters::decodes()
{
    QFETCH(QByteArray, datagram);
    QFETCH(int, msb);
    QFETCH(int, lsb);

    SoundEngine engine;
    QVERIFY(Peer::listen(&engine));
    Peer peer(&engine);
    QSignalSpy lines(&engine, &SoundEngine::messageReceived);
    QSignalSpy values(&engine, &SoundEngine::parameterReceived);
    QVERIFY(peer.send(datagram));

    QTEST(lines.value(0).value(0).toString(), "line");
    QCOMPARE(lines.size(), 1);
    QCOMPARE(values.size(), 1);
    QCOMPARE(values.at(0).at(0).toInt(), msb);
    QCOMPARE(values.at(0).at(1).toInt(), lsb);
    QTEST(values.at(0).at(2).toInt(), "value");
    QTEST(values.at(0).at(3).toInt(), "low");
    QTEST(engine.parameter(quint8(msb), quint8(lsb)), "value");
    QTEST(engine.parameterLow(quint8(msb), quint8(lsb)), "low");
    QCOMPARE(engine.violations(), QStringList());
    QCOMPARE(peer.take(), QList<QByteArray>());
}

void SimParameters::knowsEveryName_data()
{
    QTest::addColumn<int>("msb");
    QTest::addColumn<QStringList>("names"); // "LSB name", hexadecimal
    const auto page = [](int msb, const char *names) {
        QTest::addRow("page 0x%02x", msb) << msb << QString::fromLatin1(names).split(QLatin1String(", "));
    };
    page(0x01, "00 ambience level, 01 ambience pre-delay, 02 ambience active");
    page(0x02,
         "00 instrument reverb level, 01 instrument reverb pre-delay, 02 instrument reverb time, "
         "03 instrument reverb pre high-pass, 04 instrument reverb high shelf, 05 instrument reverb high "
         "damp, "
         "06 instrument reverb gate threshold, 07 instrument reverb type, 08 instrument reverb send to room, "
         "09 instrument reverb active, 0f instrument reverb routing");
    page(0x03,
         "00 room reverb level, 01 room reverb pre-delay, 02 room reverb time, 03 room reverb pre high-pass, "
         "04 room reverb high shelf, 05 room reverb high damp, 07 room reverb type, 09 room reverb active, "
         "0f room reverb routing");
    page(
        0x04,
        "00 multi-FX level, 01 multi-FX type, 02 multi-FX active, 03 multi-FX send to room, "
        "04 multi-FX parameter 0, 05 multi-FX parameter 1, 06 multi-FX parameter 2, 07 multi-FX parameter 3, "
        "08 multi-FX parameter 4, 0f multi-FX routing");
    page(0x37,
         "03 fixed hi-hat, 04 mixer snare style, 05 mixer crossfade balance, 06 mixer mix-in level, "
         "07 mixer synth master level, 0f mixer playback routing, 10 mixer USB in level, 20 MIDI channel, "
         "21 MIDI local control, 22 MIDI input, 23 MIDI over USB, 24 MIDI hi-hat pedal channel, "
         "25 MIDI snare channel, 26 MIDI ride channel, 27 MIDI tom and aux channel, "
         "28 MIDI kit volume channel, 40 LED brightness, 41 bluetooth switch, 42 auto-off, 51 auto test, "
         "56 deep erase, 5f mixer song level, 63 metronome active, 64 metronome tempo, "
         "65 metronome time signature numerator, 66 metronome time signature denominator, "
         "67 metronome interval, 68 metronome accent, 6a metronome tap, 6b metronome tap note 1, "
         "6c metronome tap note 2");
    const char *section =
        "06 mixer %1 out balance, 07 mixer %1 out level, 08 %1 EQ low gain, 09 %1 EQ mid 2 gain, "
        "0a %1 EQ mid 1 gain, 0b %1 EQ high gain, 0c %1 EQ low frequency, "
        "0d %1 EQ mid 2 frequency, 0e %1 EQ mid 1 frequency, 0f %1 EQ high frequency, "
        "10 %1 EQ mid 2 Q, 11 %1 EQ mid 1 Q, 18 %1 compressor active, "
        "19 %1 compressor attack time, 1a %1 compressor release time, 1b %1 compressor threshold, "
        "1c %1 compressor ratio, 1d %1 compressor boost, 1e %1 compressor knee, "
        "1f %1 compressor meters request, 55 %1 EQ active";
    int msb = 0x38;
    for (const char *name : {"master", "monitor", "headphone"})
        page(msb++,
             qPrintable(QString::fromLatin1(section).replace(QLatin1String("%1"), QLatin1String(name))));
    page(0x3B, "00 mixer direct out 1 level, 01 mixer direct out 2 level, 02 mixer direct out 3 level, "
               "03 mixer direct out 4 level, 04 mixer direct out 5 level, 05 mixer direct out 6 level, "
               "06 mixer direct out 7 level, 07 mixer direct out 8 level, 08 mixer S/PDIF out level, "
               "10 mixer direct out mode 0, 17 mixer direct out mode 7, 1f output meters request");
    page(0x3C, "21 mix input gain 1");
    page(0x3D, "00 sound bank slot info request, 01 wave slot info request, 0f memory info request, "
               "70 delete sound bank slot, 71 delete wave slot, 7f delete all slots");
    page(0x3F, "21 mix input gain 2");

    // One name a page, with the pad's note or the trigger's number in it.
    const QList<QPair<int, const char *>> perNote = {
        {0x07, "pad 36 mixer volume"},
        {0x08, "pad 36 second sound coarse tuning"},
        {0x09, "pad 36 second sound fine tuning"},
        {0x0A, "pad 36 external MIDI note"},
        {0x0B, "pad 36 second sound attack time"},
        {0x0C, "pad 36 second sound release time"},
        {0x0F, "pad 36 multi-FX direct routing"},
        {0x10, "pad 36 attack time"},
        {0x11, "pad 36 envelope release time"},
        {0x12, "pad 36 second sound select high"},
        {0x13, "pad 36 second sound active"},
        {0x14, "pad 36 second sound select low"},
        {0x15, "pad 36 second sound volume"},
        {0x16, "pad 36 sound group"},
        {0x17, "pad 36 sound instrument"},
        {0x18, "pad 36 coarse tuning"},
        {0x19, "pad 36 fine tuning"},
        {0x1A, "pad 36 instrument volume"},
        {0x1B, "pad 36 ambience send"},
        {0x1C, "pad 36 panning"},
        {0x1D, "pad 36 room reverb send"},
        {0x1E, "pad 36 instrument reverb send"},
        {0x1F, "pad 36 multi-FX send"},
        {0x20, "pad 36 EQ active"},
        {0x21, "pad 36 EQ low gain"},
        {0x22, "pad 36 EQ mid gain"},
        {0x23, "pad 36 EQ high gain"},
        {0x24, "pad 36 EQ low frequency"},
        {0x25, "pad 36 EQ mid frequency"},
        {0x26, "pad 36 EQ high frequency"},
        {0x27, "pad 36 EQ mid Q"},
        {0x28, "pad 36 compressor active"},
        {0x29, "pad 36 compressor attack time"},
        {0x2A, "pad 36 compressor release time"},
        {0x2B, "pad 36 compressor threshold"},
        {0x2C, "pad 36 compressor ratio"},
        {0x2D, "pad 36 compressor boost"},
        {0x2E, "pad 36 compressor knee"},
        {0x2F, "pad 36 compressor meters request"},
        {0x40, "trigger 36 bank preset"},
        {0x41, "trigger 36 gain"},
        {0x42, "trigger 36 threshold"},
        {0x43, "trigger 36 crosstalk"},
        {0x44, "trigger 36 high level"},
        {0x45, "trigger 36 hi-hat low position"},
        {0x46, "trigger 36 hi-hat high position"},
        {0x47, "trigger 36 scan time"},
        {0x48, "trigger 36 retrigger mask"},
        {0x49, "trigger 36 type"},
        {0x4A, "trigger 36 positional sensing"},
        {0x4C, "trigger 36 curve preset"},
        {0x4D, "trigger 36 hi-hat chick sensitivity"},
        {0x4E, "trigger 36 hi-hat splash sensitivity"},
        {0x4F, "trigger 36 transfer end"},
        {0x50, "trigger 36 dynamics level"},
        {0x51, "trigger 36 dynamics time"},
    };
    for (const auto &name : perNote)
        QTest::addRow("page 0x%02x", name.first)
            << name.first << QStringList(QStringLiteral("24 ") + QLatin1String(name.second));
}

void SimParameters::knowsEveryName()
{
    QFETCH(int, msb);
    QFETCH(QStringList, names);
    QSet<int> named;
    for (const QString &entry : names) {
        const int lsb = entry.leftRef(2).toInt(nullptr, 16);
        named.insert(lsb);
        QCOMPARE(simulated::parameterInfo(quint8(msb), quint8(lsb)).name, entry.mid(3));
    }
    // A page of its own knows no other number; pages by note know every note.
    const bool byNote = named == QSet<int>{0x24};
    for (int lsb = 0; lsb < 128; ++lsb) {
        const bool directOutMode = msb == 0x3B && lsb >= 0x10 && lsb < 0x1F;
        const bool expected = byNote || directOutMode || named.contains(lsb);
        QCOMPARE(simulated::parameterInfo(quint8(msb), quint8(lsb)).isKnown(), expected);
    }
}

void SimParameters::keepsTheLastValue()
{
    SoundEngine engine;
    QVERIFY(Peer::listen(&engine));
    Peer peer(&engine);
    QVERIFY(peer.send("494D0003 0BB96338 0BB96207 0BB90664"));
    QVERIFY(peer.send("494D0003 0BB96338 0BB96207 0BB90632"));
    QCOMPARE(engine.parameter(0x38, 0x07), 50);
    QCOMPARE(engine.parameters().size(), 1);
    QCOMPARE(engine.counters().parameters, quint64(2));
}

void SimParameters::keepsEveryPadApart()
{
    SoundEngine engine;
    QVERIFY(Peer::listen(&engine));
    Peer peer(&engine);
    QVERIFY(peer.send("494D0003 0BB96321 0BB96224 0BB90611"));
    QVERIFY(peer.send("494D0003 0BB96321 0BB96226 0BB90622"));
    QVERIFY(peer.send("494D0003 0BB96322 0BB96226 0BB90633"));
    QCOMPARE(engine.parameter(0x21, 36), 0x11);
    QCOMPARE(engine.parameter(0x21, 38), 0x22);
    QCOMPARE(engine.parameter(0x22, 38), 0x33);
    QCOMPARE(engine.parameter(0x22, 36), -1);
}

void SimParameters::knowsNothingAtFirst()
{
    const SoundEngine engine;
    QCOMPARE(engine.parameter(0x38, 0x07), -1);
    QCOMPARE(engine.parameterLow(0x38, 0x07), -1);
    QVERIFY(engine.parameters().isEmpty());
}

void SimParameters::keepsUpWithTenThousandASecond()
{
    SoundEngine engine;
    QVERIFY(Peer::listen(&engine));
    Peer peer(&engine);
    const QByteArray datagram = hex("494D0003 0BB96338 0BB96207 0BB90664");
    // A hundred datagrams, then a turn of the event loop: the engine has to read each hundred at one go.
    QElapsedTimer time;
    time.start();
    for (int i = 0; i < 10000; ++i) {
        peer.throwAt(datagram);
        if (i % 100 == 99)
            QCoreApplication::processEvents();
    }
    QTRY_COMPARE(engine.counters().parameters, quint64(10000));
    qInfo("10000 datagrams in %lld ms", time.elapsed());
}

QTEST_GUILESS_MAIN(SimParameters)
#include "sim_parameters.moc"

// Parameters, from the datagram to name and value.
#include "peer.h"

#include "simulator/parametertable.h"

#include <QSet>
#include <QSignalSpy>

#include <numeric>

class ParametersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void decodes_data();
    void decodes();
    void knowsTheseNumbers_data();
    void knowsTheseNumbers();
    void namesAreUnique();
    void keepsTheLastValue();
    void keepsEveryPadApart();
    void knowsNothingAtFirst();
    void keepsUpWithTenThousandASecond();
};

void ParametersTest::decodes_data()
{
    QTest::addColumn<QByteArray>("datagram");
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("msb");
    QTest::addColumn<int>("lsb");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("low");

    const auto three = [](const char *row, const char *bytes, const char *line, int msb, int lsb, int value) {
        QTest::newRow(row) << datagram(bytes) << QString::fromLatin1(line) << msb << lsb << value << -1;
    };
    const auto four = [](const char *row, const char *bytes, const char *line, int msb, int lsb, int value,
                         int low) {
        QTest::newRow(row) << datagram(bytes) << QString::fromLatin1(line) << msb << lsb << value << low;
    };

    three("ambience active", "IM 0003 0BB96301 0BB96202 0BB90601", "ambience active 1", 0x01, 0x02, 1);
    three("instrument reverb send", "IM 0003 0BB96302 0BB96208 0BB90640", "instrument reverb send to room 64",
          0x02, 0x08, 64);
    four("room reverb routing", "IM 0004 0BB96303 0BB9620F 0BB92600 0BB90601", "room reverb routing 1/0",
         0x03, 0x0F, 1, 0);
    three("multi-FX parameter 4", "IM 0003 0BB96304 0BB96208 0BB9061F", "multi-FX parameter 4 31", 0x04, 0x08,
          31);
    three("pad mixer volume", "IM 0003 0BB96307 0BB96226 0BB90664", "pad 38 mixer volume 100", 0x07, 38, 100);
    three("second coarse tuning", "IM 0003 0BB96308 0BB96224 0BB90640",
          "pad 36 second sound coarse tuning 64", 0x08, 36, 64);
    three("pad external note", "IM 0003 0BB9630A 0BB96226 0BB9063C", "pad 38 external MIDI note 60", 0x0A, 38,
          60);
    four("pad direct routing", "IM 0004 0BB9630F 0BB96226 0BB92602 0BB90601",
         "pad 38 multi-FX direct routing 1/2", 0x0F, 38, 1, 2);
    four("click routing", "IM 0004 0BB9630F 0BB96201 0BB92605 0BB90602", "metronome click routing 2/5", 0x0F,
         1, 2, 5);
    three("second sound high", "IM 0003 0BB96312 0BB96226 0BB90602", "pad 38 second sound select high 2",
          0x12, 38, 2);
    three("second sound low", "IM 0003 0BB96314 0BB96226 0BB9062C", "pad 38 second sound select low 44", 0x14,
          38, 44);
    three("pad instrument", "IM 0003 0BB96317 0BB96226 0BB90605", "pad 38 sound instrument 5", 0x17, 38, 5);
    three("click sound", "IM 0003 0BB96317 0BB96201 0BB90605", "metronome click sound 5", 0x17, 1, 5);
    three("click level", "IM 0003 0BB9631A 0BB96201 0BB9067F", "metronome click level 127", 0x1A, 1, 127);
    three("coarse tuning", "IM 0003 0BB96318 0BB96226 0BB90634", "pad 38 coarse tuning 52", 0x18, 38, 52);
    three("panning", "IM 0003 0BB9631C 0BB96226 0BB90600", "pad 38 panning 0", 0x1C, 38, 0);
    three("pad EQ active", "IM 0003 0BB96320 0BB96224 0BB90601", "pad 36 EQ active 1", 0x20, 36, 1);
    three("pad EQ low gain", "IM 0003 0BB96321 0BB96226 0BB9063F", "pad 38 EQ low gain 63", 0x21, 38, 63);
    four("pad EQ mid frequency", "IM 0004 0BB96325 0BB96226 0BB92668 0BB90607",
         "pad 38 EQ mid frequency 1000", 0x25, 38, 7, 0x68);
    three("pad EQ Q", "IM 0003 0BB96327 0BB96226 0BB9060E", "pad 38 EQ mid Q 14", 0x27, 38, 14);
    three("pad compressor knee", "IM 0003 0BB9632E 0BB96226 0BB9060A", "pad 38 compressor knee 10", 0x2E, 38,
          10);
    three("snare style", "IM 0003 0BB96337 0BB96204 0BB90602", "mixer snare style 2", 0x37, 0x04, 2);
    four("playback routing", "IM 0004 0BB96337 0BB9620F 0BB92605 0BB90602", "mixer playback routing 2/5",
         0x37, 0x0F, 2, 5);
    three("MIDI snare channel", "IM 0003 0BB96337 0BB96225 0BB90609", "MIDI snare channel 9", 0x37, 0x25, 9);
    three("LED brightness", "IM 0003 0BB96337 0BB96240 0BB90650", "LED brightness 80", 0x37, 0x40, 80);
    three("bluetooth enable", "IM 0003 0BB96337 0BB96241 0BB90640", "bluetooth switch 64", 0x37, 0x41, 64);
    three("auto-off", "IM 0003 0BB96337 0BB96242 0BB9062C", "auto-off 44", 0x37, 0x42, 44);
    three("auto test", "IM 0003 0BB96337 0BB96251 0BB90623", "auto test 35", 0x37, 0x51, 35);
    three("deep erase", "IM 0003 0BB96337 0BB96256 0BB90678", "deep erase 120", 0x37, 0x56, 120);
    four("tempo 120", "IM 0004 0BB96337 0BB96264 0BB92600 0BB90632", "metronome tempo 120", 0x37, 0x64, 50,
         0);
    four("tempo 121", "IM 0004 0BB96337 0BB96264 0BB92640 0BB90632", "metronome tempo 121", 0x37, 0x64, 50,
         0x40);
    four("tempo 20", "IM 0004 0BB96337 0BB96264 0BB92600 0BB90600", "metronome tempo 20", 0x37, 0x64, 0, 0);
    four("tempo 531", "IM 0004 0BB96337 0BB96264 0BB92640 0BB906FF", "metronome tempo 531", 0x37, 0x64, 255,
         0x40);
    four("tempo 273", "IM 0004 0BB96337 0BB96264 0BB92640 0BB9067E", "metronome tempo 273", 0x37, 0x64, 126,
         0x40);
    three("metronome tap", "IM 0003 0BB96337 0BB9626A 0BB90601", "metronome tap 1", 0x37, 0x6A, 1);
    three("master level", "IM 0003 0BB96338 0BB96207 0BB90664", "mixer master out level 100", 0x38, 0x07,
          100);
    three("master EQ low gain", "IM 0003 0BB96338 0BB96208 0BB9063F", "master EQ low gain 63", 0x38, 0x08,
          63);
    four("master EQ mid 1", "IM 0004 0BB96338 0BB9620E 0BB92668 0BB90607", "master EQ mid 1 frequency 1000",
         0x38, 0x0E, 7, 0x68);
    four("master EQ mid 2", "IM 0004 0BB96338 0BB9620D 0BB92600 0BB9067D", "master EQ mid 2 frequency 16000",
         0x38, 0x0D, 0x7D, 0);
    three("master compressor", "IM 0003 0BB96338 0BB9621C 0BB90604", "master compressor ratio 4", 0x38, 0x1C,
          4);
    three("monitor value above 127", "IM 0003 0BB96339 0BB9621B 0BB906C8", "monitor compressor threshold 200",
          0x39, 0x1B, 200);
    three("headphone balance", "IM 0003 0BB9633A 0BB96206 0BB90602", "mixer headphone out balance 2", 0x3A,
          0x06, 2);
    three("headphone EQ active", "IM 0003 0BB9633A 0BB96255 0BB90601", "headphone EQ active 1", 0x3A, 0x55,
          1);
    three("direct out 8", "IM 0003 0BB9633B 0BB96207 0BB9067F", "mixer direct out 8 level 127", 0x3B, 0x07,
          127);
    three("direct out mode", "IM 0003 0BB9633B 0BB96213 0BB90601", "mixer direct out mode 3 1", 0x3B, 0x13,
          1);
    three("mix input gain", "IM 0003 0BB9633C 0BB96221 0BB90640", "mix input gain 1 64", 0x3C, 0x21, 64);
    three("delete slots", "IM 0003 0BB9633D 0BB9627F 0BB9067E", "delete all slots 126", 0x3D, 0x7F, 126);
    three("trigger gain", "IM 0003 0BB96341 0BB96203 0BB90628", "trigger 3 gain 40", 0x41, 3, 40);
    three("trigger end", "IM 0003 0BB9634F 0BB96226 0BB90600", "trigger 38 transfer end 0", 0x4F, 38, 0);
    three("trigger dynamics time", "IM 0003 0BB96351 0BB96226 0BB90610", "trigger 38 dynamics time 16", 0x51,
          38, 16);
    three("unknown page", "IM 0003 0BB9630D 0BB96222 0BB90605", "parameter 0x0d/0x22 value 5", 0x0D, 0x22, 5);
    three("unknown number", "IM 0003 0BB96337 0BB96269 0BB90605", "parameter 0x37/0x69 value 5", 0x37, 0x69,
          5);
    three("no room reverb gate", "IM 0003 0BB96303 0BB96206 0BB90605", "parameter 0x03/0x06 value 5", 0x03,
          0x06, 5);
    three("trigger page 75", "IM 0003 0BB9634B 0BB96206 0BB90605", "parameter 0x4b/0x06 value 5", 0x4B, 0x06,
          5);
}

void ParametersTest::decodes()
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

void ParametersTest::knowsTheseNumbers_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<QVector<int>>("oneByte");
    QTest::addColumn<QVector<int>>("twoBytes");
    const auto page = [](int msb, const QVector<int> &oneByte, const QVector<int> &twoBytes = {}) {
        QTest::addRow("page 0x%02x", msb) << msb << oneByte << twoBytes;
    };
    page(0x01, {0x00, 0x01, 0x02});
    page(0x02, {0x00, 0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08, 0x09}, {0x0F});
    page(0x03, {0x00, 0x01, 0x02, 0x03, 0x04, 0x05, 0x07, 0x09}, {0x0F});
    page(0x04, {0x00, 0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08}, {0x0F});
    page(0x37, {0x03, 0x04, 0x05, 0x06, 0x07, 0x10, 0x20, 0x21, 0x22, 0x23, 0x24, 0x25, 0x26, 0x27, 0x28,
                0x40, 0x41, 0x42, 0x51, 0x56, 0x5F, 0x63, 0x65, 0x66, 0x67, 0x68, 0x6A, 0x6B, 0x6C},
         {0x0F, 0x64});
    for (int output : {0x38, 0x39, 0x3A}) {
        page(output,
             {0x06, 0x07, 0x08, 0x09, 0x0A, 0x0B, 0x10, 0x11, 0x18, 0x19, 0x1A, 0x1B, 0x1C, 0x1D, 0x1E, 0x1F,
              0x55},
             {0x0C, 0x0D, 0x0E, 0x0F});
    }
    page(0x3B, {0x00, 0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08, 0x10, 0x11, 0x12, 0x13,
                0x14, 0x15, 0x16, 0x17, 0x18, 0x19, 0x1A, 0x1B, 0x1C, 0x1D, 0x1E, 0x1F});
    page(0x3C, {0x21});
    page(0x3D, {0x00, 0x01, 0x0F, 0x70, 0x71, 0x7F});
    page(0x3F, {0x21});

    // Pages with the pad's note or the trigger's number as the low number.
    QVector<int> anyNumber(0x80);
    std::iota(anyNumber.begin(), anyNumber.end(), 0);
    const QSet<int> twoBytePages = {0x0F, 0x24, 0x25, 0x26};
    const QVector<int> numberedPages = {
        0x07, 0x08, 0x09, 0x0A, 0x0B, 0x0C, 0x0F, 0x10, 0x11, 0x12, 0x13, 0x14, 0x15, 0x16,
        0x17, 0x18, 0x19, 0x1A, 0x1B, 0x1C, 0x1D, 0x1E, 0x1F, 0x20, 0x21, 0x22, 0x23, 0x24,
        0x25, 0x26, 0x27, 0x28, 0x29, 0x2A, 0x2B, 0x2C, 0x2D, 0x2E, 0x2F, 0x40, 0x41, 0x42,
        0x43, 0x44, 0x45, 0x46, 0x47, 0x48, 0x49, 0x4A, 0x4C, 0x4D, 0x4E, 0x4F, 0x50, 0x51};
    for (int msb : numberedPages) {
        const bool two = twoBytePages.contains(msb);
        page(msb, two ? QVector<int>() : anyNumber, two ? anyNumber : QVector<int>());
    }
    for (int msb : {0x00, 0x05, 0x06, 0x0D, 0x0E, 0x30, 0x36, 0x3E, 0x4B, 0x52, 0x7F})
        page(msb, {});
}

void ParametersTest::knowsTheseNumbers()
{
    QFETCH(int, page);
    QFETCH(QVector<int>, oneByte);
    QFETCH(QVector<int>, twoBytes);
    for (int lsb = 0; lsb < 0x80; ++lsb) {
        const simulated::ParameterInfo info = simulated::parameterInfo(quint8(page), quint8(lsb));
        const QByteArray number = QByteArray::number(lsb, 16);
        QVERIFY2(info.isKnown() == (oneByte.contains(lsb) || twoBytes.contains(lsb)), number.constData());
        QVERIFY2(info.hasTwoBytes() == twoBytes.contains(lsb), number.constData());
    }
}

// Two parameters with one name could not be distinguished in the log.
void ParametersTest::namesAreUnique()
{
    QSet<QString> names;
    for (int msb = 0; msb < 0x80; ++msb) {
        for (int lsb = 0; lsb < 0x80; ++lsb) {
            const QString name = simulated::parameterInfo(quint8(msb), quint8(lsb)).name;
            if (name.isEmpty())
                continue;
            QVERIFY2(!names.contains(name), qPrintable(name));
            names.insert(name);
        }
    }
    QVERIFY(!names.isEmpty());
}

void ParametersTest::keepsTheLastValue()
{
    SoundEngine engine;
    QVERIFY(Peer::listen(&engine));
    Peer peer(&engine);
    QVERIFY(peer.send("IM 0003 0BB96338 0BB96207 0BB90664"));
    QVERIFY(peer.send("IM 0003 0BB96338 0BB96207 0BB90632"));
    QCOMPARE(engine.parameter(0x38, 0x07), 50);
    QCOMPARE(engine.parameters().size(), 1);
    QCOMPARE(engine.counters().parameters, quint64(2));
}

void ParametersTest::keepsEveryPadApart()
{
    SoundEngine engine;
    QVERIFY(Peer::listen(&engine));
    Peer peer(&engine);
    QVERIFY(peer.send("IM 0003 0BB96321 0BB96224 0BB90611"));
    QVERIFY(peer.send("IM 0003 0BB96321 0BB96226 0BB90622"));
    QVERIFY(peer.send("IM 0003 0BB96322 0BB96226 0BB90633"));
    QCOMPARE(engine.parameter(0x21, 36), 0x11);
    QCOMPARE(engine.parameter(0x21, 38), 0x22);
    QCOMPARE(engine.parameter(0x22, 38), 0x33);
    QCOMPARE(engine.parameter(0x22, 36), -1);
}

void ParametersTest::knowsNothingAtFirst()
{
    const SoundEngine engine;
    QCOMPARE(engine.parameter(0x38, 0x07), -1);
    QCOMPARE(engine.parameterLow(0x38, 0x07), -1);
    QVERIFY(engine.parameters().isEmpty());
}

void ParametersTest::keepsUpWithTenThousandASecond()
{
    SoundEngine engine;
    QVERIFY(Peer::listen(&engine));
    Peer peer(&engine);
    const QByteArray datagram = testsupport::datagram("IM 0003 0BB96338 0BB96207 0BB90664");
    // The event loop runs once after every hundred datagrams, so the engine reads many at a time.
    QElapsedTimer time;
    time.start();
    for (int i = 0; i < 10000; ++i) {
        peer.post(datagram);
        if (i % 100 == 99)
            QCoreApplication::processEvents();
    }
    QTRY_COMPARE(engine.counters().parameters, quint64(10000));
    qInfo("10000 datagrams in %lld ms", time.elapsed());
}

QTEST_GUILESS_MAIN(ParametersTest)
#include "tst_parameters.moc"

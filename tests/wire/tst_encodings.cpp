#include "controllers/encodings.h"

#include <QTest>

#include <cmath>
#include <limits>

using namespace zelta;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double huge = std::numeric_limits<double>::max();
constexpr double tiny = std::numeric_limits<double>::denorm_min();

} // namespace

/// The encoding of settings as data bytes. The values are calculated by hand.
class EncodingsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onOffByte();
    void sevenBits_data();
    void sevenBits();
    void position_data();
    void position();
    void tuning_data();
    void tuning();
    void frequency_data();
    void frequency();
    void tempo_data();
    void tempo();
    void gain_data();
    void gain();
    void q_data();
    void q();
    void continuousParameter_data();
    void continuousParameter();
    void steppedParameter_data();
    void steppedParameter();
    void everyTypeButZeroIsStepped_data();
    void everyTypeButZeroIsStepped();
};

void EncodingsTest::onOffByte()
{
    QCOMPARE(int(onOff(true)), 1);
    QCOMPARE(int(onOff(false)), 0);
}

void EncodingsTest::sevenBits_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("byte");
    QTest::newRow("0") << 0 << 0;
    QTest::newRow("100") << 100 << 100;
    QTest::newRow("127") << 127 << 127;
    QTest::newRow("128") << 128 << 127;
    QTest::newRow("200") << 200 << 127;
    QTest::newRow("255") << 255 << 127;
}

void EncodingsTest::sevenBits()
{
    QFETCH(int, value);
    QTEST(int(limitedToSevenBits(quint8(value))), "byte");
}

void EncodingsTest::position_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("byte");
    QTest::newRow("0") << 0 << 0;
    QTest::newRow("1 gives 0") << 1 << 0;
    QTest::newRow("2") << 2 << 2;
    QTest::newRow("64") << 64 << 64;
    QTest::newRow("127") << 127 << 127;
    QTest::newRow("129") << 129 << 129;
    QTest::newRow("255") << 255 << 255;
}

void EncodingsTest::position()
{
    QFETCH(int, value);
    QTEST(int(positionWithoutOne(quint8(value))), "byte");
}

void EncodingsTest::tuning_data()
{
    QTest::addColumn<int>("semitones");
    QTest::addColumn<int>("byte");
    QTest::newRow("-128") << -128 << 0xC0;
    QTest::newRow("-65") << -65 << 0xFF;
    QTest::newRow("-64") << -64 << 0x00;
    QTest::newRow("-12") << -12 << 0x34;
    QTest::newRow("-1") << -1 << 0x3F;
    QTest::newRow("0") << 0 << 0x40;
    QTest::newRow("1") << 1 << 0x41;
    QTest::newRow("63") << 63 << 0x7F;
    QTest::newRow("64") << 64 << 0x80;
    QTest::newRow("127") << 127 << 0xBF;
}

void EncodingsTest::tuning()
{
    QFETCH(int, semitones);
    QTEST(int(coarseTuning(static_cast<signed char>(semitones))), "byte");
}

void EncodingsTest::frequency_data()
{
    QTest::addColumn<quint32>("value");
    QTest::addColumn<int>("lsb");
    QTest::addColumn<int>("msb");
    QTest::newRow("0") << 0U << 0x00 << 0x00;
    QTest::newRow("127") << 127U << 0x7F << 0x00;
    QTest::newRow("128") << 128U << 0x00 << 0x01;
    QTest::newRow("440") << 440U << 0x38 << 0x03;
    QTest::newRow("1000") << 1000U << 0x68 << 0x07;
    QTest::newRow("16000") << 16000U << 0x00 << 0x7D;
    QTest::newRow("16383") << 16383U << 0x7F << 0x7F;
    QTest::newRow("16384") << 16384U << 0x00 << 0x80;
    QTest::newRow("20000") << 20000U << 0x20 << 0x9C;
    QTest::newRow("32768") << 32768U << 0x00 << 0x00;
    QTest::newRow("4294967295") << 4294967295U << 0x7F << 0xFF;
}

void EncodingsTest::frequency()
{
    QFETCH(quint32, value);
    QTEST(int(fourteenBits(value).lsb), "lsb");
    QTEST(int(fourteenBits(value).msb), "msb");
}

void EncodingsTest::tempo_data()
{
    QTest::addColumn<int>("beatsPerMinute");
    QTest::addColumn<int>("lsb");
    QTest::addColumn<int>("msb");
    QTest::newRow("20") << 20 << 0x00 << 0x00;
    QTest::newRow("21") << 21 << 0x40 << 0x00;
    QTest::newRow("22") << 22 << 0x00 << 0x01;
    QTest::newRow("120") << 120 << 0x00 << 0x32;
    QTest::newRow("121") << 121 << 0x40 << 0x32;
    QTest::newRow("273") << 273 << 0x40 << 0x7E;
    QTest::newRow("276") << 276 << 0x00 << 0x80;
    QTest::newRow("532") << 532 << 0x00 << 0x00;
    QTest::newRow("19") << 19 << 0x40 << 0xFF;
    QTest::newRow("0") << 0 << 0x00 << 0xF6;
    QTest::newRow("65535") << 65535 << 0x40 << 0xF5;
}

void EncodingsTest::tempo()
{
    QFETCH(int, beatsPerMinute);
    QTEST(int(tempoEntry(quint16(beatsPerMinute)).lsb), "lsb");
    QTEST(int(tempoEntry(quint16(beatsPerMinute)).msb), "msb");
}

void EncodingsTest::gain_data()
{
    QTest::addColumn<int>("decibels");
    QTest::addColumn<int>("byte");
    // (gain + 15) * 127 / 30, rounded down.
    QTest::newRow("-15") << -15 << 0;
    QTest::newRow("-14") << -14 << 4;
    QTest::newRow("-13") << -13 << 8;
    QTest::newRow("-12") << -12 << 12;
    QTest::newRow("-11") << -11 << 16;
    QTest::newRow("-10") << -10 << 21;
    QTest::newRow("-9") << -9 << 25;
    QTest::newRow("-8") << -8 << 29;
    QTest::newRow("-7") << -7 << 33;
    QTest::newRow("-6") << -6 << 38;
    QTest::newRow("-5") << -5 << 42;
    QTest::newRow("-4") << -4 << 46;
    QTest::newRow("-3") << -3 << 50;
    QTest::newRow("-2") << -2 << 55;
    QTest::newRow("-1") << -1 << 59;
    QTest::newRow("0") << 0 << 63;
    QTest::newRow("1") << 1 << 67;
    QTest::newRow("2") << 2 << 71;
    QTest::newRow("3") << 3 << 76;
    QTest::newRow("4") << 4 << 80;
    QTest::newRow("5") << 5 << 84;
    QTest::newRow("6") << 6 << 88;
    QTest::newRow("7") << 7 << 93;
    QTest::newRow("8") << 8 << 97;
    QTest::newRow("9") << 9 << 101;
    QTest::newRow("10") << 10 << 105;
    QTest::newRow("11") << 11 << 110;
    QTest::newRow("12") << 12 << 114;
    QTest::newRow("13") << 13 << 118;
    QTest::newRow("14") << 14 << 122;
    QTest::newRow("15") << 15 << 127;
    QTest::newRow("16 is limited") << 16 << 127;
    QTest::newRow("-16 is limited") << -16 << 0;
    QTest::newRow("highest number") << std::numeric_limits<int>::max() << 127;
    QTest::newRow("lowest number") << std::numeric_limits<int>::min() << 0;
}

void EncodingsTest::gain()
{
    QFETCH(int, decibels);
    QTEST(int(gainValue(decibels)), "byte");
}

void EncodingsTest::q_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("byte");
    QTest::newRow("0.1") << 0.1 << 0;
    QTest::newRow("just above 0.1") << std::nextafter(0.1, 1.0) << 0;
    QTest::newRow("0.16") << 0.16 << 0;
    QTest::newRow("0.17") << 0.17 << 1;
    QTest::newRow("0.5") << 0.5 << 6;
    QTest::newRow("0.7") << 0.7 << 9;
    QTest::newRow("1.0") << 1.0 << 14;
    QTest::newRow("2.0") << 2.0 << 30;
    QTest::newRow("3.0") << 3.0 << 46;
    QTest::newRow("4.0") << 4.0 << 62;
    QTest::newRow("5.0") << 5.0 << 78;
    QTest::newRow("7.9") << 7.9 << 125;
    QTest::newRow("7.95") << 7.95 << 126;
    QTest::newRow("8.0") << 8.0 << 127;
    QTest::newRow("just above 8.0") << std::nextafter(8.0, 9.0) << 127;
    QTest::newRow("12.0") << 12.0 << 127;
    QTest::newRow("0.05") << 0.05 << 0;
    QTest::newRow("0") << 0.0 << 0;
    QTest::newRow("negative zero") << -0.0 << 0;
    QTest::newRow("-4") << -4.0 << 0;
    QTest::newRow("not a number") << notANumber << 0;
    QTest::newRow("infinite") << infinity << 127;
    QTest::newRow("infinite below") << -infinity << 0;
    QTest::newRow("huge") << huge << 127;
    QTest::newRow("huge below") << -huge << 0;
    QTest::newRow("tiny") << tiny << 0;
    QTest::newRow("tiny below") << -tiny << 0;
}

void EncodingsTest::q()
{
    QFETCH(double, value);
    QTEST(int(qValue(value)), "byte");
}

void EncodingsTest::continuousParameter_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("min");
    QTest::addColumn<double>("max");
    QTest::addColumn<int>("byte");
    QTest::newRow("middle") << 0.5 << 0.0 << 1.0 << 63;
    QTest::newRow("at the lower end") << 0.0 << 0.0 << 1.0 << 0;
    QTest::newRow("at the upper end") << 1.0 << 0.0 << 1.0 << 127;
    QTest::newRow("just below the upper end") << std::nextafter(1.0, 0.0) << 0.0 << 1.0 << 126;
    QTest::newRow("above the range") << 2.0 << 0.0 << 1.0 << 127;
    QTest::newRow("below the range") << -5.0 << 0.0 << 10.0 << 0;
    QTest::newRow("far above the range") << 15.0 << 0.0 << 10.0 << 127;
    QTest::newRow("negative range") << -10.0 << -20.0 << 0.0 << 63;
    QTest::newRow("range across zero") << 5.0 << -20.0 << 20.0 << 79;
    QTest::newRow("each step of 127") << 20.0 << 0.0 << 127.0 << 20;
    QTest::newRow("reversed range") << 50.0 << 100.0 << 0.0 << 63;
    QTest::newRow("reversed range, quarter") << 0.25 << 1.0 << 0.0 << 31;
    QTest::newRow("reversed range, above") << 7.0 << 1.0 << 0.0 << 127;
    QTest::newRow("empty range") << 3.0 << 3.0 << 3.0 << 0;
    QTest::newRow("above an empty range") << 5.0 << 3.0 << 3.0 << 0;
    QTest::newRow("below an empty range") << 1.0 << 3.0 << 3.0 << 0;
    QTest::newRow("not a number") << notANumber << 0.0 << 1.0 << 0;
    QTest::newRow("lower end not a number") << 0.5 << notANumber << 1.0 << 0;
    QTest::newRow("upper end not a number") << 0.5 << 0.0 << notANumber << 0;
    QTest::newRow("value and range not a number") << notANumber << notANumber << notANumber << 0;
    QTest::newRow("infinite") << infinity << 0.0 << 1.0 << 127;
    QTest::newRow("infinite below") << -infinity << 0.0 << 1.0 << 0;
    QTest::newRow("infinite range") << 1.0 << 0.0 << infinity << 0;
    QTest::newRow("at the end of an infinite range") << infinity << 0.0 << infinity << 0;
    QTest::newRow("range infinite below") << 1.0 << -infinity << 2.0 << 0;
    QTest::newRow("range infinite on both sides") << 1.0 << -infinity << infinity << 0;
    QTest::newRow("huge") << huge << 0.0 << 1.0 << 127;
    QTest::newRow("huge below") << -huge << 0.0 << 1.0 << 0;
    QTest::newRow("range too wide for a number") << 0.0 << -huge << huge << 0;
    QTest::newRow("tiny") << tiny << 0.0 << 1.0 << 0;
    QTest::newRow("at the end of a tiny range") << tiny << 0.0 << tiny << 127;
    QTest::newRow("above a tiny range") << 1.0 << 0.0 << tiny << 127;
}

void EncodingsTest::continuousParameter()
{
    QFETCH(double, value);
    QFETCH(double, min);
    QFETCH(double, max);
    QTEST(int(effectParameter(value, min, max, 0)), "byte");
}

void EncodingsTest::steppedParameter_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("byte");
    QTest::newRow("0") << 0.0 << 0;
    QTest::newRow("0.9") << 0.9 << 0;
    QTest::newRow("3.7") << 3.7 << 3;
    QTest::newRow("12.9") << 12.9 << 12;
    QTest::newRow("127") << 127.0 << 127;
    QTest::newRow("128") << 128.0 << 128;
    QTest::newRow("255.9") << 255.9 << 255;
    QTest::newRow("256") << 256.0 << 0;
    QTest::newRow("300") << 300.0 << 44;
    QTest::newRow("-0.9") << -0.9 << 0;
    QTest::newRow("-1") << -1.0 << 255;
    QTest::newRow("-1.9") << -1.9 << 255;
    QTest::newRow("-256") << -256.0 << 0;
    QTest::newRow("-257") << -257.0 << 255;
    QTest::newRow("beyond 31 bits") << 2147483649.0 << 1;
    QTest::newRow("beyond 32 bits") << 4294967297.0 << 1;
    QTest::newRow("beyond 32 bits below") << -4294967297.0 << 255;
    QTest::newRow("beyond 53 bits") << 18014398509481984.0 << 0;
    QTest::newRow("huge") << huge << 0;
    QTest::newRow("huge below") << -huge << 0;
    QTest::newRow("tiny") << tiny << 0;
    QTest::newRow("not a number") << notANumber << 0;
    QTest::newRow("infinite") << infinity << 0;
    QTest::newRow("infinite below") << -infinity << 0;
}

void EncodingsTest::steppedParameter()
{
    QFETCH(double, value);
    // The range is ignored.
    QTEST(int(effectParameter(value, 0.0, 1.0, 1)), "byte");
    QTEST(int(effectParameter(value, notANumber, notANumber, 1)), "byte");
    QTEST(int(effectParameter(value, 5.0, 5.0, 1)), "byte");
}

void EncodingsTest::everyTypeButZeroIsStepped_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("byte");
    QTest::newRow("0") << 0 << 127;
    QTest::newRow("1") << 1 << 12;
    QTest::newRow("2") << 2 << 12;
    QTest::newRow("-1") << -1 << 12;
    QTest::newRow("256") << 256 << 12;
    QTest::newRow("highest number") << std::numeric_limits<int>::max() << 12;
    QTest::newRow("lowest number") << std::numeric_limits<int>::min() << 12;
}

void EncodingsTest::everyTypeButZeroIsStepped()
{
    QFETCH(int, type);
    QTEST(int(effectParameter(12.9, 0.0, 1.0, type)), "byte");
}

QTEST_APPLESS_MAIN(EncodingsTest)
#include "tst_encodings.moc"

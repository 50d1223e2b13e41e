#include "support/connectedmodule.h"
#include "support/datagram.h"
#include "support/texts.h"

#include <QGuiApplication>
#include <QHash>
#include <QTest>

using namespace testsupport;

namespace {

struct PadEvent
{
    int note;
    quint32 packed; ///< zone, pad, note, 100
};

// This byte ends a SysEx message at any position.
constexpr int sysExEnd = 0xF7;

constexpr PadEvent strikes[] = {
    {17, 0x02081164}, {18, 0x02091264}, {19, 0x02071364}, {21, 0x00071564}, {22, 0x020A1664},
    {23, 0x020B1764}, {24, 0x020C1864}, {25, 0x020D1964}, {26, 0x01071A64}, {36, 0x00002464},
    {37, 0x01012564}, {38, 0x00012664}, {39, 0x01052764}, {40, 0x01012864}, {41, 0x00052964},
    {42, 0x00072A64}, {43, 0x00042B64}, {44, 0x00072C64}, {45, 0x00032D64}, {46, 0x00072E64},
    {47, 0x01032F64}, {48, 0x00023064}, {49, 0x00083164}, {50, 0x01023264}, {51, 0x00063364},
    {52, 0x01093464}, {53, 0x02063564}, {55, 0x01083764}, {57, 0x00093964}, {58, 0x01043A64},
    {59, 0x01063B64}, {88, 0x000A5864}, {89, 0x010A5964}, {90, 0x000B5A64}, {91, 0x010B5B64},
    {92, 0x000C5C64}, {93, 0x010C5D64}, {94, 0x000D5E64}, {95, 0x010D5F64},
};

constexpr PadEvent pressures[] = {
    {17, 0x04081164}, {18, 0x04091264}, {19, 0x04071364}, {21, 0x04071564}, {22, 0x040A1664},
    {23, 0x040B1764}, {24, 0x040C1864}, {25, 0x040D1964}, {26, 0x04071A64}, {42, 0x04072A64},
    {44, 0x04072C64}, {46, 0x04072E64}, {49, 0x04083164}, {51, 0x04063364}, {52, 0x04093464},
    {53, 0x04063564}, {55, 0x04083764}, {57, 0x04093964}, {59, 0x04063B64}, {88, 0x040A5864},
    {89, 0x040A5964}, {90, 0x040B5A64}, {91, 0x040B5B64}, {92, 0x040C5C64}, {93, 0x040C5D64},
    {94, 0x040D5E64}, {95, 0x040D5F64},
};

template<size_t size>
QHash<int, quint32> table(const PadEvent (&events)[size])
{
    QHash<int, quint32> result;
    for (const PadEvent &event : events)
        result.insert(event.note, event.packed);
    return result;
}

QByteArray noteEvent(const char *head, int note)
{
    return datagram(head) + char(100) + char(note);
}

QString handOver(int status, int note)
{
    return QStringLiteral("notePacketArrived(18765, %1, %2)").arg(status).arg(100 * 256 + note);
}

} // namespace

/// The maps from notes to pads: all 128 notes, and the 128 values above them.
class PadNotesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void strike_data();
    void strike();
    void pressure_data();
    void pressure();
    void mapsAreComplete();

private:
    void rows(const QHash<int, quint32> &events);
};

void PadNotesTest::rows(const QHash<int, quint32> &events)
{
    QTest::addColumn<int>("note");
    QTest::addColumn<bool>("known");
    QTest::addColumn<quint32>("packed");
    for (int note = 0; note < 256; ++note)
        QTest::addRow("note %d", note) << note << events.contains(note) << events.value(note);
}

void PadNotesTest::strike_data()
{
    rows(table(strikes));
}

void PadNotesTest::strike()
{
    QFETCH(int, note);
    QFETCH(bool, known);
    QFETCH(quint32, packed);
    QStringList expected;
    if (known)
        expected += QStringLiteral("noteChanged()");
    if (note == 92 || note == 93)
        expected += texts({"aux3Changed()", "aux3Changed()"});
    if (note == 94 || note == 95)
        expected += texts({"aux4Changed()", "aux4Changed()"});
    if (note == sysExEnd)
        expected += QStringLiteral("sysEx(\"0999f764\")");
    expected += handOver(0x9909, note);

    ConnectedModule connected;
    QVERIFY(connected.deliver({noteEvent("IM AC 9909", note)}));
    QCOMPARE(connected.recorder.texts(), expected);
    QCOMPARE(connected.module.note(), packed);
    QCOMPARE(connected.module.afterTouchNote(), 0U);
}

void PadNotesTest::pressure_data()
{
    rows(table(pressures));
}

void PadNotesTest::pressure()
{
    QFETCH(int, note);
    QFETCH(bool, known);
    QFETCH(quint32, packed);
    QStringList expected;
    if (known)
        expected += QStringLiteral("afterTouchNoteChanged()");
    if (note == sysExEnd)
        expected += QStringLiteral("sysEx(\"0aa9f764\")");
    expected += handOver(0xA90A, note);

    ConnectedModule connected;
    QVERIFY(connected.deliver({noteEvent("IM AC A90A", note)}));
    QCOMPARE(connected.recorder.texts(), expected);
    QCOMPARE(connected.module.afterTouchNote(), packed);
    QCOMPARE(connected.module.note(), 0U);
}

void PadNotesTest::mapsAreComplete()
{
    QCOMPARE(table(strikes).size(), 39);
    QCOMPARE(table(pressures).size(), 27);
}

QTEST_MAIN(PadNotesTest)
#include "tst_padnotes.moc"

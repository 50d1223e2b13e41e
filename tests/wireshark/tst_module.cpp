// Datagrams of the module: every row of the datagram table, from the product through a capture to tshark.

#include "simulator/message.h"
#include "support/enginepeer.h"
#include "wire/module.h"
#include "wire/wirerow.h"
#include "wireshark/capture.h"
#include "wireshark/dissection.h"
#include "wireshark/fieldrows.h"

#include <QGuiApplication>
#include <QTemporaryDir>
#include <QTest>

#include <vector>

using namespace testsupport;
using namespace zelta::wire;

namespace {

std::vector<WireRow> allRows()
{
    std::vector<WireRow> rows;
    for (const Table<WireRow> *table :
         {&directRows, &metronomeRows, &mixerRows, &padEqualizerRows, &outputEqualizerRows, &compressorRows,
          &padSoundRows, &effectRows, &triggerRows, &systemRows, &slotRows})
        rows.insert(rows.end(), table->begin(), table->end());
    return rows;
}

int datagramsDue(const WireRow &row)
{
    return *row.datagrams != '\0' ? (QByteArray(row.datagrams).count('|') + 1) * row.calls : 0;
}

struct Sent
{
    QByteArray call;
    QByteArray datagram;
};

constexpr char level[] = "IM 0003 0BB96338 0BB96207 0BB90664";
constexpr char tempo[] = "IM 0004 0BB96337 0BB96264 0BB92640 0BB90632";
constexpr char curve[] = "TC 0102 0000 0010 0020 0030 0040 0050 0060 0070 007F";
constexpr char fileStart[] = "DS IW 00000010 0007 6B69636B2E77617600";
constexpr char fileData[] = "DC SB 0000000C 0002 01020304";

constexpr FieldRow fieldRows[] = {
    {"parameter number", level, "zelta.nrpn.number", "0x3807"},
    {"parameter number, high byte", level, "zelta.nrpn.msb", "0x38"},
    {"parameter number, low byte", level, "zelta.nrpn.lsb", "0x07"},
    {"parameter name", level, "zelta.nrpn.name", "mixer master out level"},
    {"parameter value", level, "zelta.nrpn.value", "100"},
    {"direction", level, "zelta.direction", "to the engine"},
    {"tag", level, "zelta.tag", "IM"},
    {"number of events", level, "zelta.midi.count", "3"},
    {"events", level, "zelta.midi.event", "0bb96338|0bb96207|0bb90664"},
    {"code index", level, "zelta.midi.code_index", "0x0b|0x0b|0x0b"},
    {"status", level, "zelta.midi.status", "0xb9|0xb9|0xb9"},
    {"first data byte", level, "zelta.midi.data1", "99|98|6"},
    {"second data byte", level, "zelta.midi.data2", "56|7|100"},
    {"value with two bytes, high", tempo, "zelta.nrpn.value", "50"},
    {"value with two bytes, low", tempo, "zelta.nrpn.low", "64"},
    {"tempo as shown", tempo, "zelta.nrpn.shown", "121"},
    {"note", "IM 0001 09993C64", "zelta.note.number", "60"},
    {"velocity", "IM 0001 09993C64", "zelta.note.velocity", "100"},
    {"controller", "IM 0001 0BB90764", "zelta.controller.number", "7"},
    {"controller value", "IM 0001 0BB90764", "zelta.controller.value", "100"},
    {"program", "IM 0001 0CC90500", "zelta.program", "5"},
    {"SysEx", "IM 0002 04F07E7F 070601F7", "zelta.sysex.message", "f07e7f0601f7"},
    {"LED", "LD 0003 0001", "zelta.led.number", "3"},
    {"LED state", "LD 0003 0001", "zelta.led.state", "1"},
    {"curve", curve, "zelta.curve.id", "258"},
    {"curve points", curve, "zelta.curve.point", "0|16|32|48|64|80|96|112|127"},
    {"bluetooth name", "BN 4B6974 0000000000000000000000000000000000000000000000000000000000",
     "zelta.bluetooth.name", "Kit"},
    {"query", "VN 0000", "zelta.query", "VN"},
    {"content", fileStart, "zelta.transfer.content", "IW"},
    {"file size", fileStart, "zelta.transfer.size", "16"},
    {"slot", fileStart, "zelta.transfer.slot", "7"},
    {"file name", fileStart, "zelta.transfer.name", "kick.wav"},
    {"packet", fileData, "zelta.transfer.packet", "12"},
    {"words", fileData, "zelta.transfer.words", "2"},
    {"chunk", fileData, "zelta.transfer.chunk", "01020304"},
    {"checksum", "DE SB 00000402", "zelta.transfer.checksum", "0x00000402"},
};

} // namespace

class ModuleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void readsAsTheSimulatorReads_data();
    void readsAsTheSimulatorReads();
    void fields_data();
    void fields();

private:
    void send(EnginePeer *peer, Module *module);

    QTemporaryDir m_dir;
    std::vector<Sent> m_sent;
    QVector<Dissection::Frame> m_frames;
};

void ModuleTest::send(EnginePeer *peer, Module *module)
{
    for (const WireRow &row : allRows()) {
        for (int call = 0; call < row.calls; ++call)
            QCOMPARE(module->callFromQml(QString::fromLatin1(row.method), QString::fromLatin1(row.arguments)),
                     QString());
        for (int i = 0; i < datagramsDue(row); ++i) {
            const QByteArray datagram = peer->next();
            QVERIFY2(!datagram.isNull(), row.method);
            m_sent.push_back({QByteArray(row.method) + '(' + row.arguments + ") " + row.meaning, datagram});
        }
    }
}

void ModuleTest::initTestCase()
{
    EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    Module module;
    QVERIFY2(module.object(), qPrintable(module.errorString()));
    QVERIFY(peer.connectTo(module.object()));
    for (const WireRow &row : allRows()) {
        if (row.warning != nullptr)
            QTest::ignoreMessage(QtWarningMsg, row.warning);
    }
    send(&peer, &module);
    QVERIFY(!QTest::currentTestFailed());

    const QString path = m_dir.filePath(QStringLiteral("module.pcap"));
    Capture capture(path);
    QVERIFY(capture.isOpen());
    for (const Sent &sent : m_sent)
        capture.append(Capture::Direction::ToEngine, sent.datagram);
    QVERIFY(capture.finish());
    const Dissection dissection(path);
    QCOMPARE(dissection.problem(), QString());
    m_frames = dissection.frames();
    QCOMPARE(m_frames.size(), int(m_sent.size()));
}

void ModuleTest::readsAsTheSimulatorReads_data()
{
    QTest::addColumn<QByteArray>("datagram");
    QTest::addColumn<int>("frame");
    for (std::size_t i = 0; i < m_sent.size(); ++i)
        QTest::addRow("%s, datagram %d", m_sent[i].call.constData(), int(i)) << m_sent[i].datagram << int(i);
}

void ModuleTest::readsAsTheSimulatorReads()
{
    QFETCH(QByteArray, datagram);
    QFETCH(int, frame);
    const Dissection::Frame &shown = m_frames.at(frame);
    const simulated::Message message = simulated::decode(datagram);
    QCOMPARE(shown.value(Dissection::text), simulated::describe(message));
    QCOMPARE(shown.value(Dissection::info), simulated::describe(message));
    QCOMPARE(shown.value(Dissection::protocol), QStringLiteral("ZeltaConnect"));
    QCOMPARE(message.violations, QStringList());
    QCOMPARE(shown.value(Dissection::reports), QString());
}

void ModuleTest::fields_data()
{
    addFieldRows(fieldRows, Capture::Direction::ToEngine, m_dir.filePath(QStringLiteral("fields.pcap")));
}

void ModuleTest::fields()
{
    compareField();
}

QTEST_MAIN(ModuleTest)
#include "tst_module.moc"

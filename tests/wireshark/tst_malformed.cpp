// Malformed datagrams and captures with truncated datagrams. tshark shows each of them without a Lua error.

#include "fuzz/support/input.h"
#include "simulator/message.h"
#include "support/datagram.h"
#include "wireshark/capture.h"
#include "wireshark/dissection.h"

#include <QDir>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

using testsupport::datagram;

namespace {

using Direction = Capture::Direction;

struct Datagram
{
    Direction direction;
    QByteArray bytes;
    int captured = -1;
};

// One of every form.
const char *const moduleForms[] = {
    "IM 0003 0BB96338 0BB96207 0BB90664",
    "IM 0004 0BB96337 0BB96264 0BB92640 0BB90632",
    "IM 0001 0BB90764",
    "IM 0001 09993C64",
    "IM 0001 08893C00",
    "IM 0001 0CC90500",
    "IM 0002 04F07E7F 070601F7",
    "PW 0002 0BB9634F 0BB96246",
    "LD 0003 0001",
    "TC 0102 0000 0010 0020 0030 0040 0050 0060 0070 007F",
    "BN 4B6974 0000000000000000000000000000000000000000000000000000000000",
    "VN 0000",
    "DS SB 00000401",
    "DS IW 00000010 0007 6B69636B2E77617600",
    "DS BF 00000010 4950",
    "DC SB 0000000C 0002 01020304",
    "DE SB 00000402",
};

const char *const engineForms[] = {
    "BT AC 0003 FFFF",
    "TM AC 0078 0000",
    "SW AC 5057 0001",
    "CO AC 0002 0001",
    "FR AC 0001 0002",
    "IM AC 9909 6426",
    "IM AC A90A 7F31",
    "IM AC B90B 4004",
    "IM AC C90C 0005",
    "IM AC F004 4110",
    "IM AC F705 0000",
    "VN AC 0001 0004",
    "DC AC 0005 01BE",
    "DE AC 0000 0000",
    "CR 0001 0007 000E 0015 001C 0023 002A",
    "DR 0001 0002 0003 0004 0005 0006 0007 0008 0009 000A 000B 000C 000D 000E 000F 0010 0011 0012",
};

QVector<Datagram> wholeForms()
{
    QVector<Datagram> forms;
    for (const char *form : moduleForms)
        forms.append({Direction::ToEngine, datagram(form)});
    for (const char *form : engineForms)
        forms.append({Direction::FromEngine, datagram(form)});
    return forms;
}

// Every form with bytes changed, removed or added, so that the first bytes often do not match the rest.
QVector<Datagram> mutatedForms()
{
    constexpr int mutationsOfEach = 200;
    QRandomGenerator random(1);
    QVector<Datagram> mutated;
    const QVector<Datagram> forms = wholeForms();
    for (const Datagram &form : forms) {
        for (int i = 0; i < mutationsOfEach; ++i) {
            Datagram datagram = form;
            QByteArray &bytes = datagram.bytes;
            for (int changes = random.bounded(3); changes >= 0; --changes)
                bytes[random.bounded(bytes.size())] = char(random.bounded(256));
            if (random.bounded(4) == 0)
                bytes.chop(random.bounded(bytes.size()));
            else if (random.bounded(4) == 0)
                bytes.append(QByteArray(random.bounded(6), char(random.bounded(256))));
            mutated.append(datagram);
        }
    }
    return mutated;
}

// Decodes an input of the fuzzer for inbound datagrams. Each datagram is a length and that number of bytes,
// or the number of a form and its contents.
QVector<Datagram> datagramsOfInput(const QByteArray &bytes)
{
    constexpr int shortLengths = 64;
    constexpr int forms = 9;
    fuzz::Input input(reinterpret_cast<const std::uint8_t *>(bytes.constData()), std::size_t(bytes.size()));
    QVector<Datagram> datagrams;
    const auto append = [&](const QByteArray &datagram) {
        datagrams.append({Direction::FromEngine, datagram});
        datagrams.append({Direction::ToEngine, datagram});
    };
    while (!input.atEnd()) {
        const quint8 first = input.byte();
        if (first < shortLengths) {
            append(input.bytes(first));
            continue;
        }
        switch ((first - shortLengths) % forms) {
        case 0: {
            const QByteArray kind = input.bytes(2);
            append(kind + "AC" + input.bytes(4));
            break;
        }
        case 1: append("IMAC" + input.bytes(4)); break;
        case 2: append("CR" + input.bytes(14)); break;
        case 3: append("DR" + input.bytes(36)); break;
        case 4: {
            const int length = input.word() % 60000;
            const QByteArray start = input.bytes(8);
            append(start.leftJustified(length, start.back(), true));
            break;
        }
        case 8: {
            const QByteArray starts[] = {"IMAC", "SWAC", "CR", "DR"};
            const QByteArray start = starts[input.index(4)];
            const int length = input.index(shortLengths);
            append((start + input.bytes(4)).leftJustified(length, '\x01', true));
            break;
        }
        default: break; // pauses and repetitions
        }
    }
    return datagrams;
}

QString nameOf(const Datagram &datagram)
{
    return QString::fromLatin1(datagram.bytes.left(64).toHex(' '));
}

} // namespace

class MalformedTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void changedDatagramsReadAsTheSimulatorReads();
    void datagramsThatAreCutShort();
    void corpusOfTheFuzzer();
    void datagramWithinAnErrorMessage();

private:
    // Dissects the datagrams, without empty ones, because tshark does not pass them to a dissector.
    Dissection dissect(QVector<Datagram> *datagrams, const QStringList &fields = {});

    QTemporaryDir m_dir;
};

Dissection MalformedTest::dissect(QVector<Datagram> *datagrams, const QStringList &fields)
{
    const auto isEmpty = [](const Datagram &datagram) {
        return datagram.bytes.isEmpty();
    };
    datagrams->erase(std::remove_if(datagrams->begin(), datagrams->end(), isEmpty), datagrams->end());
    const QString path = m_dir.filePath(QStringLiteral("malformed.pcap"));
    Capture capture(path);
    for (const Datagram &datagram : qAsConst(*datagrams))
        capture.append(datagram.direction, datagram.bytes, datagram.captured);
    capture.finish();
    return Dissection(path, fields);
}

void MalformedTest::changedDatagramsReadAsTheSimulatorReads()
{
    const QString violation = QStringLiteral("zelta.expert.violation");
    QVector<Datagram> datagrams = mutatedForms();
    const Dissection dissection = dissect(&datagrams, {violation});
    QCOMPARE(dissection.problem(), QString());
    QCOMPARE(dissection.frames().size(), datagrams.size());
    int unreadable = 0;
    int wrong = 0;
    for (int i = 0; i < datagrams.size(); ++i) {
        const Datagram &datagram = datagrams.at(i);
        const Dissection::Frame &frame = dissection.frames().at(i);
        const QString text = frame.value(Dissection::text);
        const QByteArray name = nameOf(datagram).toLatin1();
        QVERIFY2(!text.isEmpty(), name);
        if (datagram.direction == Direction::FromEngine)
            continue;
        const simulated::Message message = simulated::decode(datagram.bytes);
        if (message.kind == simulated::Message::Kind::Unreadable) {
            ++unreadable;
            QVERIFY2(text.startsWith(QLatin1String("unreadable datagram: ")), name);
            continue;
        }
        // Names are compared up to the first byte that is not ASCII, because tshark shows such bytes
        // differently.
        QString expected = simulated::describe(message);
        int comparable = 0;
        while (comparable < expected.size() && expected.at(comparable).unicode() < 0x80)
            ++comparable;
        expected.truncate(comparable);
        QVERIFY2(text.startsWith(expected), name + ": " + text.toUtf8() + " instead of " + expected.toUtf8());
        // Packets of a file may also be reported because of earlier datagrams.
        const bool isReported = !frame.value(violation).isEmpty();
        const bool isPacket = message.kind == simulated::Message::Kind::TransferData ||
                              message.kind == simulated::Message::Kind::TransferEnd;
        QVERIFY2(isReported || message.violations.isEmpty(), name);
        QVERIFY2(!isReported || !message.violations.isEmpty() || isPacket, name);
        wrong += message.violations.isEmpty() ? 0 : 1;
    }
    QVERIFY(unreadable > 100);
    QVERIFY(wrong > 100);
}

void MalformedTest::datagramsThatAreCutShort()
{
    QVector<Datagram> datagrams;
    const QVector<Datagram> forms = wholeForms();
    for (const Datagram &form : forms) {
        for (int captured = 0; captured < form.bytes.size(); ++captured)
            datagrams.append({form.direction, form.bytes, captured});
    }
    const Dissection dissection = dissect(&datagrams);
    QCOMPARE(dissection.problem(), QString());
    QCOMPARE(dissection.frames().size(), datagrams.size());
    for (int i = 0; i < datagrams.size(); ++i) {
        const Datagram &datagram = datagrams.at(i);
        if (datagram.captured == 0)
            continue; // tshark does not call the dissector
        const QString report = QStringLiteral("%1 of %2 bytes are in the capture")
                                   .arg(datagram.captured)
                                   .arg(datagram.bytes.size());
        const Dissection::Frame &frame = dissection.frames().at(i);
        QVERIFY2(frame.value(Dissection::reports).contains(report), qPrintable(nameOf(datagram)));
        QVERIFY2(!frame.value(Dissection::text).isEmpty(), qPrintable(nameOf(datagram)));
    }

    // The header of a data packet is sufficient to read it.
    datagrams = {{Direction::ToEngine, datagram("DC SB 0000000C 0002 01020304"), 10}};
    QCOMPARE(dissect(&datagrams).frames().at(0).value(Dissection::text),
             QStringLiteral("transfer data SB, packet 12, 4 bytes"));
}

void MalformedTest::corpusOfTheFuzzer()
{
    QVector<Datagram> datagrams;
    const QDir corpus(QStringLiteral(FUZZ_CORPUS_DIR));
    const QStringList names = corpus.entryList(QDir::Files);
    QVERIFY(names.size() > 20);
    for (const QString &name : names) {
        QFile file(corpus.filePath(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        datagrams += datagramsOfInput(file.readAll());
    }
    const Dissection dissection = dissect(&datagrams);
    QCOMPARE(dissection.problem(), QString());
    QCOMPARE(dissection.frames().size(), datagrams.size());
    for (int i = 0; i < datagrams.size(); ++i)
        QVERIFY2(!dissection.frames().at(i).value(Dissection::text).isEmpty(),
                 qPrintable(nameOf(datagrams.at(i))));
}

void MalformedTest::datagramWithinAnErrorMessage()
{
    const QString path = m_dir.filePath(QStringLiteral("unreachable.pcap"));
    Capture capture(path);
    capture.append(Direction::ToEngine, datagram("DS SB 00000402"));
    capture.append(Direction::ToEngine, datagram("DC SB 00000000 0001 0102"));
    // The engine is off. Its host quotes the datagram, which must not start the transfer again.
    capture.appendUnreachable(datagram("DS SB 00000402"));
    capture.append(Direction::ToEngine, datagram("DC SB 00000001 0001 0102"));
    QVERIFY(capture.finish());
    const QString start = QStringLiteral("zelta.transfer.start_in");
    const Dissection dissection(path, {start});
    QCOMPARE(dissection.problem(), QString());
    QVERIFY(dissection.frames().at(2).value(Dissection::info).contains(QLatin1String("unreachable")));
    QCOMPARE(dissection.frames().at(3).value(start), QStringLiteral("1"));
}

QTEST_GUILESS_MAIN(MalformedTest)
#include "tst_malformed.moc"

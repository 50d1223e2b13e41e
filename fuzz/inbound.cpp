// Datagrams of the engine: receive loop, classification, decoding of the MIDI stream, and dispatch to the
// properties and signals of the QML type.

#include "fuzz/support/input.h"
#include "fuzz/support/module.h"
#include "fuzz/support/producttime.h"
#include "fuzz/support/require.h"
#include "fuzz/support/wire.h"

#include <QMetaProperty>

#include <algorithm>
#include <array>

using namespace fuzz;

namespace {

constexpr int largestDatagram = 65507;

// A byte below this number is the length of a datagram, all others select a kind.
constexpr int shortLengths = 64;
enum Form {
    Event,
    MidiEvent,
    CompressorMeters,
    OutputMeters,
    Long,
    Again,
    TimePasses,
    Settled,
    OddLength,
    FormCount
};

/// The datagrams of one input.
class Traffic
{
public:
    void take(Input &input);
    void settleAfter();

private:
    void append(const QByteArray &datagram);

    QList<QByteArray> m_datagrams;
    int m_bytesLeft = largestDatagram + 4096;
    int m_datagramsLeft = 512;
};

// More datagrams take longer without finding more.
void Traffic::append(const QByteArray &datagram)
{
    if (m_bytesLeft < datagram.size() || m_datagramsLeft == 0)
        return;
    m_bytesLeft -= datagram.size();
    --m_datagramsLeft;
    m_datagrams.append(datagram);
}

void Traffic::settleAfter()
{
    deliver(m_datagrams);
    m_datagrams.clear();
    settle();
}

void Traffic::take(Input &input)
{
    constexpr std::chrono::milliseconds timeUnit{10};
    const quint8 first = input.byte();
    if (first < shortLengths) {
        append(input.bytes(first));
        return;
    }
    switch ((first - shortLengths) % FormCount) {
    case Event: {
        const QByteArray kind = input.bytes(2);
        append(kind + "AC" + input.bytes(4));
        break;
    }
    case MidiEvent: append("IMAC" + input.bytes(4)); break;
    case CompressorMeters: append("CR" + input.bytes(14)); break;
    case OutputMeters: append("DR" + input.bytes(36)); break;
    case Long: {
        const int length = input.word() % (largestDatagram + 1);
        const QByteArray start = input.bytes(8);
        append(start.leftJustified(length, start.back()));
        break;
    }
    case Again:
        for (int count = input.byte(); count > 0 && !m_datagrams.isEmpty(); --count)
            append(m_datagrams.last());
        break;
    case TimePasses:
        settleAfter();
        passTime(timeUnit * input.byte());
        break;
    case OddLength: {
        static const std::array<QByteArray, 4> starts{"IMAC", "SWAC", "CR", "DR"};
        const QByteArray start = starts.at(std::size_t(input.index(starts.size())));
        const int length = input.index(shortLengths);
        append((start + input.bytes(4)).leftJustified(length, '\x01', true));
        break;
    }
    default: settleAfter(); break;
    }
}

// Resets the state of an earlier input: decoder, switches and timers.
void putAtRest()
{
    const QByteArray endOfSysEx("IMAC\xF7\x05\x00\x00", 8);
    QList<QByteArray> datagrams{endOfSysEx};
    const QByteArray parts[] = {QByteArray("IMAC\xB9\x0B\x00\x63", 8), QByteArray("IMAC\xB9\x0B\x00\x62", 8),
                                QByteArray("IMAC\xB9\x0B\x00\x06", 8)};
    for (const QByteArray &part : parts)
        datagrams.append(part);
    for (const char *name : {"PW", "F1", "F2", "A3", "A4", "HP", "MI", "HM"})
        datagrams.append(QByteArray("SWAC") + name + QByteArray(2, '\0'));
    deliver(datagrams);
    settle();
    passTime(std::chrono::seconds(1));
    settle();
}

bool isByteText(const QString &text)
{
    const auto isDigit = [](QChar c) {
        return c.isDigit() || (c >= QLatin1Char('a') && c <= QLatin1Char('f'));
    };
    return text.size() == 2 && std::all_of(text.cbegin(), text.cend(), isDigit);
}

void watchSignals()
{
    QObject::connect(&module(), &QConnectQmlPlugin::testCommand,
                     [](const QString &high, const QString &low, const QString &value) {
                         require(isByteText(high) && isByteText(low) && isByteText(value),
                                 "a test command is three bytes in hex");
                     });
    QObject::connect(&module(), &QConnectQmlPlugin::sysEx, [](const QString &message) {
        require(!message.isEmpty() && message.size() % 8 == 0, "a SysEx message consists of whole events");
    });
    QObject::connect(&module(), &QConnectQmlPlugin::programChanged,
                     [](int program) { require(program >= 0 && program < 128, "a program has seven bits"); });
}

void checkProperties()
{
    const QConnectQmlPlugin &object = module();
    const QMetaObject *meta = object.metaObject();
    for (int i = QConnectQmlPlugin::staticMetaObject.propertyOffset(); i < meta->propertyCount(); ++i) {
        const QVariant value = meta->property(i).read(&object);
        if (value.userType() == QMetaType::Double)
            require(value.toDouble() >= 0.0 && value.toDouble() <= 65535 / 70.0, "a level is in its range");
    }
    const auto number = [&object](const char *name) {
        return object.property(name).toUInt();
    };
    require((number("note") >> 16 & 0xFF) < 14 && number("note") >> 24 < 3, "a struck pad is one of the kit");
    require((number("afterTouchNote") >> 16 & 0xFF) < 14 &&
                (number("afterTouchNote") == 0 || number("afterTouchNote") >> 24 == 4),
            "a choked pad is one of the kit");
    require(number("position") <= 0x7F7F, "a position consists of two numbers of seven bits");
    require(number("tempo") <= 0xFFFF && number("beat") <= 0xFFFF, "tempo and beat are 16-bit numbers");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    module();
    watchSignals();
    startReceiving(&module());
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    putAtRest();
    Input input(data, size);
    Traffic traffic;
    while (!input.atEnd())
        traffic.take(input);
    traffic.settleAfter();
    checkProperties();
    return 0;
}

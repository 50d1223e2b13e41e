// Acknowledgements of every kind at every point of a running transfer, files that change during it, and
// destruction in the middle of it.

#include "fuzz/support/input.h"
#include "fuzz/support/module.h"
#include "fuzz/support/transferstops.h"
#include "transfer/qconnectfirmware.h"

#include <QFile>

#include <array>
#include <memory>

using namespace fuzz;

namespace {

// Tags of the engine's answers to queries, end packets and data.
constexpr std::array<quint16, 7> tags{0x564E, 0x5456, 0x534E, 0x544E, 0x484C, 0x4445, 0x4443};
constexpr quint16 dataTag = 0x4443;
constexpr quint16 endTag = 0x4445;

constexpr int mostTasks = 16;

class Transfers
{
public:
    Transfers() { renew(); }
    ~Transfers() { end(); }
    Q_DISABLE_COPY(Transfers)

    void perform(Input &input);
    void runToEnd();

private:
    void queue(Input &input);
    void goOn(int stops);
    void renew();
    void end();
    QString makeFile(Input &input, int kind);
    static void acknowledge(quint16 id, quint16 a, quint16 b);

    std::unique_ptr<qconnectfirmware> m_engine;
    std::unique_ptr<TransferStops> m_stops;
    QString m_path;
    int m_tasks = 0;
};

void Transfers::renew()
{
    m_engine = std::make_unique<qconnectfirmware>(&module(), nullptr);
    m_stops = std::make_unique<TransferStops>(m_engine.get());
}

void Transfers::end()
{
    m_stops->arrival();
    m_stops->leaveAlone();
    m_engine.reset();
    m_stops.reset();
}

void Transfers::acknowledge(quint16 id, quint16 a, quint16 b)
{
    QMetaObject::invokeMethod(&module(), "udpPacket", Qt::DirectConnection, Q_ARG(quint16, id),
                              Q_ARG(quint16, a), Q_ARG(quint16, b));
}

// Sizes around one and two chunks, around a pause, and others up to four pauses.
QString Transfers::makeFile(Input &input, int kind)
{
    constexpr std::array<int, 12> sizes{0, 1, 511, 512, 513, 1023, 1024, 1025, 5119, 5120, 10240, 20481};
    static const std::array<QString, 6> names{QStringLiteral("file.bin"), QStringLiteral("wave one.wav"),
                                              QStringLiteral("bt.b00"),   QStringLiteral("bt.b15"),
                                              QStringLiteral("bt.b16"),   QStringLiteral("bt.ipf")};
    const quint8 choice = input.byte();
    const int size = choice < sizes.size() ? sizes.at(choice) : choice * 80;
    QByteArray content;
    if (kind == 0)
        content = QByteArray("4810QN-abc") + input.bytes(6) + " - ";
    else if (kind == 1)
        content = QByteArray("TGFW") + input.bytes(4);
    while (content.size() < size)
        content.append(char(content.size() * 31));
    return writeFile(names.at(std::size_t(input.index(names.size()))), content);
}

void Transfers::queue(Input &input)
{
    if (++m_tasks > mostTasks)
        return;
    const int kind = input.index(10);
    if (kind < 7)
        m_path = makeFile(input, kind);
    switch (kind) {
    case 0: m_engine->sendZeltaFirmware(m_path); break;
    case 1: m_engine->sendTriggerFirmware(m_path); break;
    case 2: m_engine->sendSoundBank(m_path); break;
    case 3: m_engine->sendTriggerBank(m_path); break;
    case 4:
        m_engine->sendImportSoundBank(m_path, QString::fromUtf8(input.bytes(4)), qint16(input.word()));
        break;
    case 5: m_engine->sendImportWaveSample(m_path, qint16(input.word())); break;
    case 6: m_engine->sendBtFirmware(m_path); break;
    case 7: m_engine->requestSoundBankVersion(); break;
    case 8: m_engine->requestTriggerBankVersion(); break;
    default: m_engine->requestHHRawValue(); break;
    }
}

void Transfers::goOn(int stops)
{
    for (; stops > 0 && m_stops->arrival() != TransferStops::Stop::None; --stops)
        m_stops->letGo();
}

void Transfers::perform(Input &input)
{
    m_stops->arrival();
    switch (input.index(16)) {
    case 0: queue(input); break;
    case 1: goOn(1); break;
    case 2: goOn(input.byte()); break;
    case 3: acknowledge(endTag, 0, 0); break;
    case 4: acknowledge(endTag, input.word(), input.word()); break;
    case 5: acknowledge(dataTag, input.byte(), 0x00BE); break;
    case 6: acknowledge(dataTag, input.word(), input.word()); break;
    case 7: acknowledge(dataTag, input.word(), 0x00E0 | input.byte()); break;
    case 8: acknowledge(tags.at(std::size_t(input.index(tags.size()))), input.word(), input.word()); break;
    case 9: acknowledge(input.word(), input.word(), input.word()); break;
    case 10: QFile::resize(m_path, input.word()); break;
    case 11: QFile::remove(m_path); break;
    case 12:
        end();
        renew();
        break;
    case 13: m_engine->checkBtFirmware({m_path}); break;
    case 14:
        m_engine->getZeltaVersion();
        m_engine->getTriggerBoardVersion();
        m_engine->getSoundBankVersion();
        m_engine->getTriggerBankVersion();
        break;
    default:
        m_stops->leaveAlone();
        m_engine->stop();
        break;
    }
}

void Transfers::runToEnd()
{
    while (m_stops->arrival() != TransferStops::Stop::None)
        m_stops->letGo();
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    module();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Input input(data, size);
    const bool endInTheMiddle = (input.byte() & 1) != 0;
    Transfers transfers;
    while (!input.atEnd())
        transfers.perform(input);
    if (!endInTheMiddle)
        transfers.runToEnd();
    return 0;
}

#include "transferloop.h"

#include "control/qconnectqmlplugin.h"
#include "tests/transfer/session.h"

#include <QFile>

#include <iterator>

namespace {

constexpr int fileBytes = 60001;
constexpr qint64 longestMs = 60000; // a resend takes 4 s, and no fault here causes more than two
constexpr int watchMs = 500;

enum Kind { SoundBank, TriggerBank, WaveSample, Bluetooth, KindCount };

} // namespace

// The files are short. On a busy machine, the module can send a whole file before it reads the engine's
// resend request. It then reports that the file did not arrive.
const TransferLoop::Fault TransferLoop::faults[] = {
    {"", End::Arrives},
    {"resend=20", End::Either},
    {"", End::Arrives},
    {"refuse-e5=20", End::Fails},
    {"lose-once=20", End::Either},
    {"duplicate-once=20", End::Arrives},
    {"bad-checksum", End::Fails},
    {"", End::Arrives},
    {"delay-once=20", End::Either},
    {"stray-acks=20", End::Arrives},
    {"unknown-low-byte=20", End::Either},
};

TransferLoop::TransferLoop(QConnectQmlPlugin &plugin, SoakEngine &engine)
    : m_plugin(plugin)
    , m_engine(engine)
    , m_path(m_folder.filePath(QStringLiteral("file.b00")))
{
    QObject::connect(&plugin, &QConnectQmlPlugin::soundbankTransferComplete, &plugin,
                     [this](int status) { completed(SoundBank, status); });
    QObject::connect(&plugin, &QConnectQmlPlugin::triggerbankTransferComplete, &plugin,
                     [this](int status) { completed(TriggerBank, status); });
    QObject::connect(&plugin, &QConnectQmlPlugin::waveTransferComplete, &plugin,
                     [this](int /*slot*/, int status) { completed(WaveSample, status); });
    QObject::connect(&plugin, &QConnectQmlPlugin::bluetoothTransferComplete, &plugin,
                     [this](int status) { completed(Bluetooth, status); });
    QObject::connect(&m_watch, &QTimer::timeout, &plugin, [this] { watch(); });
}

void TransferLoop::start()
{
    m_watch.start(watchMs);
    sendNext();
}

bool TransferLoop::finish()
{
    m_over = true;
    return !m_sending;
}

void TransferLoop::sendNext()
{
    const Fault &fault = faults[std::size_t(m_next) % std::size(faults)];
    m_engine.clearFailures();
    if (qstrlen(fault.mode) > 0 && !m_engine.fail(QLatin1String(fault.mode)))
        qFatal("%s is not a failure mode", fault.mode);
    m_filesBefore = m_engine.fileCount();

    m_content = noise(fileBytes, quint32(m_next) + 1);
    QFile file(m_path);
    if (!file.open(QIODevice::WriteOnly) || file.write(m_content) != m_content.size())
        qFatal("cannot write %s", qPrintable(m_path));
    file.close();

    m_sending = true;
    m_since.start();
    switch (m_next % KindCount) {
    case SoundBank: m_plugin.sendSoundBank(m_path); break;
    case TriggerBank: m_plugin.sendTriggerBank(m_path); break;
    case WaveSample: m_plugin.sendImportWaveSample(m_path, m_next & 0xFFFF); break;
    default: m_plugin.sendBtFw(m_path); break;
    }
}

void TransferLoop::completed(int kind, int status)
{
    const Fault &fault = faults[std::size_t(m_next) % std::size(faults)];
    if (!m_sending || kind != m_next % KindCount) {
        m_problems.append(QStringLiteral("end reported for a transfer that does not run, kind %1").arg(kind));
        return;
    }
    m_sending = false;
    judge(fault, status);
    ++m_next;
    if (!m_over)
        sendNext();
}

void TransferLoop::judge(const Fault &fault, int status)
{
    const QString name = QStringLiteral("transfer %1 of kind %2 with fault '%3'")
                             .arg(m_next)
                             .arg(m_next % KindCount)
                             .arg(QLatin1String(fault.mode));
    const bool isNew = m_engine.fileCount() == m_filesBefore + 1;
    const SoundEngine::ReceivedFile file = m_engine.takeLastFile();
    const bool whole = isNew && file.outcome == SoundEngine::ReceivedFile::Outcome::Whole;
    if (whole && file.data != m_content)
        m_problems.append(name + QStringLiteral(": accepted, but with different content"));
    if ((status == 0) != whole)
        m_problems.append(name +
                          QStringLiteral(": status %1, but the file %2")
                              .arg(status)
                              .arg(whole ? QStringLiteral("arrived") : QStringLiteral("did not arrive")));
    if (fault.end != End::Either && whole != (fault.end == End::Arrives))
        m_problems.append(name + QStringLiteral(": status %1").arg(status));
    ++(whole ? m_arrived : m_failed);
}

void TransferLoop::watch()
{
    if (!m_sending || !m_since.hasExpired(longestMs))
        return;
    m_problems.append(QStringLiteral("transfer %1 did not end").arg(m_next));
    m_sending = false;
    m_over = true;
}

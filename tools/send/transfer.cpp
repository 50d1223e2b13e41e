#include "transfer.h"

#include "enginewords.h"

#include <QFile>
#include <QFileInfo>
#include <QVariant>

#include <limits>

namespace {

// Low byte of the engine's answer to data.
constexpr ushort resendCode = 0xBE;
constexpr ushort refusalCodes = 0xE0;
constexpr ushort memoryFullFirst = 0xE1;
constexpr ushort memoryFullLast = 0xE3;

constexpr qint64 bluetoothPacketBytes = 512;

// Longer than the four seconds that the module pauses before it sends again.
constexpr int quietMs = 6000;
constexpr int mostUnansweredProbes = 2;

QString hexWord(ushort word)
{
    return QStringLiteral("0x%1").arg(word, 2, 16, QLatin1Char('0'));
}

// Both kinds of firmware count in a major and a minor number.
QString versionText(int version)
{
    return QStringLiteral("%1.%2").arg(version >> 16).arg(version & 0xFFFF, 2, 10, QLatin1Char('0'));
}

} // namespace

QString fileProblem(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return QStringLiteral("no such file: %1").arg(path);
    if (!info.isFile())
        return QStringLiteral("not a file: %1").arg(path);
    if (info.size() == 0)
        return QStringLiteral("the file is empty: %1").arg(path);
    if (info.size() > qint64(std::numeric_limits<quint32>::max()))
        return QStringLiteral("the file is larger than 4 GiB: %1").arg(path);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QStringLiteral("cannot read %1: %2").arg(path, file.errorString());
    return {};
}

Transfer::Transfer(QObject *module, const Kind &kind, const FileToSend &file, QObject *parent)
    : QObject(parent)
    , m_module(module)
    , m_kind(kind)
    , m_file(file)
    , m_quiet(this)
{
    connect(&m_quiet, &QTimer::timeout, this, &Transfer::onQuiet);
}

void Transfer::watch()
{
    connect(m_module, SIGNAL(udpPacketArrived(ushort, ushort, ushort)), this,
            SLOT(onEvent(ushort, ushort, ushort)));
    connect(m_module, SIGNAL(soundProgressChanged()), this, SLOT(onSoundProgress()));
    connect(m_module, SIGNAL(triggerProgressChanged()), this, SLOT(onTriggerProgress()));
    connect(m_module, SIGNAL(btfwProgressChanged()), this, SLOT(onBluetoothProgress()));
    connect(m_module, SIGNAL(waveTransferProgress(int, double)), this, SLOT(onWaveProgress(int, double)));
    connect(m_module, SIGNAL(intZeltaFirmwareUpdateStarted(int, int)), this,
            SLOT(onFirmwareStarted(int, int)));
    connect(m_module, SIGNAL(intTriggerFirmwareUpdateStarted(int, int)), this,
            SLOT(onFirmwareStarted(int, int)));
    connect(m_module, SIGNAL(updateZeltaFwComplete()), this, SLOT(onEngineFirmwareAccepted()));
    connect(m_module, SIGNAL(intZeltaFirmwareUpdateFinished()), this, SLOT(onEngineFirmwareFinished()));
    connect(m_module, SIGNAL(intTriggerFirmwareUpdateFinished()), this, SLOT(onTriggerFirmwareFinished()));
    connect(m_module, SIGNAL(soundbankTransferComplete(ushort, uint)), this,
            SLOT(onSoundbankComplete(ushort, uint)));
    connect(m_module, SIGNAL(triggerbankTransferComplete(ushort)), this, SLOT(onBankComplete(ushort)));
    connect(m_module, SIGNAL(bluetoothTransferComplete(ushort)), this, SLOT(onBankComplete(ushort)));
    connect(m_module, SIGNAL(waveTransferComplete(int, ushort)), this, SLOT(onWaveComplete(int, ushort)));
}

void Transfer::start()
{
    watch();
    switch (m_kind.extra) {
    case Kind::Extra::None:
        QMetaObject::invokeMethod(m_module, m_kind.method, Q_ARG(QString, m_file.path));
        break;
    case Kind::Extra::Slot:
        QMetaObject::invokeMethod(m_module, m_kind.method, Q_ARG(QString, m_file.path),
                                  Q_ARG(int, m_file.slot));
        break;
    case Kind::Extra::SlotAndName:
        QMetaObject::invokeMethod(m_module, m_kind.method, Q_ARG(QString, m_file.path),
                                  Q_ARG(QString, m_file.name), Q_ARG(int, m_file.slot));
        break;
    }
    m_quiet.start(quietMs);
    // Firmware that is not newer is passed over without a word.
    if (m_kind.isFirmware)
        Q_EMIT probeWanted();
}

void Transfer::engineIsIdle()
{
    if (m_over)
        return;
    if (m_begun) {
        finish(ExitStatus::Failed, QStringLiteral("broken off: the engine asked for data beyond the end, or "
                                                  "the file could not be read on"));
    } else if (!m_kind.isFirmware) {
        finish(ExitStatus::BadFile, QStringLiteral("the module could not open the file"));
    } else if (m_versionSeen) {
        finish(ExitStatus::NotNewer, QStringLiteral("not sent: the module has this version, or a newer one"));
    } else {
        finish(ExitStatus::BadFile, QStringLiteral("not sent: the file carries no firmware version"));
    }
}

void Transfer::onEvent(ushort id, ushort a, ushort b)
{
    if (m_over)
        return;
    if (id == EngineWord::EngineVersionAnswer || id == EngineWord::TriggerVersionAnswer) {
        m_versionSeen = true;
    } else if (id == EngineWord::EndAnswer) {
        m_endSeen = true;
        m_endStatus = b;
    } else if (id == EngineWord::DataAnswer) {
        onDataAnswer(a, b);
    } else {
        return; // the engine may talk of other things for ever
    }
    signOfLife();
}

void Transfer::onDataAnswer(ushort a, ushort b)
{
    const ushort code = b & 0xFF;
    if (code >= memoryFullFirst && code <= memoryFullLast) {
        finish(ExitStatus::Failed, QStringLiteral("the engine's memory is full (%1)").arg(hexWord(code)));
    } else if ((code & 0xF0) == refusalCodes) {
        m_refusal = code;
    } else if (code != 0) {
        // Other codes than the proper one make the module send again as well.
        if (code == resendCode)
            ++m_retransmissions;
        const qint64 number = qint64(b >> 8) << 16 | a;
        m_packetBytes = qMin(m_packetBytes, number * bluetoothPacketBytes);
        m_allSent = false;
    }
}

void Transfer::onSoundProgress()
{
    onFraction(m_module->property("soundBankProgress").toDouble());
}

void Transfer::onTriggerProgress()
{
    onFraction(m_module->property("triggerBankProgress").toDouble());
}

void Transfer::onWaveProgress(int /*slot*/, double progress)
{
    onFraction(progress);
}

// The property counts whole files of the set; but the signal comes once per packet.
void Transfer::onBluetoothProgress()
{
    m_packetBytes += bluetoothPacketBytes;
    onProgress(qMin(m_packetBytes, m_file.size));
}

void Transfer::onFraction(double fraction)
{
    onProgress(qRound64(fraction * double(m_file.size)));
}

void Transfer::onProgress(qint64 bytes)
{
    if (m_over)
        return;
    signOfLife();
    m_begun = true;
    // Beyond the end there is nothing to send, and the module breaks off.
    m_allSent = bytes == m_file.size;
    // An end that is acknowledged while data is still being sent is not the end of this file.
    m_endSeen = false;
    Q_EMIT progressed(bytes);
}

void Transfer::onFirmwareStarted(int currentVersion, int newVersion)
{
    m_begun = true;
    signOfLife();
    Q_EMIT noted(
        QStringLiteral("version %1 replaces %2").arg(versionText(newVersion), versionText(currentVersion)));
}

void Transfer::onEngineFirmwareFinished()
{
    if (m_firmwareAccepted || m_endStatus != 0 || m_refusal != 0)
        conclude(0);
    else
        finish(ExitStatus::Failed, QStringLiteral("the engine did not acknowledge the end"));
}

void Transfer::onSoundbankComplete(ushort status, uint retransmissions)
{
    m_retransmissions = int(retransmissions);
    conclude(status);
}

void Transfer::onWaveComplete(int /*slot*/, ushort status)
{
    conclude(status);
}

// The module has closed the file and reports this status.
void Transfer::conclude(ushort status)
{
    if (m_refusal != 0) {
        finish(ExitStatus::Failed,
               QStringLiteral("the engine refused the data (%1)").arg(hexWord(m_refusal)));
    } else if (!m_endSeen) {
        finish(ExitStatus::Failed, QStringLiteral("the engine did not acknowledge the end"));
    } else if (m_endStatus != 0 || status != 0) {
        finish(ExitStatus::Failed, QStringLiteral("checksum error: the file did not arrive whole (%1)")
                                       .arg(hexWord(m_endStatus != 0 ? m_endStatus : status)));
    } else {
        finish(ExitStatus::Sent, QStringLiteral("sent"));
    }
}

void Transfer::onQuiet()
{
    if (m_allSent)
        return;
    // Firmware tells no progress, so its silence may be nothing but a long file.
    if (m_quietTimes == mostUnansweredProbes && !m_kind.isFirmware) {
        finish(ExitStatus::NoEngine, QStringLiteral("the sound engine does not answer any more"));
        return;
    }
    ++m_quietTimes;
    // The probe or its answer may get lost. It is not asked again before the module has given it up, since
    // the module would wait for every one of them.
    m_quiet.start(answerWaitMs + answerMarginMs);
    Q_EMIT probeWanted();
}

void Transfer::signOfLife()
{
    m_quietTimes = 0;
    m_quiet.start(quietMs);
}

void Transfer::finish(ExitStatus status, const QString &words)
{
    if (m_over)
        return;
    m_over = true;
    m_quiet.stop();
    m_module->disconnect(this);
    Q_EMIT finished({status, words});
}

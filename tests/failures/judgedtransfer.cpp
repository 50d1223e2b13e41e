#include "judgedtransfer.h"

using Outcome = simulated::ReceivedFile::Outcome;

JudgedTransfer::JudgedTransfer(Station &station, const TransferKind &kind, const QString &path,
                               const QByteArray &content, int timeoutMs)
    : m_station(station)
    , m_kind(kind)
    , m_path(path)
    , m_content(content)
    , m_timeoutMs(timeoutMs)
{
    station.engine.replace();
    station.recorder.clear();
}

void JudgedTransfer::start()
{
    m_kind.send(m_station.plugin, m_path);
    m_since.start();
}

bool JudgedTransfer::isOver()
{
    return endSignals() > 0 || m_since.hasExpired(m_timeoutMs);
}

int JudgedTransfer::endSignals() const
{
    const QString name = m_kind.complete.section(QLatin1Char('('), 0, 0);
    return m_station.recorder.count(name.toLatin1().constData());
}

JudgedTransfer::Result JudgedTransfer::result()
{
    if (endSignals() != 1)
        return Result::Silent;
    const QStringList texts = m_station.recorder.texts();
    const bool reported = texts.contains(m_kind.completed(0).constFirst());
    // Imports report status 0 when the engine did not answer, so the acknowledgement itself is checked.
    const bool acknowledged =
        !m_kind.passesStatusOn || texts.contains(QStringLiteral("udpPacketArrived(17477, 0, 0)"));
    const QVector<SoundEngine::ReceivedFile> files = m_station.engine.files();
    const bool arrived =
        files.size() == 1 && files.first().outcome == Outcome::Whole && files.first().data == m_content;
    if (reported && acknowledged)
        return arrived ? Result::Arrived : Result::FalseSuccess;
    if (reported && !arrived)
        return Result::Unproven;
    return arrived ? Result::FalseFailure : Result::Failed;
}

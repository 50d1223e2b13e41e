#include "receivedfile.h"

#include <QDir>

namespace simulated {

namespace {

QString outcomeText(ReceivedFile::Outcome outcome)
{
    switch (outcome) {
    case ReceivedFile::Outcome::Whole: return QStringLiteral("whole");
    case ReceivedFile::Outcome::ChecksumError: return QStringLiteral("checksum-error");
    case ReceivedFile::Outcome::Incomplete: return QStringLiteral("incomplete");
    case ReceivedFile::Outcome::Refused: return QStringLiteral("refused");
    case ReceivedFile::Outcome::Abandoned: break;
    }
    return QStringLiteral("abandoned");
}

} // namespace

QString fileText(const ReceivedFile &file)
{
    QString text =
        QStringLiteral("file %1 %2 bytes %3").arg(file.content).arg(file.size).arg(outcomeText(file.outcome));
    if (file.slot >= 0)
        text += QStringLiteral(" slot %1").arg(file.slot);
    text += QStringLiteral(" packets %1 repeated %2 gaps %3 resend-requests %4 status 0x%5")
                .arg(file.packets)
                .arg(file.repeatedPackets)
                .arg(file.gaps)
                .arg(file.resendRequests)
                .arg(file.status, 4, 16, QLatin1Char('0'));
    if (!file.path.isEmpty())
        text += QStringLiteral(" path ") + file.path;
    if (!file.stored)
        text += QStringLiteral(" not stored");
    return text;
}

FileSink::FileSink(const QString &directory, const QString &fileName, qint64 keptBytes)
    : m_keptBytes(qMin(keptBytes, memoryLimit))
{
    if (directory.isEmpty())
        return;
    m_path = QDir(directory).filePath(fileName);
    m_file = std::make_unique<QFile>(m_path + QLatin1String(".part"));
    m_failed = !m_file->open(QIODevice::WriteOnly);
}

void FileSink::append(const QByteArray &bytes)
{
    if (m_file) {
        m_failed = m_failed || m_file->write(bytes) != bytes.size();
        return;
    }
    if (m_overflow)
        return;
    if (m_data.size() + bytes.size() > m_keptBytes) {
        m_overflow = true;
        m_data = QByteArray();
        return;
    }
    m_data.append(bytes);
}

void FileSink::finish(bool whole, ReceivedFile *file)
{
    if (!m_file) {
        file->data = m_data;
        return;
    }
    m_failed = m_failed || !m_file->flush();
    m_file->close();
    file->path = m_file->fileName();
    if (whole && !m_failed) {
        QFile::remove(m_path);
        if (m_file->rename(m_path))
            file->path = m_path;
        else
            m_failed = true;
    }
    file->stored = !m_failed;
}

} // namespace simulated

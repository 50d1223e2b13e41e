#include "support/logcatcher.h"

#include <QDebug>
#include <QMutexLocker>

#include <mutex>

namespace testsupport {

namespace {

std::mutex activeMutex;
LogCatcher *activeCatcher = nullptr;

bool isWarning(const LogLine &line)
{
    return line.type == QtWarningMsg || line.type == QtCriticalMsg || line.type == QtFatalMsg;
}

} // namespace

LogCatcher::LogCatcher()
{
    {
        const std::lock_guard<std::mutex> lock(activeMutex);
        activeCatcher = this;
    }
    m_previous = qInstallMessageHandler(&LogCatcher::handle);
}

LogCatcher::~LogCatcher()
{
    qInstallMessageHandler(m_previous);
    {
        const std::lock_guard<std::mutex> lock(activeMutex);
        activeCatcher = nullptr;
    }
    clear();
    const QList<LogLine> unseen = copyOfLines();
    for (const LogLine &line : unseen)
        qWarning().noquote() << line.text;
}

void LogCatcher::handle(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    const std::lock_guard<std::mutex> activeLock(activeMutex);
    if (!activeCatcher)
        return;
    if (type == QtInfoMsg && activeCatcher->m_previous) {
        activeCatcher->m_previous(type, context, text);
        return;
    }
    const QMutexLocker lock(&activeCatcher->m_mutex);
    activeCatcher->m_lines.append({type, QString::fromLatin1(context.category), text});
}

QList<LogLine> LogCatcher::copyOfLines() const
{
    const QMutexLocker lock(&m_mutex);
    // A detached copy: Qt does not synchronise the destruction of a shared copy in one thread with a change
    // in another thread.
    QList<LogLine> copy = m_lines;
    copy.detach();
    return copy;
}

QList<LogLine> LogCatcher::lines() const
{
    const QList<LogLine> copy = copyOfLines();
    const QMutexLocker lock(&m_mutex);
    m_seen = copy.size();
    return copy;
}

QStringList LogCatcher::debugTexts(const char *category) const
{
    QStringList texts;
    const QList<LogLine> all = copyOfLines();
    for (const LogLine &line : all) {
        if (line.type == QtDebugMsg && (!category || line.category == QLatin1String(category)))
            texts += line.text;
    }
    return texts;
}

QStringList LogCatcher::warnings() const
{
    QStringList texts;
    const QList<LogLine> all = lines();
    for (const LogLine &line : all) {
        if (isWarning(line))
            texts += line.text;
    }
    return texts;
}

void LogCatcher::clear()
{
    const QMutexLocker lock(&m_mutex);
    QList<LogLine> unseen;
    for (int i = m_seen; i < m_lines.size(); ++i) {
        if (isWarning(m_lines.at(i)))
            unseen.append(m_lines.at(i));
    }
    m_lines = unseen;
    m_seen = 0;
}

} // namespace testsupport

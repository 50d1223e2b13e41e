#pragma once

#include <QList>
#include <QMutex>
#include <QString>
#include <QStringList>
#include <QtGlobal>

namespace testsupport {

struct LogLine
{
    QtMsgType type;
    QString category;
    QString text;
};

/// Catches what is logged, in any thread, as long as it lives. One at a time.
///
/// What a test has to say itself, by qInfo(), is handed on at once.
///
/// Warnings that nobody has looked at when it goes are unexpected: they are handed on to whoever had the log
/// before, that is to Qt Test, whose output fails the test.
class LogCatcher
{
public:
    LogCatcher();
    ~LogCatcher();
    Q_DISABLE_COPY(LogCatcher)

    QList<LogLine> lines() const;
    /// Texts of the debug lines; those of one category only when it is given.
    QStringList debugTexts(const char *category = nullptr) const;
    /// Texts of everything worse than information. Compare with an empty list where nothing may go wrong.
    QStringList warnings() const;
    /// Forgets everything but warnings that nobody has looked at.
    void clear();

private:
    QList<LogLine> copyOfLines() const;
    static void handle(QtMsgType type, const QMessageLogContext &context, const QString &text);

    mutable QMutex m_mutex;
    QList<LogLine> m_lines;
    mutable int m_seen = 0; ///< number of lines that the test has looked at
    QtMessageHandler m_previous = nullptr;
};

} // namespace testsupport

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

/// Catches the log messages of all threads until it is destroyed. Only one can exist at a time.
///
/// Messages of qInfo() are passed on at once: tests use them for their own output.
///
/// Warnings that the test has not read are unexpected. The destructor passes them on to the previous message
/// handler. This is the handler of Qt Test, whose output fails the test.
class LogCatcher
{
public:
    LogCatcher();
    ~LogCatcher();
    Q_DISABLE_COPY(LogCatcher)

    QList<LogLine> lines() const;
    /// The texts of the debug messages; if a category is given, only of that category.
    QStringList debugTexts(const char *category = nullptr) const;
    /// The texts of all messages with the severity of a warning or higher. Where a test expects none, compare
    /// with an empty list.
    QStringList warnings() const;
    /// Discards all messages except warnings that the test has not read.
    void clear();

private:
    QList<LogLine> copyOfLines() const;
    static void handle(QtMsgType type, const QMessageLogContext &context, const QString &text);

    mutable QMutex m_mutex;
    QList<LogLine> m_lines;
    mutable int m_seen = 0; ///< number of lines that the test has read
    QtMessageHandler m_previous = nullptr;
};

} // namespace testsupport

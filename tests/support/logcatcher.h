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
    void clear();

private:
    static void handle(QtMsgType type, const QMessageLogContext &context, const QString &text);

    mutable QMutex m_mutex;
    QList<LogLine> m_lines;
    QtMessageHandler m_previous = nullptr;
};

} // namespace testsupport

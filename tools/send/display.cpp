#include "display.h"

#include <cstdio>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

constexpr int redrawMs = 100;
constexpr int usualColumns = 80;
// "] 100 %  99999 kB/s" beside the bar.
constexpr int columnsBesideBar = 24;
constexpr int widestBar = 60;

int terminalColumns()
{
    winsize size{};
    return ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : usualColumns;
}

void write(const QString &text)
{
    const QByteArray bytes = text.toLocal8Bit();
    // Errors are ignored. Without a reader the file is still sent, and the exit status reports the result.
    static_cast<void>(std::fwrite(bytes.constData(), 1, std::size_t(bytes.size()), stdout));
    static_cast<void>(std::fflush(stdout));
}

} // namespace

Display::Display(bool rateLines)
    : m_isTerminal(::isatty(STDOUT_FILENO) == 1)
    , m_rateLines(rateLines)
{
    m_since.start();
}

void Display::say(const QString &line)
{
    wipe();
    write(line + QLatin1Char('\n'));
}

void Display::begin(qint64 size)
{
    m_size = size;
    m_saidTenths = 0;
    m_drawnAt = -redrawMs;
    m_since.start();
}

void Display::progress(qint64 bytes)
{
    if (m_size <= 0)
        return;
    const int percent = int(qMin<qint64>(100, bytes * 100 / m_size));
    if (!m_isTerminal) {
        if (m_rateLines && percent / 10 > m_saidTenths) {
            m_saidTenths = percent / 10;
            say(QStringLiteral("%1 %  %2").arg(m_saidTenths * 10).arg(rate(bytes)));
        }
        return;
    }
    if (m_since.elapsed() < m_drawnAt + redrawMs && percent < 100)
        return;
    m_drawnAt = m_since.elapsed();
    const int width = qBound(0, terminalColumns() - columnsBesideBar, widestBar);
    const int filled = width * percent / 100;
    redraw(QStringLiteral("[%1%2] %3 %  %4")
               .arg(QString(filled, QLatin1Char('#')), QString(width - filled, QLatin1Char(' ')))
               .arg(percent, 3)
               .arg(rate(bytes)));
}

void Display::busy(const QString &activity)
{
    if (m_isTerminal)
        redraw(QStringLiteral("%1, %2 s").arg(activity).arg(m_since.elapsed() / 1000));
}

QString Display::rate(qint64 bytes) const
{
    const qint64 ms = qMax<qint64>(1, m_since.elapsed());
    return QStringLiteral("%1 kB/s").arg(bytes / ms);
}

void Display::redraw(const QString &line)
{
    // Returns to the first column and erases the rest of the previous line.
    write(QLatin1Char('\r') + line + QStringLiteral("\x1b[K"));
    m_lineIsOpen = true;
}

void Display::wipe()
{
    if (!m_lineIsOpen)
        return;
    write(QStringLiteral("\r\x1b[K"));
    m_lineIsOpen = false;
}

#pragma once

#include <QElapsedTimer>
#include <QString>

/// Shows a transfer on standard output: a bar on a terminal, or lines where they are wanted.
class Display
{
public:
    /// With rateLines, progress() prints a line for each tenth where there is no terminal.
    explicit Display(bool rateLines);
    Display(const Display &) = delete;
    Display &operator=(const Display &) = delete;

    bool isTerminal() const { return m_isTerminal; }

    /// Prints a line.
    void say(const QString &line);

    /// The transfer of a file of size bytes begins.
    void begin(qint64 size);
    /// bytes of the file have been sent. May be called for every packet.
    void progress(qint64 bytes);
    /// Shows activity and the time since begin(); on a terminal only.
    void busy(const QString &activity);
    /// Clears the line that was drawn last.
    void close() { wipe(); }

    /// The average since begin(), for example "312 kB/s".
    QString rate(qint64 bytes) const;

private:
    void redraw(const QString &line);
    void wipe();

    const bool m_isTerminal;
    const bool m_rateLines;
    QElapsedTimer m_since;
    qint64 m_size = 0;
    qint64 m_drawnAt = 0;
    int m_saidTenths = 0;
    bool m_lineIsOpen = false;
};

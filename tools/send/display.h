#pragma once

#include <QElapsedTimer>
#include <QString>

/// Shows a transfer on standard output: a bar on a terminal, plain lines elsewhere.
class Display
{
public:
    Display();
    Display(const Display &) = delete;
    Display &operator=(const Display &) = delete;

    bool isTerminal() const { return m_isTerminal; }

    /// A line of its own.
    void say(const QString &line);

    /// A file of that many bytes begins.
    void begin(qint64 size);
    /// So many bytes of it have been sent. May be called for every packet.
    void progress(qint64 bytes);
    /// For files that tell no progress: what is going on, and for how long; on a terminal only.
    void busy(const QString &words);
    /// Leaves the cursor on a line of its own, whatever was drawn last.
    void close() { wipe(); }

    qint64 elapsedMs() const { return m_since.elapsed(); }
    /// "312 kB/s" on average since begin().
    QString rate(qint64 bytes) const;

private:
    void redraw(const QString &line);
    void wipe();

    const bool m_isTerminal;
    QElapsedTimer m_since;
    qint64 m_size = 0;
    qint64 m_drawnAt = 0;
    int m_saidTenths = 0;
    bool m_lineIsOpen = false;
};

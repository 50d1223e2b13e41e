#pragma once

#include <QString>
#include <QVector>

#include <functional>

namespace simulated {

/// The faults of a text, with their lines.
class LineFaults
{
public:
    void add(int line, const QString &reason) { m_faults.append({line, reason}); }
    bool isEmpty() const { return m_faults.isEmpty(); }

    /// One line for each fault, in the order of the text: "line 3: REASON". At most 100 lines; the last one
    /// then counts the rest.
    QString text() const;

private:
    struct Fault
    {
        int line;
        QString reason;
    };

    QVector<Fault> m_faults;
};

/// Reads a text file of at most largest bytes (whole MiB) and parses it. Returns false when it cannot be read
/// or parsed; problem then has a line for each fault, which begins with kind ("scenario") and path.
bool loadTextFile(const QString &kind, const QString &path, qint64 largest,
                  const std::function<bool(const QString &text, QString *problem)> &parse, QString *problem);

} // namespace simulated

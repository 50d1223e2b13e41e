#include "textfile.h"

#include <QFile>
#include <QStringList>

#include <algorithm>

namespace simulated {

namespace {

constexpr int mostLines = 100;

} // namespace

QString LineFaults::text() const
{
    QVector<Fault> faults = m_faults;
    std::stable_sort(faults.begin(), faults.end(),
                     [](const Fault &a, const Fault &b) { return a.line < b.line; });
    QStringList lines;
    const int shown = faults.size() > mostLines ? mostLines - 1 : faults.size();
    for (int i = 0; i < shown; ++i)
        lines.append(QStringLiteral("line %1: %2").arg(faults.at(i).line).arg(faults.at(i).reason));
    if (shown < faults.size())
        lines.append(QStringLiteral("and %1 more faults").arg(faults.size() - shown));
    return lines.join(QLatin1Char('\n'));
}

bool loadTextFile(const QString &kind, const QString &path, qint64 largest,
                  const std::function<bool(const QString &text, QString *problem)> &parse, QString *problem)
{
    const QString name = kind + QLatin1Char(' ') + path;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        *problem = QStringLiteral("%1: %2").arg(name, file.errorString());
        return false;
    }
    const QByteArray text = file.read(largest + 1);
    if (text.size() > largest) {
        *problem = QStringLiteral("%1: larger than %2 MiB").arg(name).arg(largest >> 20);
        return false;
    }
    QString reason;
    if (parse(QString::fromUtf8(text), &reason))
        return true;
    QStringList problems;
    const QStringList lines = reason.split(QLatin1Char('\n'));
    for (const QString &line : lines)
        problems.append(QStringLiteral("%1, %2").arg(name, line));
    *problem = problems.join(QLatin1Char('\n'));
    return false;
}

} // namespace simulated

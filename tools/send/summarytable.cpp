#include "summarytable.h"

#include <algorithm>

namespace {

using Row = QStringList;

Row rowOf(const FileResult &file)
{
    const QString none = QStringLiteral("-");
    return {stateName(file.state),
            file.kind,
            file.slot < 0 ? none : QString::number(file.slot),
            file.bytes < 0 ? none : QString::number(file.bytes),
            file.seconds < 0.0 ? none : QString::number(file.seconds, 'f', 1),
            file.path};
}

} // namespace

QStringList summaryTable(const std::vector<FileResult> &files)
{
    QVector<Row> rows{{QStringLiteral("RESULT"), QStringLiteral("KIND"), QStringLiteral("SLOT"),
                       QStringLiteral("BYTES"), QStringLiteral("SECONDS"), QStringLiteral("FILE")}};
    for (const FileResult &file : files)
        rows.append(rowOf(file));

    constexpr int firstNumber = 2;
    const int lastColumn = rows.constFirst().size() - 1;
    QStringList lines(QVector<QString>(rows.size()).toList());
    for (int column = 0; column < lastColumn; ++column) {
        int width = 0;
        for (const Row &row : qAsConst(rows))
            width = std::max(width, row.at(column).size());
        for (int i = 0; i < rows.size(); ++i) {
            const QString &text = rows.at(i).at(column);
            lines[i] += (column < firstNumber ? text.leftJustified(width) : text.rightJustified(width)) +
                        QStringLiteral("  ");
        }
    }
    for (int i = 0; i < rows.size(); ++i)
        lines[i] += rows.at(i).at(lastColumn);
    return lines;
}

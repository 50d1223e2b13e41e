#include "docs/receptions.h"

namespace docs {

QList<Reception> receptions(const Markdown &markdown)
{
    const QString received = QStringLiteral("received: ");
    QList<Reception> found;
    const QList<Block> blocks = markdown.blocksInLanguage(QStringLiteral("text"));
    for (const Block &block : blocks) {
        if (!block.lines.value(0).startsWith(received))
            continue;
        const QStringList effects = block.lines.first().mid(received.size()).split(QStringLiteral("; "));
        found += Reception{QStringLiteral("line %1: %2").arg(block.line).arg(effects.first()),
                           annotatedDatagrams(block.lines.mid(1)), effects.first(), effects.mid(1)};
    }
    const QList<Table> tables = markdown.tablesWithColumns(
        {QStringLiteral("Datagram"), QStringLiteral("Signal"), QStringLiteral("Property")});
    for (const Table &table : tables) {
        for (const QStringList &row : table.rows) {
            const QByteArray datagram = QByteArray::fromHex(withoutBackticks(row.value(0)).toLatin1());
            const QString property = withoutBackticks(row.value(2));
            found += Reception{QStringLiteral("%1: %2").arg(row.value(0), row.value(1)),
                               {datagram},
                               withoutBackticks(row.value(1)),
                               property.isEmpty() ? QStringList() : QStringList{property}};
        }
    }
    return found;
}

QList<QByteArray> annotatedDatagrams(const QStringList &lines)
{
    QList<QByteArray> datagrams{QByteArray()};
    for (const QString &line : lines) {
        if (line.isEmpty())
            datagrams += QByteArray();
        else
            datagrams.last() += QByteArray::fromHex(line.section(QStringLiteral("  "), 0, 0).toLatin1());
    }
    datagrams.removeAll(QByteArray());
    return datagrams;
}

} // namespace docs

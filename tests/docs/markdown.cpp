#include "docs/markdown.h"

#include <QFile>

namespace docs {

namespace {

const QString fence = QStringLiteral("```");

QStringList cells(const QString &line)
{
    // The bars at both ends of a line produce an empty cell each.
    QStringList result = line.split(QLatin1Char('|')).mid(1);
    result.removeLast();
    for (QString &cell : result)
        cell = cell.trimmed();
    return result;
}

} // namespace

QList<Table> Markdown::tablesWithColumns(const QStringList &columns) const
{
    QList<Table> found;
    for (const Table &table : tables) {
        if (table.columns == columns)
            found += table;
    }
    return found;
}

QList<Block> Markdown::blocksInLanguage(const QString &language) const
{
    QList<Block> found;
    for (const Block &block : blocks) {
        if (block.language == language)
            found += block;
    }
    return found;
}

Markdown readMarkdown(const QString &path)
{
    Markdown markdown;
    QFile file(QStringLiteral(ZELTACONNECT_SOURCE_DIR "/") + path);
    if (!file.open(QIODevice::ReadOnly))
        return markdown;
    markdown.text = QString::fromUtf8(file.readAll());

    const QStringList lines = markdown.text.split(QLatin1Char('\n'));
    bool inBlock = false;
    bool inTable = false;
    for (int i = 0; i < lines.size(); ++i) {
        const QString &line = lines.at(i);
        if (line.startsWith(fence)) {
            inBlock = !inBlock;
            if (inBlock)
                markdown.blocks += Block{line.mid(fence.size()), {}, i + 1};
        } else if (inBlock) {
            markdown.blocks.last().lines += line;
        } else if (line.startsWith(QLatin1Char('|'))) {
            if (!inTable)
                markdown.tables += Table{cells(line), {}};
            else if (!line.startsWith(QLatin1String("|--")))
                markdown.tables.last().rows += cells(line);
        }
        inTable = !inBlock && line.startsWith(QLatin1Char('|'));
    }
    return markdown;
}

QString withoutBackticks(const QString &cell)
{
    const QLatin1Char backtick('`');
    const bool code = cell.size() > 1 && cell.startsWith(backtick) && cell.endsWith(backtick);
    return code ? cell.mid(1, cell.size() - 2) : cell;
}

} // namespace docs

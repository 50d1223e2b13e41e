#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace docs {

/// A table of a Markdown document: its column titles and its cells, without blanks around them.
struct Table
{
    QStringList columns;
    QList<QStringList> rows;
};

/// A fenced block of a Markdown document.
struct Block
{
    QString language;
    QStringList lines;
    int line = 0; ///< where the block begins in the document, from 1
};

/// The tables and fenced blocks of one document, in their order.
struct Markdown
{
    QString text; ///< the whole document; empty when it could not be read
    QList<Table> tables;
    QList<Block> blocks;

    /// Tables with exactly these columns.
    QList<Table> tablesWithColumns(const QStringList &columns) const;
    QList<Block> blocksInLanguage(const QString &language) const;
};

/// Reads a document by its path inside the project.
Markdown readMarkdown(const QString &path);

/// The text of a cell without the backticks around it.
QString withoutBackticks(const QString &cell);

} // namespace docs

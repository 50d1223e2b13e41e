#pragma once

#include "docs/markdown.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

namespace docs {

/// Datagrams of the engine in the protocol document, and what the module makes of them.
struct Reception
{
    QString name; ///< for the row of a test
    QList<QByteArray> datagrams;
    QString signal;         ///< "noteChanged()"
    QStringList properties; ///< "note = 5"
};

/// The examples of received datagrams, from the text blocks and from the tables.
QList<Reception> receptions(const Markdown &markdown);

/// The hex digits at the start of each line, up to two blanks. An empty line ends a datagram.
QList<QByteArray> annotatedDatagrams(const QStringList &lines);

} // namespace docs

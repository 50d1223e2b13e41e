#pragma once

#include "docs/markdown.h"
#include "docs/parameterrows.h"

#include <QList>
#include <QMetaType>
#include <QString>
#include <QStringList>

namespace docs {

/// A documented member of a QML type.
struct Topic
{
    enum Kind { Property, Signal, Method };
    Kind kind = Property;
    QString type; ///< the QML type
    QString name;
    QString signature; ///< "uint note", "noteChanged()" or "void setMasterOutLevel(uchar level)"

    QStringList argumentNames() const;
};

/// One comment of the reference: members that share a text, or a page.
struct Entry
{
    QString place; ///< file and line, for messages
    QString file;
    QList<Topic> topics; ///< none for a page
    QString text;
    QList<ParameterRow> parameters;
    QList<Block> examples; ///< in the languages "qml" and "js"

    QStringList names() const;
    bool has(const QString &command) const;
    /// True for the comment with the command \qmltype of this type.
    bool describesType(const QString &type) const;
};

/// Reads the comments of docs/reference/*.qdoc. Empty when there are none.
QList<Entry> readReference();

} // namespace docs

Q_DECLARE_METATYPE(docs::Entry)

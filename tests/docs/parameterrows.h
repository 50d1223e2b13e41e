#pragma once

#include "docs/markdown.h"

#include <QByteArray>
#include <QHash>
#include <QMetaType>

namespace docs {

/// A value and the data bytes that encode it.
struct WorkedValue
{
    QString value;     ///< as QML writes it; several arguments have commas between them
    QByteArray lower;  ///< data of controller 38, empty in the form with three events
    QByteArray higher; ///< data of controller 6
};

/// One parameter that a method sends.
struct ParameterRow
{
    QString number; ///< page and number: "38/07", "21/note", "3B/10 + index"
    QString method;
    QStringList arguments; ///< names
    QString encoding;
    QString lowest; ///< both ends of the range; empty for a parameter without a value
    QString highest;

    /// The datagram that carries a worked value of this row's encoding.
    QByteArray datagram(const WorkedValue &value) const;
    /// A call as QML writes it. Arguments that are part of the number get fixed values.
    QString call(const QString &value) const;
    /// Number of arguments that are not part of the number.
    int valueCount() const;
};

/// The parameter tables of the protocol document.
struct ParameterDocument
{
    QList<ParameterRow> rows;
    QHash<QString, QList<WorkedValue>> encodings;

    /// In the order of the document.
    QStringList methods() const;
    QList<ParameterRow> rowsOf(const QString &method) const;
};

/// A row with the texts of its cells: "38/07", "setMasterOutLevel(level)", "byte", "0 to 127".
ParameterRow parameterRow(const QString &number, const QString &signature, const QString &encoding,
                          const QString &range);

ParameterDocument readParameters(const Markdown &markdown);

/// Splits "name(first, second)". False when the text has another form.
bool splitSignature(const QString &text, QString &method, QStringList &arguments);

} // namespace docs

Q_DECLARE_METATYPE(docs::ParameterRow)

#include "docs/parameterrows.h"

#include <QRegularExpression>

namespace docs {

namespace {

// A value for each argument that is part of a number. It differs for each position, so that swapped arguments
// are detected.
int numberArgument(int position)
{
    return 36 + 2 * position;
}

bool isPartOf(const QString &number, const QString &argument)
{
    return number.contains(QRegularExpression(QStringLiteral("\\b%1\\b").arg(argument)));
}

// One half of a number: "07", "note" or "10 + index".
quint8 numberByte(const QString &text, const QStringList &arguments)
{
    quint8 sum = 0;
    const QStringList terms = text.split(QLatin1Char('+'));
    for (const QString &spaced : terms) {
        const QString term = spaced.trimmed();
        const int position = arguments.indexOf(term);
        sum = quint8(sum + (position >= 0 ? numberArgument(position) : term.toInt(nullptr, 16)));
    }
    return sum;
}

QByteArray controlChange(char controller, char value)
{
    return QByteArrayLiteral("\x0B\xB9") + controller + value;
}

} // namespace

QByteArray ParameterRow::datagram(const WorkedValue &value) const
{
    constexpr char numberHigh = 0x63;
    constexpr char numberLow = 0x62;
    constexpr char valueLow = 0x26;
    constexpr char valueHigh = 0x06;
    const QStringList halves = number.split(QLatin1Char('/'));
    QByteArray events = controlChange(numberHigh, char(numberByte(halves.value(0), arguments))) +
                        controlChange(numberLow, char(numberByte(halves.value(1), arguments)));
    if (!value.lower.isEmpty())
        events += controlChange(valueLow, value.lower.at(0));
    if (!value.higher.isEmpty())
        events += controlChange(valueHigh, value.higher.at(0));
    return QByteArrayLiteral("IM") + '\0' + char(events.size() / 4) + events;
}

QString ParameterRow::call(const QString &value) const
{
    QStringList values = value.split(QStringLiteral(", "));
    QStringList given;
    for (int i = 0; i < arguments.size(); ++i) {
        const bool fixed = isPartOf(number, arguments.at(i));
        given += fixed              ? QString::number(numberArgument(i))
                 : values.isEmpty() ? QString()
                                    : values.takeFirst();
    }
    return QStringLiteral("%1(%2)").arg(method, given.join(QStringLiteral(", ")));
}

int ParameterRow::valueCount() const
{
    int count = 0;
    for (const QString &argument : arguments)
        count += isPartOf(number, argument) ? 0 : 1;
    return count;
}

QStringList ParameterDocument::methods() const
{
    QStringList names;
    for (const ParameterRow &row : rows) {
        if (!names.contains(row.method))
            names += row.method;
    }
    return names;
}

QList<ParameterRow> ParameterDocument::rowsOf(const QString &method) const
{
    QList<ParameterRow> found;
    for (const ParameterRow &row : rows) {
        if (row.method == method)
            found += row;
    }
    return found;
}

ParameterRow parameterRow(const QString &number, const QString &signature, const QString &encoding,
                          const QString &range)
{
    ParameterRow row;
    row.number = number;
    if (!splitSignature(signature, row.method, row.arguments))
        row.method = signature;
    row.encoding = encoding;
    const QStringList ends = range.split(QStringLiteral(" to "));
    if (ends.size() == 2) {
        row.lowest = ends.at(0);
        row.highest = ends.at(1);
    }
    return row;
}

ParameterDocument readParameters(const Markdown &markdown)
{
    ParameterDocument document;
    const QList<Table> encodings =
        markdown.tablesWithColumns({QStringLiteral("Encoding"), QStringLiteral("Value"),
                                    QStringLiteral("Controller 38"), QStringLiteral("Controller 6")});
    for (const Table &table : encodings) {
        for (const QStringList &cells : table.rows) {
            document.encodings[cells.value(0)] +=
                WorkedValue{withoutBackticks(cells.value(1)),
                            QByteArray::fromHex(withoutBackticks(cells.value(2)).toLatin1()),
                            QByteArray::fromHex(withoutBackticks(cells.value(3)).toLatin1())};
        }
    }

    const QList<Table> pages =
        markdown.tablesWithColumns({QStringLiteral("Number"), QStringLiteral("Method"),
                                    QStringLiteral("Encoding"), QStringLiteral("Range")});
    for (const Table &table : pages) {
        for (const QStringList &cells : table.rows) {
            document.rows += parameterRow(withoutBackticks(cells.value(0)), withoutBackticks(cells.value(1)),
                                          cells.value(2), cells.value(3));
        }
    }
    return document;
}

bool splitSignature(const QString &text, QString &method, QStringList &arguments)
{
    static const QRegularExpression signature(QStringLiteral("^(\\w+)\\((.*)\\)$"));
    const QRegularExpressionMatch match = signature.match(text);
    if (!match.hasMatch())
        return false;
    method = match.captured(1);
    const QString list = match.captured(2);
    arguments = list.isEmpty() ? QStringList() : list.split(QStringLiteral(", "));
    return true;
}

} // namespace docs

#include "docs/referencetext.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

namespace docs {

namespace {

Topic topic(const QRegularExpressionMatch &match)
{
    const QString command = match.captured(1);
    const QString type = match.captured(3);
    const QString name = match.captured(4);
    const QString arguments = match.captured(5);
    if (command == QLatin1String("property"))
        return {Topic::Property, type, name, match.captured(2) + QLatin1Char(' ') + name};
    if (command == QLatin1String("signal"))
        return {Topic::Signal, type, name, name + arguments};
    return {Topic::Method, type, name, match.captured(2) + QLatin1Char(' ') + name + arguments};
}

// Removes the common indentation.
QStringList unindented(const QStringList &lines)
{
    int indentation = 1000;
    for (const QString &line : lines) {
        const int first = line.indexOf(QRegularExpression(QStringLiteral("\\S")));
        if (first >= 0)
            indentation = qMin(indentation, first);
    }
    QStringList result;
    for (const QString &line : lines)
        result += line.mid(indentation);
    return result;
}

Entry entry(const QString &file, int line, const QString &text)
{
    static const QRegularExpression topicLine(
        QStringLiteral("^ *\\\\qml(property|signal|method) (?:(.+) )?(\\w+)::(\\w+)(\\(.*\\))?$"),
        QRegularExpression::MultilineOption);
    static const QRegularExpression row(
        QStringLiteral("\\\\row \\\\li \\\\c\\{(.+?)\\} \\\\li \\\\c\\{(.+?)\\} "
                       "\\\\li \\\\encoding\\{(.+?)\\} \\\\li (.+)"));
    static const QRegularExpression example(QStringLiteral("\\\\(qml|js)\\n(.*?)\\n *\\\\end\\1"),
                                            QRegularExpression::DotMatchesEverythingOption);
    Entry result;
    result.file = file;
    result.place = QStringLiteral("%1:%2").arg(file).arg(line);
    result.text = text;
    for (auto matches = topicLine.globalMatch(text); matches.hasNext();)
        result.topics += topic(matches.next());
    for (auto matches = row.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        result.parameters +=
            parameterRow(match.captured(2), match.captured(1), match.captured(3), match.captured(4));
    }
    for (auto matches = example.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        result.examples += Block{match.captured(1), unindented(match.captured(2).split(QLatin1Char('\n'))),
                                 line + text.leftRef(match.capturedStart()).count(QLatin1Char('\n'))};
    }
    return result;
}

} // namespace

QStringList Topic::argumentNames() const
{
    static const QRegularExpression argument(QStringLiteral("(\\w+)[,)]"));
    QStringList names;
    for (auto matches = argument.globalMatch(signature); matches.hasNext();)
        names += matches.next().captured(1);
    return names;
}

QStringList Entry::names() const
{
    QStringList result;
    for (const Topic &topic : topics)
        result += topic.name;
    return result;
}

bool Entry::has(const QString &command) const
{
    return text.contains(QRegularExpression(QStringLiteral("\\\\%1\\b").arg(command)));
}

bool Entry::describesType(const QString &type) const
{
    return text.contains(QRegularExpression(QStringLiteral("\\\\qmltype %1\\n").arg(type)));
}

QList<Entry> readReference()
{
    static const QRegularExpression comment(QStringLiteral("/\\*!(.*?)\\*/"),
                                            QRegularExpression::DotMatchesEverythingOption);
    const QDir folder(QStringLiteral(ZELTACONNECT_SOURCE_DIR "/docs/reference"));
    QList<Entry> entries;
    const QStringList names = folder.entryList({QStringLiteral("*.qdoc")}, QDir::Files, QDir::Name);
    for (const QString &name : names) {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QString text = QString::fromUtf8(file.readAll());
        for (auto matches = comment.globalMatch(text); matches.hasNext();) {
            const QRegularExpressionMatch match = matches.next();
            const int line = 1 + text.leftRef(match.capturedStart()).count(QLatin1Char('\n'));
            entries += entry(name, line, match.captured(1));
        }
    }
    return entries;
}

} // namespace docs

// Writes the index of the search page: one entry for each member, section and page of the manual.
//
//     make-search-index HTML-FOLDER INDEX-FILE

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTextStream>

namespace {

struct Part
{
    int begin = 0; ///< position in the page
    QString anchor;
    QString title;
};

QString plainText(QString html)
{
    static const QRegularExpression tag(QStringLiteral("<[^>]*>"));
    html.replace(tag, QStringLiteral(" "));
    const QList<QPair<QString, QString>> entities{
        {QStringLiteral("&lt;"), QStringLiteral("<")},    {QStringLiteral("&gt;"), QStringLiteral(">")},
        {QStringLiteral("&quot;"), QStringLiteral("\"")}, {QStringLiteral("&#39;"), QStringLiteral("'")},
        {QStringLiteral("&nbsp;"), QStringLiteral(" ")},  {QStringLiteral("&amp;"), QStringLiteral("&")}};
    for (const auto &entity : entities)
        html.replace(entity.first, entity.second);
    return html.simplified();
}

// The members of a type, and the sections of any page. Members that share a text begin at the same position.
QList<Part> partsOf(const QString &html)
{
    static const QRegularExpression start(
        QStringLiteral("<div class=\"qmlitem\">|<h[23] id=\"([^\"]+)\">(.*?)</h[23]>"
                       "|<tr [^>]*id=\"((\\w+)-(?:prop|method|signal))\">"));
    QList<Part> parts;
    int itemBegin = 0;
    for (auto matches = start.globalMatch(html); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        if (!match.captured(1).isEmpty())
            parts += Part{match.capturedStart(), match.captured(1), plainText(match.captured(2))};
        else if (!match.captured(3).isEmpty())
            parts += Part{itemBegin, match.captured(3), match.captured(4)};
        else
            itemBegin = match.capturedStart();
    }
    return parts;
}

QJsonObject entry(const QString &title, const QString &page, const QString &address, const QString &text)
{
    return {{QStringLiteral("title"), title},
            {QStringLiteral("page"), page},
            {QStringLiteral("address"), address},
            {QStringLiteral("text"), text}};
}

QJsonArray entriesOf(const QString &fileName, const QString &html)
{
    static const QRegularExpression heading(QStringLiteral("<h1 class=\"title\">(.*?)</h1>"));
    const QRegularExpressionMatch match = heading.match(html);
    const QString page = plainText(match.captured(1));
    const QString content = html.mid(match.capturedEnd());
    const QList<Part> parts = partsOf(content);

    QJsonArray entries;
    const int firstBegin = parts.isEmpty() ? content.size() : parts.first().begin;
    entries.append(entry(page, QString(), fileName, plainText(content.left(firstBegin))));
    for (int i = 0; i < parts.size(); ++i) {
        int end = content.size();
        for (int next = i + 1; next < parts.size() && end == content.size(); ++next) {
            if (parts.at(next).begin > parts.at(i).begin)
                end = parts.at(next).begin;
        }
        const Part &part = parts.at(i);
        const QString text = content.mid(part.begin, end - part.begin);
        // The text of members begins after their signatures.
        const int textBegin = qMax(0, text.indexOf(QLatin1String("<div class=\"qmldoc\">")));
        entries.append(entry(part.title, page, fileName + QLatin1Char('#') + part.anchor,
                             plainText(text.mid(textBegin))));
    }
    return entries;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3) {
        QTextStream(stderr) << "usage: make-search-index HTML-FOLDER INDEX-FILE\n";
        return 2;
    }
    const QDir folder(arguments.at(1));
    const QStringList names = folder.entryList({QStringLiteral("*.html")}, QDir::Files, QDir::Name);
    QJsonArray entries;
    for (const QString &name : names) {
        // The page itself, and the list without texts.
        if (name == QLatin1String("search.html") || name.endsWith(QLatin1String("-members.html")))
            continue;
        QFile page(folder.filePath(name));
        if (!page.open(QIODevice::ReadOnly)) {
            QTextStream(stderr) << "make-search-index: cannot read " << name << '\n';
            return 1;
        }
        const QJsonArray found = entriesOf(name, QString::fromUtf8(page.readAll()));
        for (const QJsonValue &value : found)
            entries.append(value);
    }
    // A script and not a JSON file, because a browser loads no other data from file://.
    QFile index(arguments.at(2));
    const QByteArray script =
        "var searchIndex = " + QJsonDocument(entries).toJson(QJsonDocument::Compact) + ";\n";
    if (!index.open(QIODevice::WriteOnly) || index.write(script) != script.size()) {
        QTextStream(stderr) << "make-search-index: cannot write " << arguments.at(2) << '\n';
        return 1;
    }
    return 0;
}

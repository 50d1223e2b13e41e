// The built manual: identifiers for F1, links and the index of the search page.

#include "control/qconnectqmlplugin.h"
#include "docs/referencetext.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QHash>
#include <QJSEngine>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QRegularExpression>
#include <QSet>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTest>
#include <QUrl>

namespace {

const QString typePage = QStringLiteral("qml-zeltaconnect-zeltaconnect.html");

QStringList memberNames()
{
    QStringList names;
    const QMetaObject &meta = QConnectQmlPlugin::staticMetaObject;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i)
        names += QLatin1String(meta.property(i).name());
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        if (meta.method(i).methodType() != QMetaMethod::Slot)
            names += QLatin1String(meta.method(i).name());
    }
    return names;
}

QStringList captured(const QString &text, const char *pattern)
{
    const QRegularExpression expression(QString::fromLatin1(pattern));
    QStringList found;
    for (auto matches = expression.globalMatch(text); matches.hasNext();)
        found += matches.next().captured(1);
    return found;
}

QString plainText(QString html)
{
    const QList<QPair<QString, QString>> entities{
        {QStringLiteral("&lt;"), QStringLiteral("<")},    {QStringLiteral("&gt;"), QStringLiteral(">")},
        {QStringLiteral("&quot;"), QStringLiteral("\"")}, {QStringLiteral("&#92;"), QStringLiteral("\\")},
        {QStringLiteral("&#47;"), QStringLiteral("/")},   {QStringLiteral("&amp;"), QStringLiteral("&")}};
    for (const auto &entity : entities)
        html.replace(entity.first, entity.second);
    return html;
}

} // namespace

class ManualTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyMemberHasAHelpIdentifier();
    void everyIdentifierHasAPlace();
    void everyHelpFileIsStored();
    void linksLeadSomewhere_data();
    void linksLeadSomewhere();
    void filesOfTheGuidesAreComplete_data();
    void filesOfTheGuidesAreComplete();
    void charactersAreRight_data();
    void charactersAreRight();
    void anchorsAreUnique_data();
    void anchorsAreUnique();
    void everyMemberIsInTheSearchIndex();
    void searchResultsLeadSomewhere();
    void searchFinds_data();
    void searchFinds();

private:
    void addPages();
    bool isPlace(const QString &file, const QString &anchor) const;

    QHash<QString, QString> m_pages;                       ///< HTML by file name
    QHash<QString, QStringList> m_anchors;                 ///< by file name
    QHash<QString, QPair<QString, QString>> m_identifiers; ///< file and anchor by identifier
    QStringList m_helpFiles;
    QJsonArray m_index;
};

void ManualTest::initTestCase()
{
    const QDir folder(QStringLiteral(ZELTACONNECT_MANUAL_DIR "/html"));
    const QStringList names = folder.entryList({QStringLiteral("*.html")}, QDir::Files);
    for (const QString &name : names) {
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString html = QString::fromUtf8(file.readAll());
        m_pages.insert(name, html);
        m_anchors.insert(name, captured(html, "<[a-z0-9]+ [^>]*(?<=\\s)(?:id|name)=\"([^\"]+)\""));
    }
    QVERIFY(m_pages.contains(typePage));

    // The file is a database, in the form that Qt's help viewers read.
    QSqlDatabase help = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"));
    help.setDatabaseName(QStringLiteral(ZELTACONNECT_MANUAL_DIR "/zeltaconnect.qch"));
    QVERIFY2(help.open(), qPrintable(help.lastError().text()));
    QSqlQuery query(QStringLiteral("SELECT Identifier, FileNameTable.Name, Anchor FROM IndexTable "
                                   "JOIN FileNameTable ON IndexTable.FileId = FileNameTable.FileId"));
    while (query.next())
        m_identifiers.insert(query.value(0).toString(),
                             {query.value(1).toString(), query.value(2).toString()});
    QSqlQuery files(QStringLiteral("SELECT Name FROM FileNameTable"));
    while (files.next())
        m_helpFiles += files.value(0).toString();

    QFile index(folder.filePath(QStringLiteral("search-index.js")));
    QVERIFY(index.open(QIODevice::ReadOnly));
    const QByteArray script = index.readAll();
    const int begin = script.indexOf('[');
    m_index = QJsonDocument::fromJson(script.mid(begin, script.lastIndexOf(']') + 1 - begin)).array();
    QVERIFY(!m_index.isEmpty());
}

bool ManualTest::isPlace(const QString &file, const QString &anchor) const
{
    if (!file.endsWith(QLatin1String(".html")))
        return anchor.isEmpty() && QFile::exists(QStringLiteral(ZELTACONNECT_MANUAL_DIR "/html/") + file);
    return m_pages.contains(file) && (anchor.isEmpty() || m_anchors.value(file).contains(anchor));
}

// Qt Creator looks up QML.<module>.<type>::<member>, QML.<type>::<member> and <type>::<member>.
void ManualTest::everyMemberHasAHelpIdentifier()
{
    const QStringList names = memberNames();
    QVERIFY(names.size() > 300);
    for (const QString &name : names) {
        const auto place = m_identifiers.value(QStringLiteral("ZeltaConnect::") + name);
        QVERIFY2(place.first == typePage, qPrintable(name));
        QVERIFY2(place.second.startsWith(name + QLatin1Char('-')), qPrintable(name));
    }
    QCOMPARE(m_identifiers.value(QStringLiteral("QML.ZeltaConnect")).first, typePage);
    // The types of the companion module.
    const QList<docs::Entry> entries = docs::readReference();
    for (const docs::Entry &entry : entries) {
        for (const docs::Topic &topic : entry.topics) {
            QVERIFY2(m_identifiers.contains(topic.type + QStringLiteral("::") + topic.name),
                     qPrintable(topic.name));
            QVERIFY2(m_identifiers.contains(QStringLiteral("QML.") + topic.type), qPrintable(topic.type));
        }
    }
}

void ManualTest::everyIdentifierHasAPlace()
{
    for (auto identifier = m_identifiers.cbegin(); identifier != m_identifiers.cend(); ++identifier) {
        QVERIFY2(isPlace(identifier.value().first, identifier.value().second), qPrintable(identifier.key()));
        // No member of the type is documented that does not exist.
        const QString prefix = QStringLiteral("ZeltaConnect::");
        QVERIFY2(!identifier.key().startsWith(prefix) ||
                     memberNames().contains(identifier.key().mid(prefix.size())),
                 qPrintable(identifier.key()));
    }
}

// Every page, and what the pages need, is in the help file.
void ManualTest::everyHelpFileIsStored()
{
    QStringList needed = m_pages.keys();
    for (const QString &html : qAsConst(m_pages))
        needed += captured(html, "(?:<link [^>]*href|<script [^>]*src|<img [^>]*src)=\"([^\"]+)\"");
    needed.removeDuplicates();
    for (const QString &file : qAsConst(needed))
        QVERIFY2(m_helpFiles.contains(file), qPrintable(file));
}

void ManualTest::linksLeadSomewhere_data()
{
    QTest::addColumn<QString>("page");
    QStringList pages = m_pages.keys();
    pages.sort();
    for (const QString &page : qAsConst(pages))
        QTest::newRow(qPrintable(page)) << page;
}

void ManualTest::linksLeadSomewhere()
{
    QFETCH(QString, page);
    const QStringList links = captured(m_pages.value(page), "(?:href|src)=\"([^\"]*)\"");
    QVERIFY(!links.isEmpty());
    for (const QString &link : links) {
        const QUrl target(link);
        QVERIFY2(target.isRelative(), qPrintable(link));
        const QString file = target.path().isEmpty() ? page : target.path();
        QVERIFY2(isPlace(file, target.fragment()), qPrintable(link));
    }
}

void ManualTest::filesOfTheGuidesAreComplete_data()
{
    QTest::addColumn<QString>("guide");
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("name");
    const QList<QPair<QString, QString>> guides{
        {QStringLiteral("recipes.html"), QStringLiteral("recipes/")},
        {QStringLiteral("companion.html"), QStringLiteral("examples/")}};
    for (const auto &guide : guides) {
        const QDir folder(QStringLiteral(ZELTACONNECT_SOURCE_DIR "/docs/") + guide.second);
        QDirIterator files(folder.path(), QDir::Files, QDirIterator::Subdirectories);
        QVERIFY(files.hasNext());
        while (files.hasNext()) {
            const QString name = folder.relativeFilePath(files.next());
            QTest::newRow(qPrintable(guide.second + name)) << guide.first << folder.path() << name;
        }
    }
}

// The guide links to a page that has the whole file.
void ManualTest::filesOfTheGuidesAreComplete()
{
    QFETCH(QString, guide);
    QFETCH(QString, folder);
    QFETCH(QString, name);
    QFile file(folder + QLatin1Char('/') + name);
    QVERIFY(file.open(QIODevice::ReadOnly));
    bool isShown = false;
    const QStringList links = captured(m_pages.value(guide), "<a href=\"([^\"#]+)\"");
    for (const QString &link : links) {
        const QString page = m_pages.value(link);
        if (!page.contains(QStringLiteral("<h1 class=\"title\">%1</h1>").arg(name)))
            continue;
        QCOMPARE(plainText(captured(page, "(?s)<pre class=\"file\">(.*)</pre>").join(QString())),
                 QString::fromUtf8(file.readAll()));
        isShown = true;
    }
    QVERIFY(isShown);
}

// UTF-8 that was read as another encoding begins with one of these letters.
void ManualTest::charactersAreRight_data()
{
    linksLeadSomewhere_data();
}

void ManualTest::charactersAreRight()
{
    QFETCH(QString, page);
    for (const QChar letter : {QChar(0xC2), QChar(0xC3), QChar(0xE2), QChar(QChar::ReplacementCharacter)})
        QVERIFY2(!m_pages.value(page).contains(letter), qPrintable(QString(letter)));
}

void ManualTest::anchorsAreUnique_data()
{
    linksLeadSomewhere_data();
}

void ManualTest::anchorsAreUnique()
{
    QFETCH(QString, page);
    QStringList ids = captured(m_pages.value(page), "<[a-z0-9]+ [^>]*(?<=\\s)id=\"([^\"]+)\"");
    const int count = ids.size();
    QCOMPARE(count, ids.toSet().size());
}

void ManualTest::everyMemberIsInTheSearchIndex()
{
    QSet<QString> titles;
    for (const QJsonValue &entry : qAsConst(m_index)) {
        QVERIFY(!entry[QStringLiteral("text")].toString().isEmpty());
        if (entry[QStringLiteral("address")].toString().startsWith(typePage + QLatin1Char('#')))
            titles.insert(entry[QStringLiteral("title")].toString());
    }
    const QStringList names = memberNames();
    for (const QString &name : names)
        QVERIFY2(titles.contains(name), qPrintable(name));
}

void ManualTest::searchResultsLeadSomewhere()
{
    for (const QJsonValue &entry : qAsConst(m_index)) {
        const QString address = entry[QStringLiteral("address")].toString();
        QVERIFY2(isPlace(address.section(QLatin1Char('#'), 0, 0), address.section(QLatin1Char('#'), 1)),
                 qPrintable(address));
    }
}

void ManualTest::searchFinds_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<QString>("first");
    QTest::newRow("a member") << QStringLiteral("setMasterOutLevel") << QStringLiteral("setMasterOutLevel");
    QTest::newRow("words of a name") << QStringLiteral("master+level") << QStringLiteral("setMasterOutLevel");
    QTest::newRow("other case") << QStringLiteral("NOTE") << QStringLiteral("note");
    QTest::newRow("with its type") << QStringLiteral("ZeltaConnect%3A%3AsendSysEx()")
                                   << QStringLiteral("sendSysEx");
    QTest::newRow("a section") << QStringLiteral("firmware+headers") << QStringLiteral("Firmware headers");
    QTest::newRow("nothing") << QStringLiteral("setMasterOutLevel+nothing-like-this") << QString();
    QTest::newRow("no query") << QString() << QString();
}

// The script of the search page, in a page that has only what the script uses.
void ManualTest::searchFinds()
{
    QFETCH(QString, query);
    QFETCH(QString, first);
    QJSEngine browser;
    browser.evaluate(QStringLiteral("var elements = {};"
                                    "function Element() {"
                                    "    this.children = [];"
                                    "    this.value = '';"
                                    "    this.appendChild = function(child) { this.children.push(child); };"
                                    "    this.addEventListener = function() {};"
                                    "}"
                                    "var document = {"
                                    "    getElementById: function(id) {"
                                    "        return elements[id] = elements[id] || new Element();"
                                    "    },"
                                    "    createElement: function() { return new Element(); }"
                                    "};"
                                    "var location = { search: '?q=%1' };")
                         .arg(query));
    for (const char *name : {"search-index.js", "search.js"}) {
        QFile script(QStringLiteral(ZELTACONNECT_MANUAL_DIR "/html/") + QLatin1String(name));
        QVERIFY(script.open(QIODevice::ReadOnly));
        const QJSValue result = browser.evaluate(QString::fromUtf8(script.readAll()), QLatin1String(name));
        QVERIFY2(!result.isError(), qPrintable(result.toString()));
    }
    const QJSValue results = browser.evaluate(QStringLiteral("elements.results.children"));
    QCOMPARE(results.property(QStringLiteral("length")).toInt() > 0, !first.isEmpty());
    if (!first.isEmpty()) {
        const QJSValue link = results.property(0).property(QStringLiteral("children")).property(0);
        QCOMPARE(link.property(QStringLiteral("textContent")).toString(), first);
        const QString address = link.property(QStringLiteral("href")).toString();
        QVERIFY(isPlace(address.section(QLatin1Char('#'), 0, 0), address.section(QLatin1Char('#'), 1)));
    }
}

QTEST_GUILESS_MAIN(ManualTest)
#include "tst_manual.moc"

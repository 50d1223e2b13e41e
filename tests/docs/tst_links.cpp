// The links of all documents lead to files and headings that exist.

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

namespace {

const QString root = QStringLiteral(ZELTACONNECT_SOURCE_DIR "/");

QString textOf(const QString &path)
{
    QFile file(root + path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// Blocks of code have no links and no headings.
QString withoutCode(QString text)
{
    static const QRegularExpression block(QStringLiteral("^```.*?^```$"),
                                          QRegularExpression::MultilineOption |
                                              QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression span(QStringLiteral("`[^`\\n]*`"));
    return text.remove(block).remove(span);
}

// The anchors of headings, as web sites for Markdown make them.
QStringList anchorsOf(const QString &path)
{
    static const QRegularExpression heading(QStringLiteral("^#+ (.*)$"), QRegularExpression::MultilineOption);
    static const QRegularExpression block(QStringLiteral("^```.*?^```$"),
                                          QRegularExpression::MultilineOption |
                                              QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression dropped(QStringLiteral("[^\\w -]"),
                                            QRegularExpression::UseUnicodePropertiesOption);
    QStringList anchors;
    for (auto matches = heading.globalMatch(textOf(path).remove(block)); matches.hasNext();) {
        const QString text = matches.next().captured(1).toLower().remove(dropped);
        anchors += QString(text).replace(QLatin1Char(' '), QLatin1Char('-'));
    }
    return anchors;
}

} // namespace

class LinksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linksLeadSomewhere_data();
    void linksLeadSomewhere();
};

void LinksTest::linksLeadSomewhere_data()
{
    QTest::addColumn<QString>("document");
    QStringList documents;
    const QDir top(root);
    const QStringList folders = top.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    const auto add = [&](const QString &folder) {
        const QStringList names = QDir(root + folder).entryList({QStringLiteral("*.md")}, QDir::Files);
        for (const QString &name : names)
            documents += folder + name;
    };
    add(QString());
    for (const QString &folder : folders) {
        if (folder == QLatin1String("build"))
            continue;
        add(folder + QLatin1Char('/'));
        QDirIterator inside(root + folder, QDir::Dirs | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
        while (inside.hasNext())
            add(top.relativeFilePath(inside.next()) + QLatin1Char('/'));
    }
    QVERIFY(documents.contains(QStringLiteral("README.md")));
    QVERIFY(documents.contains(QStringLiteral("docs/wire.md")));
    for (const QString &document : qAsConst(documents))
        QTest::newRow(qPrintable(document)) << document;
}

void LinksTest::linksLeadSomewhere()
{
    QFETCH(QString, document);
    static const QRegularExpression link(QStringLiteral("\\]\\(([^)\\s]+)\\)"));
    const QDir top(root);
    const QString folder = document.section(QLatin1Char('/'), 0, -2);
    for (auto matches = link.globalMatch(withoutCode(textOf(document))); matches.hasNext();) {
        const QString target = matches.next().captured(1);
        if (target.contains(QLatin1String("://")))
            continue;
        const QString path = target.section(QLatin1Char('#'), 0, 0);
        const QString anchor = target.section(QLatin1Char('#'), 1);
        const QString file =
            path.isEmpty() ? document
                           : top.relativeFilePath(QDir::cleanPath(root + folder + QLatin1Char('/') + path));
        QVERIFY2(QFile::exists(root + file), qPrintable(target));
        QVERIFY2(anchor.isEmpty() || anchorsOf(file).contains(anchor), qPrintable(target));
    }
}

QTEST_GUILESS_MAIN(LinksTest)
#include "tst_links.moc"

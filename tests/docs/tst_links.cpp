// The links of all documents lead to files and headings that exist, in the sources and in the folder of each
// package.

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

namespace {

QString textOf(const QString &path)
{
    QFile file(path);
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

// Paths relative to the folder, without the folder of builds.
QStringList documentsBelow(const QString &root)
{
    const QStringList pattern{QStringLiteral("*.md")};
    const QDir top(root);
    QStringList documents = top.entryList(pattern, QDir::Files);
    const QStringList folders = top.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &folder : folders) {
        if (folder == QLatin1String("build"))
            continue;
        QDirIterator files(top.filePath(folder), pattern, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext())
            documents += top.relativeFilePath(files.next());
    }
    return documents;
}

} // namespace

class LinksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void linksLeadSomewhere_data();
    void linksLeadSomewhere();

private:
    QTemporaryDir m_installed; ///< a folder for each component; none in a cross build
};

void LinksTest::initTestCase()
{
#ifdef ZELTACONNECT_BUILD_DIR
    for (const char *component : {"module", "tools", "simulator"}) {
        QProcess cmake;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        // Unlike the prefix, it also applies to the module, whose folder is absolute.
        environment.insert(QStringLiteral("DESTDIR"), m_installed.filePath(QLatin1String(component)));
        cmake.setProcessEnvironment(environment);
        cmake.setProcessChannelMode(QProcess::MergedChannels);
        cmake.start(QStringLiteral(ZELTACONNECT_CMAKE),
                    {QStringLiteral("--install"), QStringLiteral(ZELTACONNECT_BUILD_DIR),
                     QStringLiteral("--component"), QLatin1String(component), QStringLiteral("--prefix"),
                     QStringLiteral("/usr")});
        QVERIFY(cmake.waitForFinished(-1));
        QVERIFY2(cmake.exitStatus() == QProcess::NormalExit && cmake.exitCode() == 0,
                 cmake.readAll().constData());
    }
#endif
}

void LinksTest::linksLeadSomewhere_data()
{
    QTest::addColumn<QString>("root");
    QTest::addColumn<QString>("document");
    const auto addFolder = [](const QString &name, const QString &root) {
        QStringList documents = documentsBelow(root);
        for (const QString &document : qAsConst(documents))
            QTest::newRow(qPrintable(name + document)) << root << document;
        return documents;
    };
    const QStringList sources = addFolder(QString(), QStringLiteral(ZELTACONNECT_SOURCE_DIR));
    QVERIFY(sources.contains(QStringLiteral("README.md")));
    QVERIFY(sources.contains(QStringLiteral("docs/wire.md")));
#ifdef ZELTACONNECT_BUILD_DIR
    const QList<QPair<QString, QString>> packages{
        {QStringLiteral("module"), QStringLiteral("qml-module-zeltaconnect")},
        {QStringLiteral("tools"), QStringLiteral("zeltaconnect-tools")},
        {QStringLiteral("simulator"), QStringLiteral("libzeltasimulator-dev")}};
    for (const auto &package : packages) {
        const QString folder =
            m_installed.filePath(package.first + QStringLiteral("/usr/share/doc/") + package.second);
        const QStringList documents = addFolder(package.second + QLatin1Char('/'), folder);
        QVERIFY2(documents.contains(QStringLiteral("recipes.md")), qPrintable(package.second));
    }
#endif
}

void LinksTest::linksLeadSomewhere()
{
    QFETCH(QString, root);
    QFETCH(QString, document);
    static const QRegularExpression link(QStringLiteral("\\]\\(([^)\\s]+)\\)"));
    const QString place = root + QLatin1Char('/') + document;
    const QString folder = place.section(QLatin1Char('/'), 0, -2);
    for (auto matches = link.globalMatch(withoutCode(textOf(place))); matches.hasNext();) {
        const QString target = matches.next().captured(1);
        if (target.contains(QLatin1String("://")))
            continue;
        const QString path = target.section(QLatin1Char('#'), 0, 0);
        const QString anchor = target.section(QLatin1Char('#'), 1);
        const QString file = path.isEmpty() ? place : QDir::cleanPath(folder + QLatin1Char('/') + path);
        QVERIFY2(file.startsWith(root + QLatin1Char('/')), qPrintable(target));
        QVERIFY2(QFile::exists(file), qPrintable(target));
        QVERIFY2(anchor.isEmpty() || anchorsOf(file).contains(anchor), qPrintable(target));
    }
}

QTEST_GUILESS_MAIN(LinksTest)
#include "tst_links.moc"

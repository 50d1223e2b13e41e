// The recipe for catalogues, whose path is fixed: in a private mount namespace with an empty /home.

#include "main.h"
#include "recipe.h"
#include "support/patience.h"
#include "support/privatehome.h"
#include "support/privatenetworktest.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

using namespace testsupport;

namespace {

const QString folder = QStringLiteral("/home/.local/share/E-Drum");

void write(const QString &path, const QByteArray &text)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("%s cannot be written", qPrintable(path));
}

} // namespace

class CatalogueTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void withoutCatalogue();
    void listed();
    void replaced();
    void notReplaced_data();
    void notReplaced();

private:
    static int count(const Recipe &recipe) { return recipe.find("entries")->property("count").toInt(); }
    static void replace(const Recipe &recipe, const QString &path)
    {
        QVERIFY(QMetaObject::invokeMethod(recipe.root(), "replace", Q_ARG(QVariant, path)));
    }

    QTemporaryDir m_files;
};

void CatalogueTest::init()
{
    QVERIFY(QDir(QStringLiteral("/home/.local")).removeRecursively());
}

void CatalogueTest::withoutCatalogue()
{
    const Recipe recipe(QStringLiteral("Catalogue.qml"));
    QVERIFY2(recipe.root(), qPrintable(recipe.errorString()));
    QCOMPARE(recipe.text("problem"), QStringLiteral("There is no catalogue."));
    QCOMPARE(count(recipe), 0);
}

void CatalogueTest::listed()
{
    QVERIFY(QDir().mkpath(folder));
    write(folder + QStringLiteral("/soundBank.json"), R"({"name": "Factory", "kits": ["Rock", "Jazz"]})");
    const Recipe recipe(QStringLiteral("Catalogue.qml"));
    QVERIFY2(recipe.root(), qPrintable(recipe.errorString()));
    QCOMPARE(recipe.text("problem"), QString());
    QCOMPARE(count(recipe), 2);
    QTRY_COMPARE_WITH_TIMEOUT(recipe.text("entry0"), QStringLiteral(R"(kits: ["Rock","Jazz"])"), patienceMs);
    QCOMPARE(recipe.text("entry1"), QStringLiteral("name: Factory"));
}

void CatalogueTest::replaced()
{
    QVERIFY(QDir().mkpath(folder));
    const Recipe recipe(QStringLiteral("Catalogue.qml"));
    const QString other = m_files.filePath(QStringLiteral("other.json"));
    write(other, R"({"name": "Mine"})");
    replace(recipe, other);
    QCOMPARE(recipe.text("problem"), QString());
    QCOMPARE(count(recipe), 1);
    QFile catalogue(folder + QStringLiteral("/soundBank.json"));
    QVERIFY(catalogue.open(QIODevice::ReadOnly));
    QCOMPARE(catalogue.readAll(), QByteArray(R"({"name": "Mine"})"));
}

void CatalogueTest::notReplaced_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("hasFolder");
    QTest::addColumn<QString>("problem");
    QTest::newRow("not JSON") << QByteArray("text") << true << "This file is not a catalogue.";
    QTest::newRow("empty") << QByteArray() << true << "This file is not a catalogue.";
    QTest::newRow("no folder") << QByteArray(R"({"a": 1})") << false << "The catalogue cannot be written.";
}

void CatalogueTest::notReplaced()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, hasFolder);
    QFETCH(QString, problem);
    if (hasFolder) {
        QVERIFY(QDir().mkpath(folder));
        write(folder + QStringLiteral("/soundBank.json"), R"({"name": "Factory"})");
    }
    const Recipe recipe(QStringLiteral("Catalogue.qml"));
    const QString other = m_files.filePath(QStringLiteral("other.json"));
    write(other, content);
    replace(recipe, other);
    QCOMPARE(recipe.text("problem"), problem);
    QCOMPARE(count(recipe), hasFolder ? 1 : 0);
}

int main(int argc, char **argv)
{
    // Before the first thread starts.
    const QString noHome = enterPrivateHome();
    if (!noHome.isEmpty()) {
        QTextStream(stdout) << "skipped: the test needs a private mount namespace: " << noHome << '\n';
        return skippedExitCode;
    }
    return runRecipes<CatalogueTest>(argc, argv);
}

#include "tst_catalogue.moc"

// docs/recipes.md shows what is in the files of docs/recipes, and names all of them.

#include "docs/markdown.h"

#include <QDirIterator>
#include <QFile>
#include <QTest>

using namespace docs;

namespace {

const QString folder = QStringLiteral(ZELTACONNECT_SOURCE_DIR "/docs/recipes");

int indentOf(const QString &line)
{
    int blanks = 0;
    while (blanks < line.size() && line.at(blanks) == QLatin1Char(' '))
        ++blanks;
    return blanks;
}

// True if the lines of the file from the given one on are those of the block, which may be indented less.
bool matches(const QStringList &file, int first, const QStringList &block)
{
    const int indent = indentOf(file.at(first)) - indentOf(block.first());
    if (indent < 0 || first + block.size() > file.size())
        return false;
    for (int i = 0; i < block.size(); ++i) {
        const QString &line = block.at(i);
        if (file.at(first + i) != (line.isEmpty() ? line : QString(indent, QLatin1Char(' ')) + line))
            return false;
    }
    return true;
}

} // namespace

class ChapterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void blocksAreInFiles_data();
    void blocksAreInFiles();
    void everyFileIsNamed();
    void everyNamedFileExists();

private:
    Markdown m_chapter;
    QHash<QString, QStringList> m_files;
};

void ChapterTest::initTestCase()
{
    m_chapter = readMarkdown(QStringLiteral("docs/recipes.md"));
    QDirIterator files(folder, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        QVERIFY(file.open(QIODevice::ReadOnly));
        m_files.insert(file.fileName().mid(folder.size() + 1),
                       QString::fromUtf8(file.readAll()).split(QLatin1Char('\n')));
    }
    QVERIFY(m_files.size() > 10);
}

void ChapterTest::blocksAreInFiles_data()
{
    QTest::addColumn<QStringList>("lines");
    int blocks = 0;
    for (const Block &block : qAsConst(m_chapter.blocks)) {
        // Shell commands are in tests/recipes.
        if (block.language == QLatin1String("sh"))
            continue;
        ++blocks;
        QTest::addRow("line %d", block.line) << block.lines;
    }
    QVERIFY(blocks > 10);
}

void ChapterTest::blocksAreInFiles()
{
    QFETCH(QStringList, lines);
    bool isFound = false;
    for (const QStringList &file : qAsConst(m_files)) {
        for (int first = 0; first < file.size(); ++first)
            isFound = isFound || matches(file, first, lines);
    }
    QVERIFY2(isFound, qPrintable(lines.join(QLatin1Char('\n'))));
}

void ChapterTest::everyFileIsNamed()
{
    for (auto file = m_files.cbegin(); file != m_files.cend(); ++file)
        QVERIFY2(m_chapter.text.contains(QStringLiteral("](recipes/%1)").arg(file.key())),
                 qPrintable(file.key()));
}

void ChapterTest::everyNamedFileExists()
{
    const QStringList links = m_chapter.text.split(QStringLiteral("](recipes/")).mid(1);
    for (const QString &link : links) {
        const QString name = link.section(QLatin1Char(')'), 0, 0);
        QVERIFY2(m_files.contains(name), qPrintable(name));
    }
}

QTEST_GUILESS_MAIN(ChapterTest)
#include "tst_chapter.moc"

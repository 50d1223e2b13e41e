// Which options of zelta-send belong to which file, on the command line and in lists. --dry-run shows it.

#include "jsonkeys.h"
#include "programrun.h"

#include <QFile>
#include <QJsonArray>
#include <QTemporaryDir>
#include <QTest>

class FileGroupsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void bound_data();
    void bound();
    void refused_data();
    void refused();
    void lists_data();
    void lists();
    void badLists_data();
    void badLists();
    void unreadableLists();

private:
    QString path(const QString &name) const { return m_dir.filePath(name); }
    /// The files that would be sent: "KIND SLOT NAME FILE" each, with - for what a file does not have.
    QStringList planned(const QByteArray &output) const;
    ProgramRun runWithList(const QByteArray &text) const;

    QTemporaryDir m_dir;
};

namespace {

constexpr int misused = 2;

// Files are a, b and c; other words are options.
QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '));
}

QString textOf(const QJsonValue &value)
{
    return value.isNull() ? QStringLiteral("-") : value.toVariant().toString();
}

} // namespace

void FileGroupsTest::initTestCase()
{
    for (const char *name : {"a", "b", "c", "with blank", "sub"}) {
        QFile file(path(QLatin1String(name)));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("some bytes") == 10);
    }
}

QStringList FileGroupsTest::planned(const QByteArray &output) const
{
    QStringList files;
    const QJsonArray items = onlyObject(output).value(QLatin1String("files")).toArray();
    for (const QJsonValue &item : items) {
        const QJsonObject file = item.toObject();
        files.append(QStringLiteral("%1 %2 %3 %4")
                         .arg(textOf(file.value(QLatin1String("kind"))),
                              textOf(file.value(QLatin1String("slot"))),
                              textOf(file.value(QLatin1String("name"))),
                              file.value(QLatin1String("path")).toString().mid(m_dir.path().size() + 1)));
    }
    return files;
}

void FileGroupsTest::bound_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QStringList>("files");
    const auto row = [](const char *name, const char *arguments, const QStringList &files) {
        QTest::newRow(name) << QString::fromLatin1(arguments) << files;
    };
    const QString bankA = QStringLiteral("soundbank - - a");
    const QString bankB = QStringLiteral("triggerbank - - b");
    row("option before its only file", "--kind soundbank a", {bankA});
    row("option behind its only file", "a --kind=soundbank", {bankA});
    row("options around their only file", "--kind import-wave a --slot 7",
        {QStringLiteral("import-wave 7 - a")});
    row("a set, kind first", "--kind bluetooth a b",
        {QStringLiteral("bluetooth - - a"), QStringLiteral("bluetooth - - b")});
    row("a set, kind in the middle", "a --kind bluetooth b",
        {QStringLiteral("bluetooth - - a"), QStringLiteral("bluetooth - - b")});
    row("two kinds", "a --kind soundbank b --kind triggerbank", {bankA, bankB});
    row("two kinds and a common option", "--timeout 9 a --kind soundbank --timeout 8 b --kind triggerbank",
        {bankA, bankB});
    row("a set and a bank", "a b --kind bluetooth c --kind soundbank",
        {QStringLiteral("bluetooth - - a"), QStringLiteral("bluetooth - - b"),
         QStringLiteral("soundbank - - c")});
    row("two slots", "a --slot 1 --kind import-wave b --kind import-wave --slot 2",
        {QStringLiteral("import-wave 1 - a"), QStringLiteral("import-wave 2 - b")});
    row("two names",
        "a --kind import-soundbank --slot 1 --name x b --kind=import-soundbank --slot=2 --name=y",
        {QStringLiteral("import-soundbank 1 x a"), QStringLiteral("import-soundbank 2 y b")});
    row("the same file twice", "a --kind soundbank a --kind triggerbank",
        {bankA, QStringLiteral("triggerbank - - a")});
    row("two sets", "a --kind bluetooth b c --kind bluetooth",
        {QStringLiteral("bluetooth - - a"), QStringLiteral("bluetooth - - b"),
         QStringLiteral("bluetooth - - c")});
}

void FileGroupsTest::bound()
{
    QFETCH(const QString, arguments);
    QFETCH(const QStringList, files);
    QStringList all = {QStringLiteral("--dry-run"), QStringLiteral("--json")};
    const QStringList given = words(arguments.toLatin1().constData());
    for (const QString &word : given)
        all.append(word.size() == 1 && word.at(0) <= QLatin1Char('c') && word.at(0).isLetter() ? path(word)
                                                                                               : word);
    const ProgramRun run = runZeltaSend(all);
    QVERIFY2(run.status == 0, run.output.constData());
    QCOMPARE(planned(run.output), files);
}

void FileGroupsTest::refused_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("error");
    const auto row = [](const char *name, const char *arguments, const char *error) {
        QTest::newRow(name) << QString::fromLatin1(arguments) << QString::fromLatin1(error);
    };
    row("kinds before their files", "--kind soundbank a --kind triggerbank b",
        "--kind soundbank stands before all files");
    row("slot before its file", "--slot 1 a --kind import-wave b --kind import-wave --slot 2",
        "--slot 1 stands before all files");
    row("two kinds of one file", "a --kind soundbank --kind triggerbank", "two --kind for a");
    row("two slots of one file", "a --kind import-wave --slot 1 --slot 2", "two --slot for a");
    row("two names of a set", "a b --kind bluetooth --name x --name y",
        "two --name for b and the files before it");
    row("last file without a kind", "a --kind soundbank b --kind triggerbank c", "the kind of c is unknown");
    row("slots but one kind", "a --slot 1 b --slot 2 --kind import-wave", "--kind is missing");
    row("two files of a kind of one", "a b --kind soundbank c --kind triggerbank",
        "--kind soundbank takes one file");
    row("second needs a slot", "a --kind soundbank b --kind import-wave --timeout 9",
        "--kind import-wave needs --slot");
    row("second has no slot", "a --kind import-wave --slot 1 b --kind soundbank --slot 2",
        "--kind soundbank has no slot");
    row("second kind is unknown", "a --kind soundbank b --kind zip", "no kind zip");
    row("second slot is none", "a --kind import-wave --slot 1 b --kind import-wave --slot x",
        "--slot takes 0 to 65535, not x");
    row("list and files", "--list a b", "--list names all files");
    row("list and kind", "--list a --kind soundbank", "--list names all files");
    row("two lists", "--list a --list b", "--list is given twice");
    row("inspect and kind", "--inspect a --kind soundbank", "--inspect takes nothing but files");
    row("inspect and list", "--inspect --list a", "--inspect takes nothing but files");
    row("inspect nothing", "--inspect", "no file given");
    row("diagnose and a file", "--diagnose a", "--diagnose sends no files");
    row("diagnose and a list", "--diagnose --list a", "--diagnose sends no files");
    row("two actions", "--inspect --diagnose", "--inspect and --diagnose exclude each other");
    row("dry run of versions", "--dry-run --versions", "--dry-run and --versions exclude each other");
    row("quiet and progress", "--quiet --progress a --kind soundbank",
        "--quiet and --progress exclude each other");
}

void FileGroupsTest::refused()
{
    QFETCH(const QString, arguments);
    QFETCH(const QString, error);
    const ProgramRun run = runZeltaSend(words(arguments.toLatin1().constData()));
    QCOMPARE(run.status, misused);
    QVERIFY2(QString::fromLocal8Bit(run.errors).contains(error), run.errors.constData());
    QCOMPARE(run.errors.count('\n'), 1);
    QCOMPARE(run.output, QByteArray());
}

ProgramRun FileGroupsTest::runWithList(const QByteArray &text) const
{
    QFile list(path(QStringLiteral("update.list")));
    if (!list.open(QIODevice::WriteOnly) || list.write(text) != text.size())
        return {};
    list.close();
    return runZeltaSend(
        {QStringLiteral("--dry-run"), QStringLiteral("--json"), QStringLiteral("--list"), list.fileName()});
}

void FileGroupsTest::lists_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("files");
    const QString bankA = QStringLiteral("soundbank - - a");
    QTest::newRow("one line") << QByteArray("a --kind soundbank\n") << QStringList{bankA};
    QTest::newRow("kind first") << QByteArray("--kind soundbank a") << QStringList{bankA};
    QTest::newRow("comments and empty lines")
        << QByteArray("# all\n\n  \n  # more\n  a --kind soundbank  \n") << QStringList{bankA};
    QTest::newRow("ends of lines of another system")
        << QByteArray("a --kind soundbank\r\n") << QStringList{bankA};
    QTest::newRow("two lines") << QByteArray("a --kind soundbank\nb --kind import-wave --slot 3\n")
                               << QStringList{bankA, QStringLiteral("import-wave 3 - b")};
    QTest::newRow("a set on a line") << QByteArray("a b --kind bluetooth\n")
                                     << QStringList{QStringLiteral("bluetooth - - a"),
                                                    QStringLiteral("bluetooth - - b")};
    QTest::newRow("quotation marks")
        << QByteArray("\"with blank\" --kind import-soundbank --slot 1 --name \"A \\\"b\\\" \\\\\"\n")
        << QStringList{QStringLiteral("import-soundbank 1 A \"b\" \\ with blank")};
    QTest::newRow("letters beyond ASCII")
        << QByteArray("a --kind import-soundbank --slot 1 --name \xc3\xa4\n")
        << QStringList{QStringLiteral("import-soundbank 1 \u00e4 a")};
}

void FileGroupsTest::lists()
{
    QFETCH(const QByteArray, text);
    QFETCH(const QStringList, files);
    const ProgramRun run = runWithList(text);
    QVERIFY2(run.status == 0, run.output.constData());
    QCOMPARE(planned(run.output), files);
}

void FileGroupsTest::badLists_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("error");
    const auto row = [](const char *name, const char *text, const char *error) {
        QTest::newRow(name) << QByteArray(text) << QString::fromLatin1(error);
    };
    row("no kind", "a\n", "update.list:1: the kind of the file is unknown");
    row("no kind on the second line", "a --kind soundbank\nb\n", "update.list:2: the kind of");
    row("unknown option", "#\n\na --fast\n", "update.list:3: unknown option --fast");
    row("option of the program", "a --kind soundbank --json\n", "update.list:1: unknown option --json");
    row("no quotation mark", "\"a --kind soundbank\n", "update.list:1: a quotation mark is missing");
    row("no value", "a --kind\n", "update.list:1: --kind needs a value");
    row("no file", "--kind soundbank\n", "update.list:1: no file given");
    row("nothing", "# nothing\n", "names no file");
    row("noise", "\xff\xfe\x01 \"", "update.list:1: ");
}

void FileGroupsTest::badLists()
{
    QFETCH(const QByteArray, text);
    QFETCH(const QString, error);
    const ProgramRun run = runWithList(text);
    QCOMPARE(run.status, misused);
    const QString message = onlyObject(run.output).value(QLatin1String("message")).toString();
    QVERIFY2(message.contains(error), qPrintable(message));
}

void FileGroupsTest::unreadableLists()
{
    const auto errorOf = [](const QString &list) {
        const ProgramRun run = runZeltaSend({QStringLiteral("--list"), list});
        return run.status == misused ? QString::fromLocal8Bit(run.errors) : QStringLiteral("another status");
    };
    QVERIFY(errorOf(path(QStringLiteral("none"))).contains(QLatin1String("--list: cannot read ")));
    QVERIFY(errorOf(m_dir.path()).contains(QLatin1String("--list: cannot read ")));
    QVERIFY(errorOf(QStringLiteral("/dev/zero")).contains(QLatin1String("--list: cannot read ")));
    QFile large(path(QStringLiteral("large.list")));
    QVERIFY(large.open(QIODevice::WriteOnly) && large.resize(1024 * 1024 + 1));
    QVERIFY(errorOf(large.fileName()).contains(QLatin1String("larger than 1 MiB")));
}

QTEST_GUILESS_MAIN(FileGroupsTest)
#include "tst_filegroups.moc"

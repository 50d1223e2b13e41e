// --help, manual page and bash completion of each program agree.

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

class ManualsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyProgramHasAManual_data();
    void everyProgramHasAManual();
    void nothingElseIsDocumented();
    void optionsOfTheHelp_data();
    void optionsOfTheHelp();
    void exitStatuses_data();
    void exitStatuses();
    void sections_data();
    void sections();
    void mandocFindsNothing_data();
    void mandocFindsNothing();
    void completionOffersAllOptions_data();
    void completionOffersAllOptions();
    void completionOffersValues_data();
    void completionOffersValues();

private:
    QString manual(const QString &program) const;
    QString help(const QString &program);
    QStringList complete(const QStringList &words);
    void addPrograms();

    QMap<QString, QString> m_programs; ///< path by name
    QMap<QString, QString> m_help;
    QTemporaryDir m_folder;
};

namespace {

const QString packaging = QStringLiteral(MANUALS_DIR "/");

QString readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QStringList linesOf(const QString &text)
{
    QStringList lines = text.split(QLatin1Char('\n'));
    lines.removeAll(QString());
    return lines;
}

QStringList found(const QString &text, const QString &pattern)
{
    const QRegularExpression expression(pattern);
    QStringList texts;
    for (auto matches = expression.globalMatch(text); matches.hasNext();)
        texts.append(matches.next().captured(1));
    texts.removeDuplicates();
    texts.sort();
    return texts;
}

QStringList optionsIn(const QString &text)
{
    return found(text, QStringLiteral("(?<![\\w-])(--[a-z]+(?:-[a-z]+)*|-[a-zA-Z])(?![\\w])"));
}

// The lines of a section of a manual page.
QString section(const QString &manual, const QString &title)
{
    const QRegularExpression expression(QStringLiteral("^\\.SH %1\\n(.*?)(?=^\\.SH |\\z)").arg(title),
                                        QRegularExpression::MultilineOption |
                                            QRegularExpression::DotMatchesEverythingOption);
    return expression.match(manual).captured(1);
}

} // namespace

void ManualsTest::initTestCase()
{
    // Written by CMake: all programs of the project that a user runs, "name=path".
    const QStringList lines = linesOf(readFile(QStringLiteral(PROGRAM_LIST)));
    for (const QString &line : lines)
        m_programs.insert(line.section(QLatin1Char('='), 0, 0), line.section(QLatin1Char('='), 1));
    QVERIFY(m_programs.contains(QStringLiteral("zelta-send")));

    // bash finds programs by their names, and completions in the folder "completions".
    QVERIFY(m_folder.isValid());
    QVERIFY(QFile::link(packaging + QStringLiteral("completion"),
                        m_folder.filePath(QStringLiteral("completions"))));
    QVERIFY(QDir(m_folder.path()).mkdir(QStringLiteral("bin")));
    for (auto program = m_programs.cbegin(); program != m_programs.cend(); ++program)
        QVERIFY(QFile::link(program.value(), m_folder.filePath(QStringLiteral("bin/") + program.key())));
}

void ManualsTest::addPrograms()
{
    QTest::addColumn<QString>("program");
    for (auto program = m_programs.cbegin(); program != m_programs.cend(); ++program)
        QTest::newRow(qPrintable(program.key())) << program.key();
}

QString ManualsTest::manual(const QString &program) const
{
    return readFile(packaging + program + QStringLiteral(".1"))
        .replace(QStringLiteral("\\-"), QStringLiteral("-"))
        .remove(QRegularExpression(QStringLiteral("\\\\f[A-Z]")));
}

QString ManualsTest::help(const QString &program)
{
    if (!m_help.contains(program)) {
        QProcess process;
        process.start(m_programs.value(program), {QStringLiteral("--help")});
        if (process.waitForFinished() && process.exitCode() == 0)
            m_help.insert(program, QString::fromLocal8Bit(process.readAllStandardOutput()));
    }
    return m_help.value(program);
}

// What bash offers for the last word. An interactive shell does the same when Tab is pressed.
QStringList ManualsTest::complete(const QStringList &words)
{
    const QString script =
        QStringLiteral("source /usr/share/bash-completion/bash_completion\n"
                       "_completion_loader \"$1\"\n"
                       "function=$(complete -p \"$1\" | sed 's/.* -F \\([^ ]*\\) .*/\\1/')\n"
                       "COMP_WORDS=(\"$@\") COMP_CWORD=$(($# - 1)) COMP_LINE=\"$*\" && "
                       "COMP_LINE=${COMP_LINE/ = /=} COMP_POINT=${#COMP_LINE}\n"
                       "COMP_TYPE=9 COMP_KEY=9\n"
                       "\"$function\" \"$1\" \"${!#}\" \"${COMP_WORDS[COMP_CWORD - 1]}\"\n"
                       "printf '%s\\n' \"${COMPREPLY[@]}\"\n");
    QProcess bash;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("BASH_COMPLETION_USER_DIR"), m_folder.path());
    environment.insert(QStringLiteral("PATH"), m_folder.filePath(QStringLiteral("bin")) + QLatin1Char(':') +
                                                   environment.value(QStringLiteral("PATH")));
    bash.setProcessEnvironment(environment);
    bash.setWorkingDirectory(packaging);
    bash.start(QStringLiteral("bash"),
               QStringList{QStringLiteral("--norc"), QStringLiteral("-c"), script, QStringLiteral("bash")} +
                   words);
    if (!bash.waitForFinished())
        return {QStringLiteral("bash does not end")};
    const QString errors = QString::fromLocal8Bit(bash.readAllStandardError());
    if (!errors.isEmpty())
        return {errors};
    QStringList offered = linesOf(QString::fromLocal8Bit(bash.readAllStandardOutput()));
    offered.sort();
    return offered;
}

void ManualsTest::everyProgramHasAManual_data()
{
    addPrograms();
}

void ManualsTest::everyProgramHasAManual()
{
    QFETCH(QString, program);
    QVERIFY(!manual(program).isEmpty());
    QVERIFY(QFile::exists(packaging + QStringLiteral("completion/") + program));
}

void ManualsTest::nothingElseIsDocumented()
{
    QStringList expected;
    const QStringList programs = m_programs.keys();
    for (const QString &program : programs)
        expected += program + QStringLiteral(".1");
    QCOMPARE(QDir(packaging).entryList({QStringLiteral("*.1")}, QDir::Files, QDir::Name), expected);
    QCOMPARE(QDir(packaging + QStringLiteral("completion")).entryList(QDir::Files, QDir::Name), programs);
}

void ManualsTest::optionsOfTheHelp_data()
{
    addPrograms();
}

void ManualsTest::optionsOfTheHelp()
{
    QFETCH(QString, program);
    const QStringList offered = optionsIn(help(program));
    QVERIFY(offered.contains(QStringLiteral("--help")));
    QCOMPARE(optionsIn(manual(program)), offered);
    // Each has an entry of its own.
    QCOMPARE(optionsIn(
                 found(section(manual(program), QStringLiteral("OPTIONS")), QStringLiteral("\\.TP\\n(.*)\\n"))
                     .join(QLatin1Char('\n'))),
             offered);
}

void ManualsTest::exitStatuses_data()
{
    addPrograms();
}

void ManualsTest::exitStatuses()
{
    QFETCH(QString, program);
    const QString text =
        help(program).section(QStringLiteral("Exit status:"), 1).section(QStringLiteral("\n\n"), 0, 0);
    const QStringList statuses = found(QLatin1Char(';') + text, QStringLiteral(";\\s*(\\d+)\\s"));
    QVERIFY(statuses.contains(QStringLiteral("0")));
    QCOMPARE(found(section(manual(program), QStringLiteral("EXIT STATUS")),
                   QStringLiteral("\\.TP\\n\\.B (\\d+)\\n")),
             statuses);
}

void ManualsTest::sections_data()
{
    addPrograms();
}

void ManualsTest::sections()
{
    QFETCH(QString, program);
    for (const char *title :
         {"NAME", "SYNOPSIS", "DESCRIPTION", "OPTIONS", "EXIT STATUS", "EXAMPLES", "SEE ALSO"})
        QVERIFY2(!section(manual(program), QLatin1String(title)).isEmpty(), title);
    // An example calls the program.
    QVERIFY(section(manual(program), QStringLiteral("EXAMPLES")).contains(program + QLatin1Char(' ')));
}

void ManualsTest::mandocFindsNothing_data()
{
    addPrograms();
}

void ManualsTest::mandocFindsNothing()
{
    QFETCH(QString, program);
    QProcess mandoc;
    mandoc.setProcessChannelMode(QProcess::MergedChannels);
    mandoc.start(QStringLiteral("mandoc"),
                 {QStringLiteral("-Tlint"), packaging + program + QStringLiteral(".1")});
    QVERIFY2(mandoc.waitForFinished(), qPrintable(mandoc.errorString()));
    QCOMPARE(QString::fromLocal8Bit(mandoc.readAll()), QString());
    QCOMPARE(mandoc.exitCode(), 0);
}

void ManualsTest::completionOffersAllOptions_data()
{
    addPrograms();
}

void ManualsTest::completionOffersAllOptions()
{
    QFETCH(QString, program);
    QCOMPARE(complete({program, QStringLiteral("-")}), optionsIn(help(program)));
    QCOMPARE(complete({program, QStringLiteral("--hel")}), QStringList{QStringLiteral("--help")});
    QCOMPARE(complete({program, QStringLiteral("--wrong")}), QStringList());
}

void ManualsTest::completionOffersValues_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QStringList>("offered");
    const auto listed = [this](const char *program, const char *pattern) {
        QStringList values = found(help(QLatin1String(program)).simplified(), QLatin1String(pattern))
                                 .join(QString())
                                 .split(QStringLiteral(", "));
        values.sort();
        return values;
    };
    const auto words = [](const char *line) {
        return QString::fromLatin1(line).split(QLatin1Char(' '));
    };
    QTest::newRow("all kinds") << words("zelta-send --kind ")
                               << listed("zelta-send", "What the file is: ([^.]*)\\.");
    QTest::newRow("a kind") << words("zelta-send --kind so") << words("soundbank");
    QTest::newRow("a kind, one word") << words("zelta-send --kind = tr") << words("trigger triggerbank");
    QTest::newRow("no slot") << words("zelta-send --slot ") << QStringList();
    QTest::newRow("a file") << words("zelta-send --kind soundbank zelta-sen") << words("zelta-send.1");
    QTest::newRow("a folder") << words("zelta-send --import c") << words("completion");
    QTest::newRow("all pages") << words("zelta-demo --page ")
                               << listed("zelta-demo", "Open this page first: ([^.]*)\\.");
    QTest::newRow("a failure mode") << words("zelta-engine-sim --fail memory-full-e1")
                                    << words("memory-full-e1");
    QTest::newRow("folders for files") << words("zelta-engine-sim --store c") << words("completion");
}

void ManualsTest::completionOffersValues()
{
    QFETCH(QStringList, words);
    QFETCH(QStringList, offered);
    QCOMPARE(complete(words), offered);
}

QTEST_GUILESS_MAIN(ManualsTest)
#include "tst_manuals.moc"

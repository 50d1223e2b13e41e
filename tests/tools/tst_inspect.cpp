// zelta-send --inspect: what a file is and which version it has, without network and without the QML module.

#include "jsonkeys.h"
#include "programrun.h"

#include <QFile>
#include <QJsonArray>
#include <QTemporaryDir>
#include <QTest>

class InspectTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void files_data();
    void files();
    void severalFiles();
    void badFiles();
    void needsNoModule();

private:
    QString write(const char *name, const QByteArray &bytes) const;

    QTemporaryDir m_dir;
};

QString InspectTest::write(const char *name, const QByteArray &bytes) const
{
    QFile file(m_dir.filePath(QLatin1String(name)));
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() ? file.fileName() : QString();
}

void InspectTest::files_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("version");
    const auto row = [](const char *name, const char *file, const QByteArray &contents, const char *text,
                        const char *kind, const char *version) {
        QTest::newRow(name) << QByteArray(file) << contents << QString::fromLatin1(text)
                            << QString::fromLatin1(kind) << QString::fromLatin1(version);
    };
    row("trigger board", "a.bin", QByteArray("TGFW\x1f\x00\x02\x00rest", 12),
        "trigger-board firmware, version 2.31", "trigger", "2.31");
    row("trigger board, short header", "a.bin", "TGFW\x05", "trigger-board firmware, version 0.05", "trigger",
        "0.05");
    row("sound engine", "a.bin", "xx4810QN-abc1.05 - more", "sound-engine firmware, version 1.05", "zelta",
        "1.05");
    row("sound engine without a version", "a.bin", "4810QN-abc", "sound-engine firmware, without a version",
        "zelta", "");
    row("sound engine without a point", "a.bin", "4810QN-abc105 - more",
        "sound-engine firmware, without a version", "zelta", "");
    row("mark beyond the first 100 bytes", "a.bin", QByteArray(100, 'x') + "4810QN-abc1.05 - ",
        "not recognised", "", "");
    row("WAV", "a.wav",
        QByteArray("RIFF\x24\x08\x00\x00WAVEfmt \x10\x00\x00\x00\x01\x00\x02\x00\x44\xac\x00\x00"
                   "\x10\xb1\x02\x00\x04\x00\x10\x00",
                   36),
        "a WAV file, channels: 2, 44100 Hz, 16 bits", "import-wave", "");
    row("WAV with another first chunk", "a.wav", QByteArray("RIFF\x24\x08\x00\x00WAVELIST", 16),
        "a WAV file (", "import-wave", "");
    row("RIFF of another kind", "a.avi",
        QByteArray("RIFF\x24\x08\x00\x00"
                   "AVI LIST",
                   16),
        "not recognised", "", "");
    row("bluetooth, first", "m.b00", "some", "a part of bluetooth firmware, by its name", "bluetooth", "");
    row("bluetooth, last", "m.b15", "some", "a part of bluetooth firmware, by its name", "bluetooth", "");
    row("bluetooth, ipf", "m.ipf", "some", "a part of bluetooth firmware, by its name", "bluetooth", "");
    row("no bluetooth file", "m.b16", "some", "not recognised", "", "");
    row("no bluetooth number", "m.bin", "some", "not recognised", "", "");
    row("anything", "kit.bank", "some", "not recognised; a bank carries no mark (no --kind, 4 bytes)", "",
        "");
}

void InspectTest::files()
{
    QFETCH(const QByteArray, name);
    QFETCH(const QByteArray, contents);
    QFETCH(const QString, text);
    const QString path = write(name.constData(), contents);
    const ProgramRun plain = runZeltaSend({QStringLiteral("--inspect"), path});
    QCOMPARE(plain.status, 0);
    QCOMPARE(plain.errors, QByteArray());
    QCOMPARE(plain.output.count('\n'), 1);
    QVERIFY2(QString::fromLocal8Bit(plain.output).startsWith(path + QStringLiteral(": ") + text),
             plain.output.constData());

    const ProgramRun json = runZeltaSend({QStringLiteral("--inspect"), QStringLiteral("--json"), path});
    QCOMPARE(json.status, 0);
    const QJsonObject result = onlyObject(json.output);
    QVERIFY(hasDocumentedKeys(result));
    const QJsonObject file = result.value(QLatin1String("files")).toArray().at(0).toObject();
    QTEST(file.value(QLatin1String("looksLike")).toString(), "kind");
    QTEST(file.value(QLatin1String("fileVersion")).toString(), "version");
    QCOMPARE(file.value(QLatin1String("bytes")).toInt(), contents.size());
    QCOMPARE(file.value(QLatin1String("state")).toString(), QStringLiteral("inspected"));
}

void InspectTest::severalFiles()
{
    const QString first = write("first.bin", QByteArray("TGFW\x01\x00\x01\x00", 8));
    const QString second = write("second.bin", "bank");
    const ProgramRun run = runZeltaSend({QStringLiteral("--inspect"), first, second});
    QCOMPARE(run.status, 0);
    const QList<QByteArray> lines = run.output.split('\n');
    QCOMPARE(lines.size(), 3);
    QVERIFY(lines.at(0).startsWith(first.toLocal8Bit()));
    QVERIFY(lines.at(1).startsWith(second.toLocal8Bit()));
}

void InspectTest::badFiles()
{
    const QString good = write("good.bin", "bank");
    const QString empty = write("empty.bin", "");
    const QString missing = m_dir.filePath(QStringLiteral("missing.bin"));
    const ProgramRun one = runZeltaSend({QStringLiteral("--inspect"), missing, good});
    QCOMPARE(one.status, 3);
    QCOMPARE(one.errors, "zelta-send: no such file: " + missing.toLocal8Bit() + '\n');
    QVERIFY(one.output.startsWith(good.toLocal8Bit()));
    const ProgramRun two = runZeltaSend({QStringLiteral("--inspect"), missing, empty, m_dir.path()});
    QCOMPARE(two.status, 3);
    QCOMPARE(two.output, QByteArray());
    QCOMPARE(two.errors, "zelta-send: no such file: " + missing.toLocal8Bit() +
                             "\nzelta-send: the file is empty: " + empty.toLocal8Bit() +
                             "\nzelta-send: not a file: " + m_dir.path().toLocal8Bit() +
                             "\nzelta-send: 3 files cannot be used\n");
}

// With an address that the module would refuse, in a folder without the module.
void InspectTest::needsNoModule()
{
    const QString path = write("fw.bin", QByteArray("TGFW\x01\x00\x01\x00", 8));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("ZELTACONNECT_ENGINE"), QStringLiteral("no address"));
    const ProgramRun run = runZeltaSend(
        {QStringLiteral("--inspect"), QStringLiteral("--import"), m_dir.path(), path}, environment);
    QCOMPARE(run.status, 0);
    QVERIFY(run.output.contains("version 1.01"));
}

QTEST_GUILESS_MAIN(InspectTest)
#include "tst_inspect.moc"

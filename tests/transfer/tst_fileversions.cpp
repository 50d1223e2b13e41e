#include "transfer/fileversions.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

// Versions in firmware files.

class FileVersionsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void zelta_data();
    void zelta();
    void trigger_data();
    void trigger();
    void unreadable_data();
    void unreadable();

private:
    QString write(const QByteArray &content) const;

    QTemporaryDir m_dir;
};

QString FileVersionsTest::write(const QByteArray &content) const
{
    QFile file(m_dir.filePath(QStringLiteral("firmware")));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write");
    return file.fileName();
}

void FileVersionsTest::zelta_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("version");

    const auto row = [](const char *name, const QByteArray &content, int version) {
        QTest::newRow(name) << content << version;
    };
    row("plain", "4810QN-xyz1.05 - anything", 0x00010005);
    row("behind other text", "\x01\x02 firmware 4810QN-xyz12.34 - ", 0x000C0022);
    row("no major", "4810QN-xyz.5 - ", 5);
    row("no minor", "4810QN-xyz5. - ", 0x00050000);
    row("no numbers", "4810QN-xyzA.B - ", 0);
    row("nothing but the point", "4810QN-xyz. - ", 0);
    row("half a number", "4810QN-xyz1x.5y - ", 0);
    row("second point", "4810QN-xyz1.2.3 - ", 0x00010000);
    row("first of two", "4810QN-xyz1.02 - 4810QN-xyz3.04 - ", 0x00010002);
    row("prefix broken off and again", "4810QN4810QN-xyz1.02 - ", 0x00010002);
    row("separator at once", "4810QN-xyz - 1.05 - ", -1);
    row("no point", "4810QN-xyz105 - ", -1);
    row("point behind the separator", "4810QN-xyz1 - .05", -1);
    row("no separator", "4810QN-xyz1.05-", -1);
    row("other prefix", "4811QN-xyz1.05 - ", -1);
    row("lower case", "4810qn-xyz1.05 - ", -1);
    row("empty", QByteArray(), -1);
    row("prefix only", "4810QN-", -1);
    row("prefix and two letters", "4810QN-xy", -1);
    row("zero bytes between", QByteArray("\0\0\0", 3) + "4810QN-" + QByteArray("\0\0\0", 3) + "1.05 - ",
        0x00010005);

    // Only a version text within the first 100 bytes counts.
    const QByteArray text = "4810QN-xyz1.05 - ";
    row("ends at byte 100", QByteArray(100 - text.size(), 'x') + text, 0x00010005);
    row("separator beyond byte 100", QByteArray(101 - text.size(), 'x') + text, -1);
    row("prefix at byte 93", QByteArray(93, 'x') + text, -1);
    row("prefix across byte 100", QByteArray(95, 'x') + text, -1);
    row("prefix beyond byte 100", QByteArray(100, 'x') + text, -1);

    row("negative major", "4810QN-xyz-1.05 - ", int(0xFFFF0005));
    row("negative minor", "4810QN-xyz1.-1 - ", 0x0000FFFF);
    row("major beyond 16 bits", "4810QN-xyz65537.1 - ", 0x00010001);
    row("minor beyond 16 bits", "4810QN-xyz1.65537 - ", 0x00020001);
    row("largest numbers", "4810QN-xyz2147483647.2147483647 - ", 0x7FFEFFFF);
    row("smallest numbers", "4810QN-xyz-2147483648.-2147483648 - ", int(0x80000000));
    row("numbers too large", "4810QN-xyz2147483648.99999999999999999999 - ", 0);
}

void FileVersionsTest::zelta()
{
    QFETCH(const QByteArray, content);
    QFETCH(const int, version);
    QCOMPARE(zelta::zeltaFirmwareVersion(write(content)), version);
}

void FileVersionsTest::trigger_data()
{
    QTest::addColumn<QByteArray>("hex");
    QTest::addColumn<int>("version");

    QTest::newRow("1.5") << QByteArray("54474657 0500 0100") << 0x00010005;
    QTest::newRow("every byte") << QByteArray("54474657 3412 7856 ffff") << 0x56781234;
    QTest::newRow("0") << QByteArray("54474657 0000 0000") << 0;
    QTest::newRow("negative") << QByteArray("54474657 ffff ffff") << -1;
    QTest::newRow("negative, not -1") << QByteArray("54474657 0000 0080") << int(0x80000000);
    QTest::newRow("other letters") << QByteArray("54474658 0500 0100") << -1;
    QTest::newRow("lower case") << QByteArray("74676677 0500 0100") << -1;
    QTest::newRow("letters behind a byte") << QByteArray("00 54474657 0500 0100") << -1;
    QTest::newRow("empty") << QByteArray() << -1;
    QTest::newRow("three bytes") << QByteArray("544746") << -1;
    // Missing bytes count as 0.
    QTest::newRow("four bytes") << QByteArray("54474657") << 0;
    QTest::newRow("five bytes") << QByteArray("54474657 05") << 5;
    QTest::newRow("six bytes") << QByteArray("54474657 0501") << 0x0105;
    QTest::newRow("seven bytes") << QByteArray("54474657 0500 01") << 0x00010005;
}

void FileVersionsTest::trigger()
{
    QFETCH(const QByteArray, hex);
    QFETCH(const int, version);
    QCOMPARE(zelta::triggerFirmwareVersion(write(QByteArray::fromHex(hex))), version);
}

void FileVersionsTest::unreadable_data()
{
    QTest::addColumn<QString>("path");

    QTest::newRow("empty path") << QString();
    QTest::newRow("missing") << m_dir.filePath(QStringLiteral("missing"));
    QTest::newRow("folder") << m_dir.path();
}

void FileVersionsTest::unreadable()
{
    QFETCH(const QString, path);
    QCOMPARE(zelta::zeltaFirmwareVersion(path), -1);
    QCOMPARE(zelta::triggerFirmwareVersion(path), -1);
}

QTEST_APPLESS_MAIN(FileVersionsTest)
#include "tst_fileversions.moc"

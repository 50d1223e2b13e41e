#include "session.h"

#include "control/qconnectqmlplugin.h"
#include "support/logcatcher.h"
#include "support/privatehome.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QTest>

#include <sys/stat.h>

// Catalogues of installed banks. Their paths are fixed, so the tests run in a private mount namespace with an
// empty /home.

namespace {

const QString catalogueFolder = QStringLiteral("/home/.local/share/E-Drum");
const QString soundBankCatalogue = QStringLiteral("/home/.local/share/E-Drum/soundBank.json");
const QString triggerBankCatalogue = QStringLiteral("/home/.local/share/E-Drum/triggerBank.json");

// The reason why there is no private /home; empty if there is one.
QString &refusal()
{
    static QString text;
    return text;
}

} // namespace

class CatalogueTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void text_data();
    void text();
    void lists_data();
    void lists();
    void unreadable_data();
    void unreadable();
    void backup_data();
    void backup();
    void backupWithoutFolder();
    void backupOverAFolder();
    void backupOfTheCatalogueItself();
    void backupReplacesAll();
    void asQmlSeesThem();

private:
    QByteArray contentOf(const QString &path) const;

    TestFiles m_files;
    Session m_session{Session::NoRecording};
};

#define SKIP_WITHOUT_PRIVATE_HOME()                                                                          \
    if (!refusal().isEmpty())                                                                                \
    QSKIP(qPrintable(QStringLiteral("no private /home: ") + refusal()))

QByteArray CatalogueTest::contentOf(const QString &path) const
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

void CatalogueTest::init()
{
    if (!refusal().isEmpty())
        return;
    QDir(QStringLiteral("/home/.local")).removeRecursively();
    QVERIFY(QDir().mkpath(catalogueFolder));
}

void CatalogueTest::text_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("text");

    QTest::newRow("plain") << QByteArray("{\"a\": 1}\n") << QStringLiteral("{\"a\": 1}\n");
    QTest::newRow("empty") << QByteArray() << QString();
    QTest::newRow("not JSON") << QByteArray("hello") << QStringLiteral("hello");
    QTest::newRow("zero byte") << QByteArray("before\0behind", 13) << QStringLiteral("before");
    QTest::newRow("zero byte first") << QByteArray("\0behind", 7) << QString();
    QTest::newRow("Latin-1") << QByteArray("\xE4\xFF") << QStringLiteral("\u00e4\u00ff");
    QTest::newRow("UTF-8 stays bytes") << QByteArray("\xC3\xA4") << QStringLiteral("\u00c3\u00a4");
    QTest::newRow("line ends") << QByteArray("a\r\nb\n\rc") << QStringLiteral("a\nb\nc");
}

void CatalogueTest::text()
{
    QFETCH(const QByteArray, content);
    QFETCH(const QString, text);
    const QString path = m_files.write(QStringLiteral("text"), content);
    QCOMPARE(m_session.plugin().parseJsonFile(path), text);
}

void CatalogueTest::lists_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QJsonObject>("object");

    QTest::newRow("object")
        << QByteArray("{\"banks\": [{\"name\": \"\xC3\xA4\"}, 2]}")
        << QJsonObject{{QStringLiteral("banks"),
                        QJsonArray{QJsonObject{{QStringLiteral("name"), QStringLiteral("\u00e4")}}, 2}}};
    QTest::newRow("empty object") << QByteArray("{}") << QJsonObject();
    QTest::newRow("array") << QByteArray("[{\"a\": 1}]") << QJsonObject();
    QTest::newRow("number") << QByteArray("5") << QJsonObject();
    QTest::newRow("cut short") << QByteArray("{\"a\": 1") << QJsonObject();
    QTest::newRow("text behind") << QByteArray("{\"a\": 1} x") << QJsonObject();
    QTest::newRow("empty") << QByteArray() << QJsonObject();
    QTest::newRow("zero byte") << QByteArray("{\"a\": 1}\0", 9) << QJsonObject();
    QTest::newRow("not UTF-8") << QByteArray("{\"a\": \"\xFF\"}") << QJsonObject();
    QTest::newRow("too deep") << QByteArray(5000, '[') << QJsonObject();
}

void CatalogueTest::lists()
{
    QFETCH(const QByteArray, content);
    QFETCH(const QJsonObject, object);
    const QString path = m_files.write(QStringLiteral("list"), content);
    QCOMPARE(m_session.plugin().parseSoundBankList(path), object);
    QCOMPARE(m_session.plugin().parseTriggerBankList(path), object);
}

void CatalogueTest::unreadable_data()
{
    QTest::addColumn<QString>("path");

    QTest::newRow("empty path") << QString();
    QTest::newRow("missing") << m_files.path(QStringLiteral("missing"));
    QTest::newRow("folder") << m_files.path(QString());
    QVERIFY(::mkfifo(QFile::encodeName(m_files.path(QStringLiteral("pipe"))).constData(), 0600) == 0);
    QTest::newRow("pipe") << m_files.path(QStringLiteral("pipe"));
    QTest::newRow("device without an end") << QStringLiteral("/dev/zero");
}

void CatalogueTest::unreadable()
{
    QFETCH(const QString, path);

    const testsupport::LogCatcher log;
    QConnectQmlPlugin &plugin = m_session.plugin();
    QCOMPARE(plugin.parseJsonFile(path), QString());
    QCOMPARE(plugin.parseSoundBankList(path), QJsonObject());
    QCOMPARE(plugin.parseTriggerBankList(path), QJsonObject());
    SKIP_WITHOUT_PRIVATE_HOME();
    QCOMPARE(plugin.backupSoundBankList(path), -1);
    QCOMPARE(plugin.backupTriggerBankList(path), -1);
    QVERIFY(!QFile::exists(soundBankCatalogue));
    QVERIFY(!QFile::exists(triggerBankCatalogue));
    QCOMPARE(log.lines().size(), 0);
}

void CatalogueTest::backup_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("copy");

    QTest::newRow("catalogue") << QByteArray("{\"banks\": []}\n") << QByteArray("{\"banks\": []}\n");
    QTest::newRow("empty") << QByteArray() << QByteArray();
    QTest::newRow("any bytes") << QByteArray("\0\xFF\x01\n", 4) << QByteArray("\0\xFF\x01\n", 4);
    QTest::newRow("line ends") << QByteArray("a\r\nb\r\n") << QByteArray("a\nb\n");
    QTest::newRow("large") << QByteArray(3000000, 'x') << QByteArray(3000000, 'x');
}

void CatalogueTest::backup()
{
    QFETCH(const QByteArray, content);
    QFETCH(const QByteArray, copy);
    SKIP_WITHOUT_PRIVATE_HOME();

    const QString path = m_files.write(QStringLiteral("source"), content);
    QCOMPARE(m_session.plugin().backupSoundBankList(path), 0);
    QVERIFY(contentOf(soundBankCatalogue) == copy);
    QVERIFY(!QFile::exists(triggerBankCatalogue));
    QCOMPARE(m_session.plugin().backupTriggerBankList(path), 0);
    QVERIFY(contentOf(triggerBankCatalogue) == copy);
    QVERIFY(contentOf(path) == content);
}

void CatalogueTest::backupWithoutFolder()
{
    SKIP_WITHOUT_PRIVATE_HOME();
    QVERIFY(QDir(QStringLiteral("/home/.local")).removeRecursively());
    const QString path = m_files.write(QStringLiteral("source"), "content");
    QCOMPARE(m_session.plugin().backupSoundBankList(path), -2);
    QCOMPARE(m_session.plugin().backupTriggerBankList(path), -2);
    QCOMPARE(contentOf(path), QByteArray("content"));
    QVERIFY(!QFile::exists(QStringLiteral("/home/.local")));
}

void CatalogueTest::backupOverAFolder()
{
    SKIP_WITHOUT_PRIVATE_HOME();
    QVERIFY(QDir().mkpath(soundBankCatalogue));
    QCOMPARE(m_session.plugin().backupSoundBankList(m_files.write(QStringLiteral("source"), "content")), -2);
    QVERIFY(QDir(soundBankCatalogue).exists());
}

void CatalogueTest::backupOfTheCatalogueItself()
{
    SKIP_WITHOUT_PRIVATE_HOME();
    QCOMPARE(m_session.plugin().backupSoundBankList(m_files.write(QStringLiteral("source"), "content")), 0);
    QCOMPARE(m_session.plugin().backupSoundBankList(soundBankCatalogue), 0);
    QCOMPARE(contentOf(soundBankCatalogue), QByteArray("content"));
}

void CatalogueTest::backupReplacesAll()
{
    SKIP_WITHOUT_PRIVATE_HOME();
    QCOMPARE(m_session.plugin().backupTriggerBankList(
                 m_files.write(QStringLiteral("long"), QByteArray(1000, 'x'))),
             0);
    QCOMPARE(m_session.plugin().backupTriggerBankList(m_files.write(QStringLiteral("short"), "y")), 0);
    QCOMPARE(contentOf(triggerBankCatalogue), QByteArray("y"));
}

// QML calls the methods by name and gets their results.
void CatalogueTest::asQmlSeesThem()
{
    const QString path = m_files.write(QStringLiteral("list"), "{\"a\": 1}");
    QObject *plugin = &m_session.plugin();
    QString text;
    QVERIFY(QMetaObject::invokeMethod(plugin, "parseJsonFile", Q_RETURN_ARG(QString, text),
                                      Q_ARG(QString, path)));
    QCOMPARE(text, QStringLiteral("{\"a\": 1}"));
    QJsonObject object;
    QVERIFY(QMetaObject::invokeMethod(plugin, "parseSoundBankList", Q_RETURN_ARG(QJsonObject, object),
                                      Q_ARG(QString, path)));
    QCOMPARE(object, (QJsonObject{{QStringLiteral("a"), 1}}));
    int result = 1;
    QVERIFY(QMetaObject::invokeMethod(plugin, "backupSoundBankList", Q_RETURN_ARG(int, result),
                                      Q_ARG(QString, m_files.path(QStringLiteral("missing")))));
    QCOMPARE(result, -1);
}

int main(int argc, char **argv)
{
    // Before the first thread starts: a process with several threads cannot change its user namespace.
    refusal() = testsupport::enterPrivateHome();
    QCoreApplication application(argc, argv);
    CatalogueTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_catalogue.moc"

// The files beside the library: type information that matches the library, and their installation.

#include "support/enginepeer.h"
#include "support/logcatcher.h"
#include "support/testprogram.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace testsupport;

namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Removes the comment at the top, which contains the command line that wrote the file.
QByteArray withoutComments(const QByteArray &types)
{
    QByteArray result;
    const QList<QByteArray> lines = types.split('\n');
    for (const QByteArray &line : lines) {
        if (!line.startsWith("//"))
            result += line + '\n';
    }
    return result;
}

bool isSanitized()
{
    return !QByteArray(ZELTACONNECT_SANITIZE).isEmpty();
}

} // namespace

class FilesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typeInformationIsCurrent();
    void buildTreeHasTheCommittedFiles();
    void installs();
};

void FilesTest::typeInformationIsCurrent()
{
    if (isSanitized())
        QSKIP("a program without sanitizers cannot load this build of the plug-in");
    const QString program = QStringLiteral(ZELTACONNECT_QMLPLUGINDUMP);
    if (program.isEmpty())
        QSKIP("this machine's qmlplugindump cannot load a library for another processor");
    if (!QFile::exists(program))
        QSKIP("qmlplugindump is missing (Debian package qtdeclarative5-dev-tools)");

    // A module without plugins.qmltypes, so that the tool reads only the library.
    const QTemporaryDir directory;
    QVERIFY(QDir(directory.path()).mkdir(QStringLiteral("ZeltaConnect")));
    const QString module = directory.filePath(QStringLiteral("ZeltaConnect/"));
    const QString built = testsupport::qmlDir() + QStringLiteral("/ZeltaConnect/");
    for (const QString &name : {QStringLiteral("qmldir"), QStringLiteral("libzeltaconnectplugin.so")})
        QVERIFY(QFile::copy(built + name, module + name));

    QProcess dump;
    dump.setWorkingDirectory(directory.path());
    dump.start(program, {QStringLiteral("-noinstantiate"), QStringLiteral("ZeltaConnect"),
                         QStringLiteral("1.0"), QStringLiteral(".")});
    QVERIFY(dump.waitForFinished());
    const QByteArray fresh = dump.readAllStandardOutput();
    QVERIFY2(dump.exitCode() == 0, dump.readAllStandardError().constData());
    QVERIFY(fresh.contains("exports: [\"ZeltaConnect 1.0\"]"));
    const QByteArray committed =
        contentOf(QStringLiteral(ZELTACONNECT_PLUGIN_SOURCE_DIR "/plugins.qmltypes"));
    QVERIFY2(withoutComments(fresh) == withoutComments(committed),
             "plugin/plugins.qmltypes is out of date: build target update-qmltypes of preset dev");
}

void FilesTest::buildTreeHasTheCommittedFiles()
{
    for (const QString &name : {QStringLiteral("qmldir"), QStringLiteral("plugins.qmltypes")}) {
        const QByteArray committed = contentOf(QStringLiteral(ZELTACONNECT_PLUGIN_SOURCE_DIR "/") + name);
        QVERIFY(!committed.isEmpty());
        QCOMPARE(contentOf(testsupport::qmlDir() + QStringLiteral("/ZeltaConnect/") + name), committed);
    }
}

void FilesTest::installs()
{
    const QTemporaryDir root;
    QProcess install;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DESTDIR"), root.path());
    install.setProcessEnvironment(environment);
    install.setProcessChannelMode(QProcess::MergedChannels);
    // Installs only the module, so that the test does not depend on the programs of other folders.
    install.start(QStringLiteral(ZELTACONNECT_CMAKE),
                  {QStringLiteral("-DCMAKE_INSTALL_LOCAL_ONLY=1"), QStringLiteral("-P"),
                   QStringLiteral(ZELTACONNECT_PLUGIN_BINARY_DIR "/cmake_install.cmake")});
    QVERIFY(install.waitForFinished());
    QVERIFY2(install.exitCode() == 0, install.readAll().constData());

    const QString importPath = root.path() + QStringLiteral(ZELTACONNECT_QML_INSTALL_DIR);
    const QString installed = importPath + QStringLiteral("/ZeltaConnect");
    QCOMPARE(QDir(installed).entryList(QDir::Files, QDir::Name),
             QStringList({QStringLiteral("libzeltaconnectplugin.so"), QStringLiteral("plugins.qmltypes"),
                          QStringLiteral("qmldir")}));

    EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    const LogCatcher log;
    QQmlEngine engine;
    engine.addImportPath(importPath);
    QQmlComponent component(&engine);
    component.setData("import ZeltaConnect 1.0\nZeltaConnect {}", QUrl());
    const std::unique_ptr<QObject> module(component.create());
    QVERIFY2(module, qPrintable(component.errorString()));
    QVERIFY(peer.connectTo(module.get()));
    QCOMPARE(log.warnings(), QStringList());
}

QTEST_MAIN(FilesTest)
#include "tst_files.moc"

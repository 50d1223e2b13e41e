// The companion module: its files in the build tree and in an installation, its import without anything else
// of the build tree, and its type information.

#include "support/enginepeer.h"
#include "support/logcatcher.h"
#include "support/testprogram.h"

#include <QDir>
#include <QFile>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QProcess>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlExpression>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace testsupport;

namespace {

const QString sourceDir = QStringLiteral(ZELTACONNECT_COMPANION_SOURCE_DIR "/");
const QString companionDir = QStringLiteral("/ZeltaConnect/Companion");

QStringList typeNames()
{
    return {QStringLiteral("Engine"), QStringLiteral("FileTransfer"), QStringLiteral("HitModel"),
            QStringLiteral("Kit"), QStringLiteral("Parameter")};
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Everything that belongs to the module.
QStringList moduleFiles()
{
    QStringList names = QDir(sourceDir).entryList(QDir::Files, QDir::Name);
    names.removeAll(QStringLiteral("CMakeLists.txt"));
    return names;
}

// Uses each type once.
const char *const screen = R"(
import QtQml 2.12
import ZeltaConnect.Companion 1.0

QtObject {
    id: screen
    readonly property Engine engine: Engine {}
    readonly property FileTransfer transfer: FileTransfer { engine: screen.engine }
    readonly property HitModel hits: HitModel { engine: screen.engine }
    readonly property Parameter parameter: Parameter { engine: screen.engine; method: "setSongLevel" }
    readonly property QtObject kit: Kit
    readonly property int kickNote: Kit.noteOf(0)
    readonly property int idle: FileTransfer.Idle
}
)";

// The part of plugins.qmltypes about one type.
QString typeInformation(const QString &type)
{
    const QString all = QString::fromUtf8(contentOf(sourceDir + QStringLiteral("plugins.qmltypes")));
    const QString begin = QStringLiteral("        name: \"%1\"\n").arg(type);
    return all.section(begin, 1).section(QStringLiteral("\n    }\n"), 0, 0);
}

QStringList captured(const QString &text, const char *expression)
{
    QStringList found;
    const QRegularExpression pattern(QString::fromLatin1(expression));
    for (auto matches = pattern.globalMatch(text); matches.hasNext();)
        found.append(matches.next().captured(1));
    return found;
}

} // namespace

class CompanionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void buildTreeHasTheCommittedFiles();
    void installs();
    void otherVersionsAreRefused();
    void internalTypesAreHidden();
    void typeInformationIsCurrent_data();
    void typeInformationIsCurrent();
    void enumerationsAreCurrent();
    void isCleanUnderQmllint();

private:
    static std::unique_ptr<QObject> create(QQmlEngine &engine, const char *source);

    QTemporaryDir m_root;
    QString m_importPath;
};

std::unique_ptr<QObject> CompanionTest::create(QQmlEngine &engine, const char *source)
{
    QQmlComponent component(&engine);
    component.setData(source, QUrl());
    std::unique_ptr<QObject> object(component.create());
    if (!object)
        qWarning() << component.errorString();
    return object;
}

// A process can load the plug-in from one folder only, so all functions use the installation.
void CompanionTest::initTestCase()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DESTDIR"), m_root.path());
    for (const char *folder : {ZELTACONNECT_PLUGIN_BINARY_DIR, ZELTACONNECT_COMPANION_BINARY_DIR}) {
        QProcess install;
        install.setProcessEnvironment(environment);
        install.setProcessChannelMode(QProcess::MergedChannels);
        install.start(QStringLiteral(ZELTACONNECT_CMAKE),
                      {QStringLiteral("-DCMAKE_INSTALL_LOCAL_ONLY=1"),
                       QStringLiteral("-DCMAKE_INSTALL_COMPONENT=module"), QStringLiteral("-P"),
                       QLatin1String(folder) + QStringLiteral("/cmake_install.cmake")});
        QVERIFY(install.waitForFinished());
        QVERIFY2(install.exitCode() == 0, install.readAll().constData());
    }
    m_importPath = m_root.path() + QStringLiteral(ZELTACONNECT_QML_INSTALL_DIR);
}

void CompanionTest::buildTreeHasTheCommittedFiles()
{
    const QString built = testsupport::qmlDir() + companionDir;
    QCOMPARE(QDir(built).entryList(QDir::Files, QDir::Name), moduleFiles());
    const QStringList names = moduleFiles();
    for (const QString &name : names)
        QVERIFY2(contentOf(built + QLatin1Char('/') + name) == contentOf(sourceDir + name), qPrintable(name));
}

void CompanionTest::installs()
{
    QCOMPARE(QDir(m_importPath + companionDir).entryList(QDir::Files, QDir::Name), moduleFiles());
    // The plug-in and its files stay as they are.
    QCOMPARE(QDir(m_importPath + QStringLiteral("/ZeltaConnect")).entryList(QDir::Files, QDir::Name),
             QStringList({QStringLiteral("libzeltaconnectplugin.so"), QStringLiteral("plugins.qmltypes"),
                          QStringLiteral("qmldir")}));

    EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    const LogCatcher log;
    QQmlEngine engine;
    engine.addImportPath(m_importPath);
    const std::unique_ptr<QObject> object = create(engine, screen);
    QVERIFY(object);
    QCOMPARE(object->property("kickNote").toInt(), 36);
    // Its engine asks for the levels.
    QVERIFY(!peer.next().isEmpty());
    QCOMPARE(log.warnings(), QStringList());
}

void CompanionTest::otherVersionsAreRefused()
{
    QQmlEngine engine;
    engine.addImportPath(m_importPath);
    for (const char *version : {"2.0", "0.9", "1.1"}) {
        QQmlComponent component(&engine);
        component.setData(QByteArray("import ZeltaConnect.Companion ") + version + "\nEngine {}", QUrl());
        QVERIFY2(component.isError(), version);
    }
}

void CompanionTest::internalTypesAreHidden()
{
    QQmlEngine engine;
    engine.addImportPath(m_importPath);
    const QStringList files = moduleFiles().filter(QStringLiteral(".qml"));
    for (const QString &file : files) {
        const QString type = file.section(QLatin1Char('.'), 0, 0);
        if (!file.endsWith(QStringLiteral(".qml")) || typeNames().contains(type))
            continue;
        QQmlComponent component(&engine);
        component.setData("import ZeltaConnect.Companion 1.0\n" + type.toLatin1() + " {}", QUrl());
        QVERIFY2(component.isError(), qPrintable(type));
    }
}

void CompanionTest::typeInformationIsCurrent_data()
{
    QTest::addColumn<QString>("property");
    QTest::newRow("Engine") << QStringLiteral("engine");
    QTest::newRow("FileTransfer") << QStringLiteral("transfer");
    QTest::newRow("HitModel") << QStringLiteral("hits");
    QTest::newRow("Kit") << QStringLiteral("kit");
    QTest::newRow("Parameter") << QStringLiteral("parameter");
}

void CompanionTest::typeInformationIsCurrent()
{
    QFETCH(const QString, property);
    QQmlEngine engine;
    engine.addImportPath(m_importPath);
    const std::unique_ptr<QObject> root = create(engine, screen);
    QVERIFY(root);
    const auto *object = root->property(qPrintable(property)).value<QObject *>();
    QVERIFY(object);
    const QMetaObject *meta = object->metaObject();
    const QString text = typeInformation(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(text.contains(QStringLiteral("exports: [\"ZeltaConnect.Companion/%1 1.0\"]")
                              .arg(QLatin1String(QTest::currentDataTag()))));

    const QStringList lines = captured(text, "(Property \\{ [^}]*\\})");
    QVERIFY(!lines.isEmpty());
    for (const QString &line : lines) {
        const QByteArray name = captured(line, "name: \"(\\w+)\"").value(0).toLatin1();
        const QString type = captured(line, "type: \"(\\w+)\"").value(0);
        const QMetaProperty actual = meta->property(meta->indexOfProperty(name));
        QVERIFY2(actual.isValid(), name);
        QCOMPARE(actual.isWritable(), !line.contains(QLatin1String("isReadonly: true")));
        QString actualType = QString::fromLatin1(actual.typeName());
        actualType.replace(QStringLiteral("QString"), QStringLiteral("string")).remove(QLatin1Char('*'));
        QVERIFY2(actualType == type || actualType.startsWith(type + QStringLiteral("_QMLTYPE")),
                 qPrintable(actualType));
    }
    const QStringList blocks = captured(text, "((?:Method|Signal) \\{(?:[^{}]|\\{[^{}]*\\})*\\})");
    for (const QString &block : blocks) {
        const QByteArray name = captured(block, "name: \"(\\w+)\"").value(0).toLatin1();
        const int parameters = block.count(QStringLiteral("Parameter {"));
        bool found = false;
        for (int i = 0; i < meta->methodCount(); ++i) {
            const QMetaMethod method = meta->method(i);
            const bool isSignal = method.methodType() == QMetaMethod::Signal;
            found |= method.name() == name && method.parameterCount() == parameters &&
                     isSignal == block.startsWith(QLatin1String("Signal"));
        }
        QVERIFY2(found, name);
    }
    // All signals of the type, except those of properties.
    QStringList signalNames;
    for (int i = meta->superClass()->methodCount(); i < meta->methodCount(); ++i) {
        const QString name = QString::fromLatin1(meta->method(i).name());
        if (meta->method(i).methodType() == QMetaMethod::Signal && !name.endsWith(QLatin1String("Changed")))
            signalNames.append(name);
    }
    QCOMPARE(captured(text, "Signal \\{\\s+name: \"(\\w+)\""), signalNames);
}

void CompanionTest::enumerationsAreCurrent()
{
    QQmlEngine engine;
    engine.addImportPath(m_importPath);
    const QString text = typeInformation(QStringLiteral("FileTransfer"));
    const QString source = QString::fromUtf8(contentOf(sourceDir + QStringLiteral("FileTransfer.qml")));
    QStringList inSource;
    const QStringList enums = captured(source, "enum \\w+ \\{([^}]*)\\}");
    for (const QString &body : enums)
        inSource += captured(body, "(\\w+)");
    QStringList inInformation;
    const QRegularExpression value(QStringLiteral("\"(\\w+)\": (\\d+)"));
    for (auto matches = value.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        inInformation.append(match.captured(1));
        const std::unique_ptr<QObject> object = create(
            engine,
            qPrintable(QStringLiteral("import QtQml 2.12\nimport ZeltaConnect.Companion 1.0\nQtObject { "
                                      "property int value: FileTransfer.%1 }")
                           .arg(match.captured(1))));
        QVERIFY(object);
        QCOMPARE(object->property("value").toInt(), match.captured(2).toInt());
    }
    QVERIFY(!inSource.isEmpty());
    QCOMPARE(inInformation, inSource);
}

void CompanionTest::isCleanUnderQmllint()
{
    const QString program = QStringLiteral(ZELTACONNECT_QMLLINT);
    if (!QFile::exists(program))
        QSKIP("qmllint is missing (Debian package qtdeclarative5-dev-tools)");
    QStringList files;
    const QStringList names = moduleFiles();
    for (const QString &name : names) {
        if (name.endsWith(QLatin1String(".qml")) || name.endsWith(QLatin1String(".js")))
            files.append(sourceDir + name);
    }
    QVERIFY(files.size() > typeNames().size());
    QProcess lint;
    lint.setProcessChannelMode(QProcess::MergedChannels);
    lint.start(program, files);
    QVERIFY(lint.waitForFinished());
    const QByteArray output = lint.readAll();
    QVERIFY2(lint.exitCode() == 0 && output.isEmpty(), output.constData());
}

QTEST_MAIN(CompanionTest)
#include "tst_companion.moc"

// Plug-in metadata in the library, as QPluginLoader reports it and byte by byte.

#include "support/hex.h"
#include "support/testprogram.h"

#include <QCborMap>
#include <QCborValue>
#include <QDir>
#include <QFile>
#include <QJsonObject>
#include <QPluginLoader>
#include <QQmlExtensionPlugin>
#include <QTest>

using namespace testsupport;

namespace {

QString libraryPath()
{
    return testsupport::qmlDir() + QStringLiteral("/ZeltaConnect/libzeltaconnectplugin.so");
}

} // namespace

class MetadataTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void threeFiles();
    void asTheLoaderReadsIt();
    void bytesInTheLibrary();
    void sameInstanceTwice();
    void instanceIsRecreatedAfterItsDeletion();
    void hasNoMembersOfItsOwn();
};

void MetadataTest::threeFiles()
{
    QCOMPARE(QDir(testsupport::qmlDir() + QStringLiteral("/ZeltaConnect")).entryList(QDir::Files, QDir::Name),
             QStringList({QStringLiteral("libzeltaconnectplugin.so"), QStringLiteral("plugins.qmltypes"),
                          QStringLiteral("qmldir")}));
}

void MetadataTest::asTheLoaderReadsIt()
{
    const QPluginLoader loader(libraryPath());
    const QJsonObject metadata = loader.metaData();
    QCOMPARE(metadata.value(QLatin1String("IID")).toString(),
             QStringLiteral("org.qt-project.Qt.QQmlExtensionInterface"));
    QCOMPARE(metadata.value(QLatin1String("className")).toString(), QStringLiteral("ZeltaConnectPlugin"));
    QVERIFY(metadata.value(QLatin1String("MetaData")).toObject().isEmpty());
}

void MetadataTest::bytesInTheLibrary()
{
    QFile library(libraryPath());
    QVERIFY(library.open(QIODevice::ReadOnly));
    const QByteArray content = library.readAll();
    const QByteArray magic("QTMETADATA !");
    const int position = content.indexOf(magic);
    QVERIFY(position >= 0);
    QCOMPARE(content.indexOf(magic, position + 1), -1);

    const QByteArray version = content.mid(position + magic.size(), 4);
    QCOMPARE(int(version.at(0)), 0);
    QCOMPARE(int(version.at(1)), QT_VERSION_MAJOR);
    QCOMPARE(int(version.at(2)), QT_VERSION_MINOR);
    // A debug plug-in cannot be loaded by a release build of Qt, and a release plug-in not by a debug build.
#ifdef QT_NO_DEBUG
    QCOMPARE(int(version.at(3)), 0);
#else
    QCOMPARE(int(version.at(3)), 1);
#endif

    // A CBOR map with two entries. Key 2 is a text of 40 characters, key 3 a text of 18.
    const QByteArray map = content.mid(position + magic.size() + 4);
    const QByteArray expected =
        hex("02 7828") + "org.qt-project.Qt.QQmlExtensionInterface" + hex("03 72") + "ZeltaConnectPlugin";
    QVERIFY2(map.startsWith(hex("bf") + expected + hex("ff")) || map.startsWith(hex("a2") + expected),
             map.left(80).toHex().constData());

    const QCborMap parsed = QCborValue::fromCbor(map).toMap();
    QCOMPARE(parsed.size(), qsizetype(2));
    QCOMPARE(parsed.value(2).toString(), QStringLiteral("org.qt-project.Qt.QQmlExtensionInterface"));
    QCOMPARE(parsed.value(3).toString(), QStringLiteral("ZeltaConnectPlugin"));
}

void MetadataTest::sameInstanceTwice()
{
    QPluginLoader first(libraryPath());
    QPluginLoader second(libraryPath());
    QObject *instance = first.instance();
    QVERIFY2(instance, qPrintable(first.errorString()));
    QCOMPARE(first.instance(), instance);
    QCOMPARE(second.instance(), instance);
    QVERIFY(qobject_cast<QQmlExtensionPlugin *>(instance));
    QCOMPARE(instance->parent(), nullptr);
}

void MetadataTest::instanceIsRecreatedAfterItsDeletion()
{
    QFunctionPointer entry = QLibrary(libraryPath()).resolve("qt_plugin_instance");
    QVERIFY(entry);
    const auto instanceOf = reinterpret_cast<QObject *(*)()>(entry);
    QObject *first = instanceOf();
    QVERIFY(first);
    QCOMPARE(instanceOf(), first);
    // The plug-in keeps a guarded pointer: after the object is deleted, the next call creates another one.
    delete first;
    QObject *next = instanceOf();
    QVERIFY(next);
    QCOMPARE(instanceOf(), next);
    QVERIFY(QLibrary(libraryPath()).resolve("qt_plugin_query_metadata"));
}

void MetadataTest::hasNoMembersOfItsOwn()
{
    QPluginLoader loader(libraryPath());
    const QObject *instance = loader.instance();
    QVERIFY2(instance, qPrintable(loader.errorString()));
    const QMetaObject *meta = instance->metaObject();
    QCOMPARE(meta->className(), "ZeltaConnectPlugin");
    QCOMPARE(meta->methodCount(), QQmlExtensionPlugin::staticMetaObject.methodCount());
    QCOMPARE(meta->propertyCount(), QQmlExtensionPlugin::staticMetaObject.propertyCount());
    QCOMPARE(meta->classInfoCount(), QQmlExtensionPlugin::staticMetaObject.classInfoCount());
}

QTEST_MAIN(MetadataTest)
#include "tst_metadata.moc"

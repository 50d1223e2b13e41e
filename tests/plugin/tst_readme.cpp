// What the README tells people to write runs as it stands.

#include "support/enginepeer.h"
#include "support/hex.h"
#include "support/logcatcher.h"

#include <QFile>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QTest>

#include <memory>

using namespace testsupport;

class ReadmeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void exampleRuns();
};

namespace {

// The one example, without the lines around it.
QByteArray example()
{
    QFile readme(QStringLiteral(ZELTACONNECT_README));
    if (!readme.open(QIODevice::ReadOnly))
        return {};
    const QByteArray text = readme.readAll();
    const QByteArray opening = "```qml\n";
    const int begin = text.indexOf(opening) + opening.size();
    return text.mid(begin, text.indexOf("```", begin) - begin);
}

} // namespace

void ReadmeTest::exampleRuns()
{
    const QByteArray source = example();
    QVERIFY(source.contains("ZeltaConnect {"));

    EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    LogCatcher log;
    QQmlEngine engine;
    // Before all others: an installed module must not be tested instead.
    engine.addImportPath(QStringLiteral(ZELTACONNECT_QML_DIR));
    QQmlComponent component(&engine);
    component.setData(source, QUrl());
    const std::unique_ptr<QObject> screen(component.create());
    QVERIFY2(screen, qPrintable(component.errorString()));

    // The fader that it shows, moved as far as it goes.
    const auto *item = qobject_cast<QQuickItem *>(screen.get());
    QVERIFY(item);
    QObject *slider = nullptr;
    const QList<QQuickItem *> children = item->childItems();
    for (QQuickItem *child : children) {
        if (child->property("to").toDouble() == 127.0)
            slider = child;
    }
    QVERIFY(slider);
    QVERIFY(slider->setProperty("value", 127.0));
    QVERIFY(QMetaObject::invokeMethod(slider, "moved"));
    QCOMPARE(peer.next(), hex("494D0003 0BB96338 0BB96207 0BB9067F"));

    // A pad that is struck; what the handler makes of it must not fail.
    QObject *module = nullptr;
    const QObjectList all = screen->children();
    for (QObject *child : all) {
        if (child->inherits("QConnectQmlPlugin"))
            module = child;
    }
    QVERIFY(module);
    QVERIFY(peer.send(hex("494D 4143 9909 4026")));
    QTRY_COMPARE(module->property("note").toUInt(), 0x00012640U);
    QCOMPARE(log.warnings(), QStringList());
}

QTEST_MAIN(ReadmeTest)
#include "tst_readme.moc"

#include "contract/surface.h"
#include "support/testprogram.h"

#include <QGuiApplication>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QScopedPointer>
#include <QTest>
#include <QUrl>

using namespace zelta::contract;

namespace {

QString argumentList(const QMetaMethod &method)
{
    QStringList arguments;
    for (int i = 0; i < method.parameterCount(); ++i)
        arguments += QLatin1String(method.parameterTypes().at(i)) + QLatin1Char(' ') +
                     QLatin1String(method.parameterNames().at(i));
    return QLatin1Char('(') + arguments.join(QStringLiteral(", ")) + QLatin1Char(')');
}

QString signature(const QMetaMethod &method)
{
    return QLatin1String(method.name()) + argumentList(method);
}

QString signatureWithResult(const QMetaMethod &method)
{
    return QLatin1String(method.typeName()) + QLatin1Char(' ') + signature(method);
}

QStringList texts(const testsupport::Table<const char *> &literals)
{
    QStringList result;
    for (const char *literal : literals)
        result += QLatin1String(literal);
    return result;
}

QStringList without(QStringList texts, const QStringList &removed)
{
    for (const QString &text : removed)
        texts.removeOne(text);
    return texts;
}

QString propertyText(const char *name, const char *type, const char *notifySignal, bool isFinal)
{
    return QStringLiteral("%1 %2, notified by %3%4")
        .arg(QLatin1String(type), QLatin1String(name), QLatin1String(notifySignal),
             isFinal ? QStringLiteral(", final") : QString());
}

} // namespace

/// The complete surface of the QML type, member by member.
class SurfaceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void className();
    void nothingElse();
    void properties();
    void propertiesAreReadOnly_data();
    void propertiesAreReadOnly();
    void propertyValuesHaveTheirType_data();
    void propertyValuesHaveTheirType();
    void signalsInOrder();
    void slotsInOrder();
    void methodsInOrder();
    void everyMethodIsPublic();
    void everySlotIsPrivate();

private:
    QList<QMetaMethod> methodsOfType(QMetaMethod::MethodType type) const;
    void compareSurface(const QStringList &actual, const QStringList &expected);

    QQmlEngine m_engine;
    QScopedPointer<QObject> m_module;
    const QMetaObject *m_meta = nullptr;
};

void SurfaceTest::initTestCase()
{
    m_engine.addImportPath(testsupport::qmlDir());
    QQmlComponent component(&m_engine);
    component.setData("import ZeltaConnect 1.0\nZeltaConnect {}", QUrl());
    m_module.reset(component.create());
    QVERIFY2(m_module, qPrintable(component.errorString()));
    m_meta = m_module->metaObject();
}

QList<QMetaMethod> SurfaceTest::methodsOfType(QMetaMethod::MethodType type) const
{
    QList<QMetaMethod> methods;
    for (int i = m_meta->methodOffset(); i < m_meta->methodCount(); ++i) {
        if (m_meta->method(i).methodType() == type)
            methods += m_meta->method(i);
    }
    return methods;
}

// Reports missing and extra members before it compares the order: one missing member shifts all others.
void SurfaceTest::compareSurface(const QStringList &actual, const QStringList &expected)
{
    const QStringList missing = without(expected, actual);
    const QStringList extra = without(actual, expected);
    QVERIFY2(missing.isEmpty(), qPrintable(QStringLiteral("missing: ") + missing.join(QStringLiteral("; "))));
    QVERIFY2(extra.isEmpty(), qPrintable(QStringLiteral("extra: ") + extra.join(QStringLiteral("; "))));
    QCOMPARE(actual, expected);
}

void SurfaceTest::className()
{
    QCOMPARE(QByteArray(m_meta->className()), QByteArray("QConnectQmlPlugin"));
    QCOMPARE(QByteArray(m_meta->superClass()->className()), QByteArray("QQuickItem"));
}

void SurfaceTest::nothingElse()
{
    const int listed =
        texts(signalSignatures).size() + texts(slotSignatures).size() + texts(methodSignatures).size();
    QCOMPARE(m_meta->methodCount() - m_meta->methodOffset(), listed);
    QCOMPARE(m_meta->enumeratorCount() - m_meta->enumeratorOffset(), 0);
}

void SurfaceTest::properties()
{
    QStringList actual;
    for (int i = m_meta->propertyOffset(); i < m_meta->propertyCount(); ++i) {
        const QMetaProperty property = m_meta->property(i);
        QVERIFY2(property.hasNotifySignal(), property.name());
        actual += propertyText(property.name(), property.typeName(),
                               property.notifySignal().name().constData(), property.isFinal());
    }
    QStringList expected;
    for (const Property &property : zelta::contract::properties)
        expected +=
            propertyText(property.name, property.type, property.notifySignal, property.finality == IsFinal);
    compareSurface(actual, expected);
}

void SurfaceTest::propertiesAreReadOnly_data()
{
    QTest::addColumn<QByteArray>("name");
    for (const Property &property : zelta::contract::properties)
        QTest::newRow(property.name) << QByteArray(property.name);
}

void SurfaceTest::propertiesAreReadOnly()
{
    QFETCH(QByteArray, name);
    const QMetaProperty property = m_meta->property(m_meta->indexOfProperty(name.constData()));
    QVERIFY(property.isReadable());
    QVERIFY(!property.isWritable());
    QVERIFY(!property.isResettable());
    QVERIFY(!property.isConstant());
    QVERIFY(!property.isUser());
    QVERIFY(property.isScriptable());
    QVERIFY(property.isDesignable());
    QVERIFY(property.isStored());
    QCOMPARE(property.revision(), 0);
    QCOMPARE(property.notifySignal().enclosingMetaObject(), m_meta);
}

void SurfaceTest::propertyValuesHaveTheirType_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("type");
    for (const Property &property : zelta::contract::properties)
        QTest::newRow(property.name) << QByteArray(property.name) << QByteArray(property.type);
}

void SurfaceTest::propertyValuesHaveTheirType()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, type);
    QCOMPARE(QByteArray(m_module->property(name.constData()).typeName()), type);
}

void SurfaceTest::signalsInOrder()
{
    QStringList actual;
    const QList<QMetaMethod> methods = methodsOfType(QMetaMethod::Signal);
    for (const QMetaMethod &method : methods) {
        actual += signature(method);
        QCOMPARE(QByteArray(method.typeName()), QByteArray("void"));
    }
    compareSurface(actual, texts(signalSignatures));
}

void SurfaceTest::slotsInOrder()
{
    QStringList actual;
    const QList<QMetaMethod> methods = methodsOfType(QMetaMethod::Slot);
    for (const QMetaMethod &method : methods) {
        actual += signature(method);
        QCOMPARE(QByteArray(method.typeName()), QByteArray("void"));
    }
    compareSurface(actual, texts(slotSignatures));
}

void SurfaceTest::methodsInOrder()
{
    QStringList actual;
    const QList<QMetaMethod> methods = methodsOfType(QMetaMethod::Method);
    for (const QMetaMethod &method : methods)
        actual += signatureWithResult(method);
    compareSurface(actual, texts(methodSignatures));
}

void SurfaceTest::everyMethodIsPublic()
{
    const QList<QMetaMethod> methods =
        methodsOfType(QMetaMethod::Method) + methodsOfType(QMetaMethod::Signal);
    for (const QMetaMethod &method : methods) {
        QVERIFY2(method.access() == QMetaMethod::Public, method.name().constData());
        QVERIFY2(method.revision() == 0, method.name().constData());
    }
}

void SurfaceTest::everySlotIsPrivate()
{
    const QList<QMetaMethod> methods = methodsOfType(QMetaMethod::Slot);
    for (const QMetaMethod &method : methods)
        QVERIFY2(method.access() == QMetaMethod::Private, method.name().constData());
}

QTEST_MAIN(SurfaceTest)
#include "tst_surface.moc"

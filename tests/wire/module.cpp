#include "wire/module.h"

#include "support/testprogram.h"

#include <QMetaMethod>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlExpression>
#include <QUrl>
#include <QVector>

namespace zelta {
namespace wire {

namespace {

// Converts a number of QML to any integer type: the low bits of the integer part.
template<typename T>
QVariant integer(const QJSValue &value)
{
    return QVariant::fromValue(static_cast<T>(static_cast<qint64>(value.toNumber())));
}

template<typename List>
QVariant integers(const QJSValue &array)
{
    List list;
    const int length = array.property(QStringLiteral("length")).toInt();
    for (int i = 0; i < length; ++i)
        list.append(static_cast<int>(array.property(quint32(i)).toNumber()));
    return QVariant::fromValue(list);
}

QVariant argumentOfType(int type, const QJSValue &value)
{
    switch (type) {
    case QMetaType::Bool: return value.toBool();
    case QMetaType::UChar: return integer<uchar>(value);
    case QMetaType::SChar: return integer<signed char>(value);
    case QMetaType::UShort: return integer<ushort>(value);
    case QMetaType::UInt: return integer<uint>(value);
    case QMetaType::Int: return integer<int>(value);
    case QMetaType::Double: return value.toNumber();
    case QMetaType::QString: return value.toString();
    default: break;
    }
    if (type == qMetaTypeId<QList<int>>())
        return integers<QList<int>>(value);
    if (type == qMetaTypeId<QVector<int>>())
        return integers<QVector<int>>(value);
    return QVariant();
}

QMetaMethod methodNamed(const QObject *object, const QByteArray &name)
{
    const QMetaObject *meta = object->metaObject();
    for (int i = meta->methodOffset(); i < meta->methodCount(); ++i) {
        if (meta->method(i).name() == name)
            return meta->method(i);
    }
    return QMetaMethod();
}

} // namespace

Module::Module()
{
    qRegisterMetaType<QList<int>>();
    qRegisterMetaType<QVector<int>>();
    m_engine.addImportPath(testsupport::qmlDir());
    QQmlComponent component(&m_engine);
    component.setData("import ZeltaConnect 1.0\nZeltaConnect {}", QUrl());
    m_object.reset(component.create());
    m_error = component.errorString();
}

QString Module::callFromQml(const QString &method, const QString &arguments)
{
    QQmlExpression expression(QQmlEngine::contextForObject(m_object.data()), m_object.data(),
                              QStringLiteral("%1(%2)").arg(method, arguments));
    expression.evaluate();
    return expression.hasError() ? expression.error().toString() : QString();
}

QString Module::callByName(const QString &method, const QString &arguments)
{
    const QMetaMethod called = methodNamed(m_object.data(), method.toLatin1());
    const QJSValue values = m_engine.evaluate(QStringLiteral("[%1]").arg(arguments));
    if (values.property(QStringLiteral("length")).toInt() != called.parameterCount())
        return QStringLiteral("%1 takes %2 arguments").arg(method).arg(called.parameterCount());

    constexpr int mostArguments = 4;
    QVariant storage[mostArguments];
    QGenericArgument generic[mostArguments];
    const QList<QByteArray> typeNames = called.parameterTypes();
    for (int i = 0; i < called.parameterCount(); ++i) {
        storage[i] = argumentOfType(called.parameterType(i), values.property(quint32(i)));
        if (!storage[i].isValid())
            return QStringLiteral("no argument of type %1").arg(QLatin1String(typeNames.at(i)));
        generic[i] = QGenericArgument(typeNames.at(i).constData(), storage[i].constData());
    }
    const bool invoked =
        called.invoke(m_object.data(), Qt::DirectConnection, generic[0], generic[1], generic[2], generic[3]);
    return invoked ? QString() : QStringLiteral("%1 could not be invoked").arg(method);
}

} // namespace wire
} // namespace zelta

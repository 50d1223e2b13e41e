#pragma once

#include <QQmlEngine>
#include <QScopedPointer>
#include <QVariantList>

namespace zelta {
namespace wire {

/// The module as the touch screen uses it: imported by a QML engine from the build tree.
class Module
{
public:
    Module();

    /// Null if the module could not be imported; errorString() then returns the reason.
    QObject *object() const { return m_object.data(); }
    QString errorString() const { return m_error; }

    /// Calls a method from a QML expression. Returns the error of QML, or an empty text.
    QString callFromQml(const QString &method, const QString &arguments);

    /// Calls a method through the meta-object, with arguments of exactly the declared types. Returns the
    /// error, or an empty text.
    QString callByName(const QString &method, const QString &arguments);

private:
    QQmlEngine m_engine;
    QScopedPointer<QObject> m_object;
    QString m_error;
};

} // namespace wire
} // namespace zelta

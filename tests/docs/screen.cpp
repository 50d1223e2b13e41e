#include "docs/screen.h"

#include "support/testprogram.h"

#include <QQmlComponent>
#include <QQuickItem>
#include <QQuickWindow>
#include <QUrl>

namespace docs {

namespace {

QObject *moduleIn(QObject *object)
{
    if (object->inherits("QConnectQmlPlugin"))
        return object;
    QObjectList inside = object->children();
    if (const auto *item = qobject_cast<QQuickItem *>(object)) {
        const QList<QQuickItem *> items = item->childItems();
        for (QQuickItem *child : items)
            inside += child;
    }
    if (const auto *window = qobject_cast<QQuickWindow *>(object))
        inside += window->contentItem();
    for (QObject *child : qAsConst(inside)) {
        if (QObject *found = moduleIn(child))
            return found;
    }
    return nullptr;
}

} // namespace

Screen::Screen(const QString &source)
{
    // The first import path, so that an installed module is not tested instead.
    m_engine.addImportPath(testsupport::qmlDir());
    QQmlComponent component(&m_engine);
    component.setData(source.toUtf8(), QUrl());
    m_root.reset(component.create());
    m_error = component.errorString();
}

Screen::~Screen() = default;

QObject *Screen::module() const
{
    return m_root ? moduleIn(m_root.get()) : nullptr;
}

} // namespace docs

#include "gestures.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QQuickItem>
#include <QQuickWindow>

namespace {

void sendMouse(QQuickWindow *window, QEvent::Type type, const QPointF &at, Qt::MouseButton button,
               Qt::MouseButtons held)
{
    QMouseEvent event(type, at, at, at, button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &event);
}

} // namespace

QQuickItem *findControl(QQuickItem *root, const QString &name)
{
    const QString outermost = name.section(QLatin1Char('/'), 0, 0);
    const QString rest = name.section(QLatin1Char('/'), 1);
    const QList<QQuickItem *> children = root->childItems();
    for (QQuickItem *child : children) {
        if (!child->isVisible())
            continue;
        QQuickItem *found = nullptr;
        if (child->objectName() == outermost)
            found = rest.isEmpty() ? child : findControl(child, rest);
        if (!found)
            found = findControl(child, name);
        if (found)
            return found;
    }
    return nullptr;
}

void touchDown(QQuickWindow *window, const QPointF &at)
{
    sendMouse(window, QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton);
}

void touchMove(QQuickWindow *window, const QPointF &at)
{
    sendMouse(window, QEvent::MouseMove, at, Qt::NoButton, Qt::LeftButton);
}

void touchUp(QQuickWindow *window, const QPointF &at)
{
    sendMouse(window, QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton);
}

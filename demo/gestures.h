#pragma once

#include <QPointF>
#include <QString>

class QQuickItem;
class QQuickWindow;

/// One touch: a finger presses on a named control and moves by some pixels. Without a move it is a tap. A
/// name can be a path of nested names, separated by slashes, outermost first.
struct Gesture
{
    QString control;
    QPointF by;
};

/// The visible control with that name among the descendants of an item, or null.
QQuickItem *findControl(QQuickItem *root, const QString &name);

/// Sends the window a mouse press, the moves and a release.
void touchDown(QQuickWindow *window, const QPointF &at);
void touchMove(QQuickWindow *window, const QPointF &at);
void touchUp(QQuickWindow *window, const QPointF &at);

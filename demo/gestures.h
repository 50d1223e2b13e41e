#pragma once

#include <QPointF>
#include <QString>
#include <QVector>

class QQuickItem;
class QQuickWindow;

/// One move of a finger: put down on a named control and moved by so many pixels; a move of nothing is a tap.
/// Names may be nested with a slash, outermost first.
struct Gesture
{
    QString control;
    QPointF by;
};

/// What the tour does on a page. A file in `folder`, where one is given, is sent to the engine.
QVector<Gesture> gesturesOf(const QString &page, const QString &folder);

/// The visible control of that name on the window, or null.
QQuickItem *findControl(QQuickItem *root, const QString &name);

/// Puts the finger down, moves it, takes it up, as the window system would.
void touchDown(QQuickWindow *window, const QPointF &at);
void touchMove(QQuickWindow *window, const QPointF &at);
void touchUp(QQuickWindow *window, const QPointF &at);

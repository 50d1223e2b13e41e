#pragma once

#include "gestures.h"
#include "screenhost.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPointF>
#include <QStringList>
#include <QTimer>
#include <QVector>
#include <functional>

/// Opens each page, operates controls on it with mouse events, and takes a picture of it. GUI thread only.
/// Runs inside the event loop and emits finished() at the end.
class Tour : public QObject
{
    Q_OBJECT

public:
    Tour(ScreenHost &host, const Options &options);

    void start();
    /// One line for each problem: controls not found, pictures not saved, no back end.
    QStringList problems() const { return m_problems; }
    int picturesSaved() const { return m_pictures; }

Q_SIGNALS:
    void finished();

private:
    // At most one step is scheduled at a time.
    void after(int milliseconds, std::function<void()> step);
    void awaitShell();
    void showPage(int page);
    QVector<Gesture> gesturesOn(int page) const;
    void gesture(int page, int index);
    void drag(const QPointF &from, const QPointF &by, int move, std::function<void()> next);
    void awaitScene(int page, int hitsBefore, int patience);
    void takePicture(int page);
    void leavePage(int page);

    int padHits() const;
    bool transferring() const;
    QVariant shellPart(const char *part, const char *property) const;
    int pause() const;
    int pageShare() const;

    ScreenHost &m_host;
    const Options m_options;
    QStringList m_problems;
    QElapsedTimer m_sinceStart;
    QTimer m_timer;
    std::function<void()> m_step;
    int m_pictures = 0;
};

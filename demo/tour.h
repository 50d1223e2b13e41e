#pragma once

#include "screenhost.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPointF>
#include <QStringList>
#include <QTimer>
#include <functional>

/// Shows every page in turn, moves controls on it with real mouse events, and takes a picture of each.
/// GUI thread; runs inside the event loop and ends with finished().
class Tour : public QObject
{
    Q_OBJECT

public:
    Tour(ScreenHost &host, const Options &options);

    void start();
    /// What went wrong on the way, one line each: controls not found, pictures not saved, no back end.
    QStringList problems() const { return m_problems; }
    int picturesSaved() const { return m_pictures; }

Q_SIGNALS:
    void finished();

private:
    // One thing is planned at a time.
    void after(int milliseconds, std::function<void()> step);
    void awaitShell();
    void showPage(int page);
    void gesture(int page, int index);
    void drag(const QPointF &from, const QPointF &by, int move, std::function<void()> next);
    void awaitScene(int page, int hitsBefore, int patience);
    void takePicture(int page);
    void leavePage(int page);

    int padHits() const;
    bool transferring() const;
    QVariant shellPart(const char *part, const char *property) const;
    int pageShare() const;

    ScreenHost &m_host;
    const Options m_options;
    QStringList m_problems;
    QElapsedTimer m_sinceStart;
    QTimer m_timer;
    std::function<void()> m_step;
    int m_pictures = 0;
};

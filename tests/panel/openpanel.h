// A panel with its window and a socket in place of the module.
#pragma once

#include "panel/panel.h"
#include "panel/window.h"
#include "peer.h"

#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>

class OpenPanel
{
public:
    explicit OpenPanel(const QSize &size = QSize(1024, 600))
        : m_window(&panel)
        , peer(panel.engine())
    {
        m_opened = panel.start(QHostAddress(QStringLiteral(PANEL_ADDRESS)), 0, false) &&
                   m_window.load(size) && QTest::qWaitForWindowExposed(window());
        // Without reports, a test sees only what its own actions send.
        panel.engine()->setMeters(false);
        panel.engine()->setModule(QHostAddress(QHostAddress::LocalHost), peer.port());
        peer.take();
        window()->requestActivate();
        m_opened = m_opened && QTest::qWaitForWindowActive(window());
    }

    bool isOpen() const { return m_opened; }
    QQuickWindow *window() const { return m_window.window(); }

    /// The visible item with that object name, or null.
    QQuickItem *find(const QString &name) const { return findIn(window()->contentItem(), name); }
    QQuickItem *find(const char *name) const { return find(QString::fromLatin1(name)); }

    /// A point of the window: a part of the item's width and height, 0 to 1.
    static QPoint pointOf(const QQuickItem *item, double across = 0.5, double down = 0.5)
    {
        return item->mapToScene(QPointF(across * (item->width() - 1), down * (item->height() - 1))).toPoint();
    }

    bool click(const QString &name, double across = 0.5, double down = 0.5)
    {
        const QQuickItem *item = find(name);
        if (item == nullptr)
            return false;
        QTest::mouseClick(window(), Qt::LeftButton, {}, pointOf(item, across, down));
        // A page is laid out before its first frame.
        if (name.startsWith(QLatin1String("tab-")))
            return waitForFrame();
        return true;
    }
    bool click(const char *name) { return click(QString::fromLatin1(name)); }

    bool waitForFrame()
    {
        QSignalSpy frames(window(), &QQuickWindow::frameSwapped);
        window()->update();
        return QTest::qWaitFor([&frames] { return !frames.isEmpty(); }, 30000);
    }

    QImage picture() const { return m_window.picture(); }

    /// Replaces the number in a box.
    bool type(const QString &box, const char *digits)
    {
        QQuickItem *item = find(box);
        QQuickItem *input = item != nullptr ? findIn(item, QStringLiteral("digits")) : nullptr;
        if (input == nullptr)
            return false;
        QTest::mouseClick(window(), Qt::LeftButton, {}, pointOf(input));
        QTest::keyClick(window(), Qt::Key_A, Qt::ControlModifier);
        for (const char *digit = digits; *digit != '\0'; ++digit)
            QTest::keyClick(window(), *digit);
        return true;
    }

    /// What the engine has sent since the last call.
    QList<QByteArray> sent() { return peer.take(); }

    QString command() const { return panel.lastCommand(); }

    static QQuickItem *findIn(QQuickItem *root, const QString &name)
    {
        const QList<QQuickItem *> children = root->childItems();
        for (QQuickItem *child : children) {
            if (!child->isVisible())
                continue;
            if (child->objectName() == name)
                return child;
            if (QQuickItem *found = findIn(child, name))
                return found;
        }
        return nullptr;
    }

    Panel panel;

private:
    PanelWindow m_window;
    bool m_opened = false;

public:
    Peer peer;
};

/// The main function of a test with windows.
template<typename Test>
int runOffscreen(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    QGuiApplication application(argc, argv);
    Test test;
    return QTest::qExec(&test, argc, argv);
}

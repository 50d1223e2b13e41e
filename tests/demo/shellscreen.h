#pragma once

#include <QPointer>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QVector>

#include <memory>

/// The demo's screen in a window of the test. An engine must listen at the address of
/// the test.
class ShellScreen
{
public:
    using Items = QVector<QPointer<QQuickItem>>;

    /// Creates the screen with all pages. Returns an empty text, or the reason of a failure.
    QString load(const QSize &size);

    void resize(const QSize &size);
    /// Waits until a frame has been drawn, after which all items have their places.
    bool drawn();

    QQuickItem *shell() const { return m_shell.get(); }
    QObject *device() const { return objectOf(m_shell.get(), "device"); }
    QObject *module() const { return objectOf(device(), "module"); }
    /// The folder that the lists of files show.
    QString folder() const { return m_folder.path(); }

    /// Shows a page. Returns the item that loads it, or null.
    QQuickItem *open(const QString &page);

    static QObject *objectOf(const QObject *owner, const char *property);
    /// The first visible item with this object name, or null.
    static QQuickItem *itemNamed(QQuickItem *root, const QString &name);
    static void sendMouse(QQuickItem *item, QEvent::Type type, Qt::MouseButtons held);
    /// Presses and releases in the middle of the item.
    static void touch(QQuickItem *item);
    static bool has(const QObject *object, const char *signature);

private:
    QTemporaryDir m_folder;
    QQmlEngine m_engine;
    std::unique_ptr<QQuickWindow> m_window;
    std::unique_ptr<QQuickItem> m_shell;
};

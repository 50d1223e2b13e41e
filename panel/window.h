#pragma once

#include <QImage>
#include <QQmlEngine>
#include <QQuickWindow>

#include <memory>

class Panel;

/// The QML engine and the window. The window is destroyed before the engine, so that no binding reads a
/// destroyed object. The panel must live longer.
class PanelWindow
{
public:
    explicit PanelWindow(Panel *panel);
    ~PanelWindow();
    PanelWindow(const PanelWindow &) = delete;
    PanelWindow &operator=(const PanelWindow &) = delete;

    /// Creates and shows the window. Returns false on failure; error() then returns the reason in one line.
    bool load(const QSize &size);
    QString error() const { return m_error; }

    QQuickWindow *window() const { return m_window.get(); }

    /// The names of the pages, in the order of their tabs.
    QStringList pages() const;
    void showPage(const QString &name);

    /// What the window shows.
    QImage picture() const;

private:
    QQmlEngine m_engine;
    std::unique_ptr<QQuickWindow> m_window;
    QString m_error;
};

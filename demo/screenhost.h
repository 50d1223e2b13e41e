#pragma once

#include "options.h"

#include <QQmlEngine>
#include <QQuickWindow>
#include <memory>

/// Owns the QML engine and the window that Main.qml describes. GUI thread only.
/// The window is destroyed before the engine, so that no binding reads a destroyed object.
class ScreenHost
{
public:
    ScreenHost();
    ~ScreenHost();
    ScreenHost(const ScreenHost &) = delete;
    ScreenHost &operator=(const ScreenHost &) = delete;

    /// Creates and shows the window. Returns false on failure; error() then returns the reason in one line.
    bool load(const Options &options);
    QString error() const { return m_error; }

    QQuickWindow *window() const { return m_window.get(); }
    /// The part of the screen that is loaded after the first frame. Null until the back end has been created.
    QObject *shell() const;

private:
    QQmlEngine m_engine;
    std::unique_ptr<QQuickWindow> m_window;
    QString m_error;
};

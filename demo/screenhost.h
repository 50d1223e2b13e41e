#pragma once

#include "options.h"

#include <QQmlEngine>
#include <QQuickWindow>
#include <memory>

/// Owns the QML engine and the window made from the screen's Main.qml.
/// GUI thread only. The window goes before the engine, so that no binding outlives what it reads.
class ScreenHost
{
public:
    ScreenHost();
    ~ScreenHost();
    ScreenHost(const ScreenHost &) = delete;
    ScreenHost &operator=(const ScreenHost &) = delete;

    /// Creates and shows the window. On failure returns false; error() then says why, in one line.
    bool load(const Options &options);
    QString error() const { return m_error; }

    QQuickWindow *window() const { return m_window.get(); }
    /// The part of the screen behind the first frame, or null until the back end has been created.
    QObject *shell() const;

private:
    QQmlEngine m_engine;
    std::unique_ptr<QQuickWindow> m_window;
    QString m_error;
};

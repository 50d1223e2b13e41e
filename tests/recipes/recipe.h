#pragma once

#include "simulator/soundengine.h"

#include <QQmlEngine>
#include <QQuickWindow>

#include <functional>
#include <memory>

/// A file of docs/recipes, shown in a window, and its simulated engine in the same thread.
class Recipe
{
public:
    /// Without an address, the engine has the one of the test program. The engine is configured before the
    /// screen exists.
    explicit Recipe(const QString &file, const QString &address = QString(),
                    const std::function<void(SoundEngine &)> &configure = {});
    ~Recipe();
    Q_DISABLE_COPY(Recipe)

    /// Null if the file has an error, which is then errorString().
    QObject *root() const { return m_root.get(); }
    QString errorString() const { return m_error; }
    QQuickWindow *window() const;

    SoundEngine &engine() { return *m_engine; }
    void removeEngine() { m_engine.reset(); }
    /// A new engine at the address, without the state of the old one.
    void startEngine();

    /// The first object with this name, in the tree of items and below it; nullptr if there is none.
    QObject *find(const char *name) const;
    /// The ZeltaConnect object of the recipe's Engine; nullptr if there is none.
    QObject *zelta() const;
    /// The property "text" of an object.
    QString text(const char *name) const;
    /// Moves a slider as a finger does.
    void drag(const char *name, double value) const;
    void click(const char *name) const;

private:
    QString m_address;
    std::unique_ptr<SoundEngine> m_engine;
    QQmlEngine m_qml;
    std::unique_ptr<QQuickWindow> m_window;
    std::unique_ptr<QObject> m_root;
    QString m_error;
};

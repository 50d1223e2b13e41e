#pragma once

#include <QQmlEngine>
#include <QString>

#include <memory>

class QObject;

namespace docs {

/// A screen in QML, with the module of the build tree.
class Screen
{
public:
    explicit Screen(const QString &source);
    ~Screen();
    Q_DISABLE_COPY(Screen)

    /// Null if the source has an error; errorString() then returns it.
    QObject *root() const { return m_root.get(); }
    QString errorString() const { return m_error; }

    /// The first module in the screen, null while none exists.
    QObject *module() const;

private:
    QQmlEngine m_engine;
    std::unique_ptr<QObject> m_root;
    QString m_error;
};

} // namespace docs

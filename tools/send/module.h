#pragma once

#include <QQmlEngine>
#include <QString>

#include <memory>

/// The ZeltaConnect object, made by a QML engine as the touch screen makes it.
class Module
{
public:
    /// Imports the module from a folder, or from where it is by default when that is empty, and creates its
    /// object. Blocks while the object waits for the sound engine to answer a ping, some ten seconds at most.
    explicit Module(const QString &importDir);
    ~Module();
    Module(const Module &) = delete;
    Module &operator=(const Module &) = delete;

    /// Null when there is none; error() says why.
    QObject *object() const { return m_object.get(); }
    QString error() const { return m_error; }

private:
    QQmlEngine m_engine;
    std::unique_ptr<QObject> m_object;
    QString m_error;
};

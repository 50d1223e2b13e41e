#pragma once

#include <QQmlEngine>
#include <QString>

#include <memory>

/// The ZeltaConnect object and a FileTransfer, created by a QML engine as on the touch screen.
class Module
{
public:
    /// Imports the modules from importDir, or from their default folder when that is empty, and creates the
    /// objects. Blocks while the object waits for the sound engine to answer a ping, for at most ten seconds.
    explicit Module(const QString &importDir);
    ~Module();
    Module(const Module &) = delete;
    Module &operator=(const Module &) = delete;

    /// The root object of sender.qml. Null after an error.
    QObject *sender() const { return m_sender.get(); }
    /// The reason why the module cannot be loaded from importDir; empty if it can. Creates no object, so
    /// nothing is sent.
    static QString problem(const QString &importDir);
    /// The folder in which the QML engine finds the module ZeltaConnect; empty if there is none.
    static QString place(const QString &importDir);

    QString error() const { return m_error; }

private:
    QQmlEngine m_engine;
    std::unique_ptr<QObject> m_sender;
    QString m_error;
};

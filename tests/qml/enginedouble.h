#pragma once

#include "support/enginepeer.h"
#include "support/logcatcher.h"

#include <QObject>
#include <QScopedPointer>
#include <QStringList>

/// The sound engine for QML tests: sends datagrams and returns those that arrived. See datagram() for their
/// form as texts.
class EngineDouble : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Connects to a new module. False on failure.
    Q_INVOKABLE bool attach(QObject *module);
    /// Sends datagrams, separated by '|', and waits until the module has processed them.
    Q_INVOKABLE bool send(const QString &datagrams);
    /// The datagrams that the module has sent since the last call: the tags, separated by blanks, and all
    /// other bytes as upper-case hex digits.
    Q_INVOKABLE QStringList received();

    /// The names of the module's methods that take arguments.
    Q_INVOKABLE QStringList methodsWithArguments() const;
    /// The names of the module's signals.
    Q_INVOKABLE QStringList signalNames() const;

    /// Catches all log messages from now on.
    Q_INVOKABLE void catchLog();
    /// Returns the warnings since catchLog() and stops catching.
    Q_INVOKABLE QStringList caughtWarnings();

private:
    testsupport::EnginePeer m_peer;
    QScopedPointer<testsupport::LogCatcher> m_log;
    QObject *m_module = nullptr;
};

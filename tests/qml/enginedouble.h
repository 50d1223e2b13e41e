#pragma once

#include "support/enginepeer.h"
#include "support/logcatcher.h"

#include <QObject>
#include <QScopedPointer>
#include <QStringList>

/// The sound engine as the QML tests see it: sends what a test wants, shows what arrived. Datagrams are
/// upper-case hex texts; blanks in what is sent do not matter.
class EngineDouble : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Takes up with a new module. False when that did not work.
    Q_INVOKABLE bool attach(QObject *module);
    /// Sends datagrams, separated by '|', and waits until the module has dealt with them.
    Q_INVOKABLE bool send(const QString &datagrams);
    /// All that the module has sent since the last call, one text for each datagram.
    Q_INVOKABLE QStringList received();

    /// Names of the module's methods that take arguments.
    Q_INVOKABLE QStringList methodsWithArguments() const;
    /// Names of the module's signals.
    Q_INVOKABLE QStringList signalNames() const;

    /// From here on, what is logged is kept from the output and can be asked for.
    Q_INVOKABLE void catchLog();
    /// The warnings since catchLog(); ends it.
    Q_INVOKABLE QStringList caughtWarnings();

private:
    testsupport::EnginePeer m_peer;
    QScopedPointer<testsupport::LogCatcher> m_log;
    QObject *m_module = nullptr;
};

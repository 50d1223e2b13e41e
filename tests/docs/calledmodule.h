#pragma once

#include "support/enginepeer.h"
#include "wire/module.h"

#include <QByteArray>
#include <QList>
#include <QScopedPointer>
#include <QString>
#include <QStringList>

namespace docs {

/// The module as a screen calls it, and the peer that receives its datagrams.
class CalledModule
{
public:
    /// Creates the module, or a new one in place of the previous. False on failure; errorString() has the
    /// reason.
    bool start();
    QString errorString() const { return m_error; }

    QObject *object() const { return m_module->object(); }
    testsupport::EnginePeer &peer() { return m_peer; }

    /// Calls a method, for example "setMasterOutLevel(100)". Returns the error, or an empty text.
    QString evaluate(const QString &call);
    /// All datagrams that a call sends immediately: those that arrive before the datagram of a second call.
    QList<QByteArray> sentAtOnceBy(const QString &call);

private:
    testsupport::EnginePeer m_peer;
    QScopedPointer<zelta::wire::Module> m_module;
    QString m_error;
};

QStringList inHex(const QList<QByteArray> &datagrams);

} // namespace docs

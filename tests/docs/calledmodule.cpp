#include "docs/calledmodule.h"

#include "support/datagram.h"

#include <QDebug>

using namespace testsupport;

namespace docs {

bool CalledModule::start()
{
    if (!m_peer.isOpen()) {
        m_error = m_peer.errorString();
        return false;
    }
    // A previous module ends before the next one begins.
    m_module.reset();
    m_module.reset(new zelta::wire::Module);
    m_error = m_module->errorString();
    return m_module->object() && m_peer.connectTo(m_module->object());
}

QString CalledModule::evaluate(const QString &call)
{
    const int bracket = call.indexOf(QLatin1Char('('));
    return m_module->callFromQml(call.left(bracket), call.mid(bracket + 1, call.size() - bracket - 2));
}

QList<QByteArray> CalledModule::sentAtOnceBy(const QString &call)
{
    QString error = evaluate(call);
    error += evaluate(QStringLiteral("sendDirectNrpn(127, 126, 1)"));
    if (!error.isEmpty())
        qWarning().noquote() << error;
    const QByteArray second = datagram("IM 0003 0BB9637F 0BB9627E 0BB90601");
    QList<QByteArray> datagrams;
    for (QByteArray next = m_peer.next(); next != second; next = m_peer.next()) {
        if (next.isNull())
            return {QByteArrayLiteral("the datagram of the second call did not arrive")};
        datagrams += next;
    }
    return datagrams;
}

QStringList inHex(const QList<QByteArray> &datagrams)
{
    QStringList texts;
    for (const QByteArray &datagram : datagrams)
        texts += QString::fromLatin1(datagram.toHex(' '));
    return texts;
}

} // namespace docs

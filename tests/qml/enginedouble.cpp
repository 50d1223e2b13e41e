#include "qml/enginedouble.h"

#include <QMetaMethod>

namespace {

// The surface of the type itself, without what it inherits.
const QMetaObject *typeOf(const QObject *module)
{
    const QMetaObject *meta = module->metaObject();
    while (meta->superClass() && qstrcmp(meta->className(), "QConnectQmlPlugin") != 0)
        meta = meta->superClass();
    return meta;
}

} // namespace

bool EngineDouble::attach(QObject *module)
{
    m_module = module;
    if (!m_peer.isOpen())
        qWarning().noquote() << m_peer.errorString();
    return m_peer.isOpen() && m_peer.connectTo(module);
}

bool EngineDouble::send(const QString &datagrams)
{
    const QStringList texts = datagrams.split(QLatin1Char('|'));
    for (const QString &text : texts) {
        if (!m_peer.send(QByteArray::fromHex(text.toLatin1())))
            return false;
    }
    return m_peer.settle(m_module);
}

QStringList EngineDouble::received()
{
    // The answer to this call comes behind everything that the module has sent before.
    QMetaObject::invokeMethod(m_module, "setSongLevel", Q_ARG(uchar, 0x7E));
    const QByteArray fence = QByteArray::fromHex("494D0003 0BB96337 0BB9625F 0BB9067E");
    QStringList texts;
    QByteArray datagram = m_peer.next();
    for (; !datagram.isNull() && datagram != fence; datagram = m_peer.next())
        texts += QString::fromLatin1(datagram.toHex()).toUpper();
    // A module that has stopped sending must not look like one that had nothing to send.
    if (datagram.isNull())
        texts += QStringLiteral("no fence");
    return texts;
}

QStringList EngineDouble::methodsWithArguments() const
{
    const QMetaObject *meta = typeOf(m_module);
    QStringList names;
    for (int i = meta->methodOffset(); i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        if (method.methodType() == QMetaMethod::Method && method.parameterCount() > 0)
            names += QString::fromLatin1(method.name());
    }
    return names;
}

QStringList EngineDouble::signalNames() const
{
    const QMetaObject *meta = typeOf(m_module);
    QStringList names;
    for (int i = meta->methodOffset(); i < meta->methodCount(); ++i) {
        if (meta->method(i).methodType() == QMetaMethod::Signal)
            names += QString::fromLatin1(meta->method(i).name());
    }
    return names;
}

void EngineDouble::catchLog()
{
    m_log.reset(new testsupport::LogCatcher);
}

QStringList EngineDouble::caughtWarnings()
{
    QStringList warnings = m_log->warnings();
    m_log.reset();
    return warnings;
}

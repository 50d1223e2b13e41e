#include "qml/enginedouble.h"

#include "support/datagram.h"

#include <QMetaMethod>

namespace {

// The meta-object of the type itself. QML derives its objects from it.
const QMetaObject *typeOf(const QObject *module)
{
    const QMetaObject *meta = module->metaObject();
    while (meta->superClass() && qstrcmp(meta->className(), "QConnectQmlPlugin") != 0)
        meta = meta->superClass();
    return meta;
}

// The second tag of a start packet is the kind of the file.
QString textOf(const QByteArray &datagram)
{
    const int tags = datagram.startsWith("DS") ? 2 : 1;
    QString text;
    for (int i = 0; i < tags; ++i)
        text += QString::fromLatin1(datagram.mid(2 * i, 2)) + QLatin1Char(' ');
    return text + QString::fromLatin1(datagram.mid(2 * tags).toHex()).toUpper();
}

} // namespace

bool EngineDouble::attach(QObject *module)
{
    m_module = module;
    // What a screen has sent when it was created.
    m_peer.discardPending();
    if (!m_peer.isOpen())
        qWarning().noquote() << m_peer.errorString();
    return m_peer.isOpen() && m_peer.connectTo(module);
}

bool EngineDouble::send(const QString &datagrams)
{
    const QList<QByteArray> all = testsupport::datagrams(datagrams.toLatin1());
    for (const QByteArray &datagram : all) {
        if (!m_peer.send(datagram))
            return false;
    }
    return m_peer.settle(m_module);
}

QStringList EngineDouble::received()
{
    // The datagram of this call arrives after all earlier datagrams of the module.
    QMetaObject::invokeMethod(m_module, "setSongLevel", Q_ARG(uchar, 0x7E));
    const QByteArray fence = testsupport::datagram("IM 0003 0BB96337 0BB9625F 0BB9067E");
    QStringList texts;
    QByteArray datagram = m_peer.next();
    for (; !datagram.isNull() && datagram != fence; datagram = m_peer.next())
        texts += textOf(datagram);
    // Distinguishes a module that cannot send from a module that sends nothing.
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

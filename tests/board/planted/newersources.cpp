// Not compiled: a line for each expression of newerqt.list, which the test must find.

#include <QCalendar>
#include <QRecursiveMutex>

class Planted : public QQmlEngineExtensionPlugin
{
    Q_PROPERTY(int value MEMBER m_value REQUIRED)
    Q_DISABLE_COPY_MOVE(Planted)
    QML_NAMED_ELEMENT(Planted)
};
Q_NAMESPACE_EXPORT(PLANTED_EXPORT)

void planted()
{
    const QVector<int> copied(list.begin(), list.end());
    numbers.swapItemsAt(1, 2);
    const int previous = qExchange(value, 1);
    stream << text << Qt::endl;
    const QStringList parts = text.split(comma, Qt::SkipEmptyParts);
    const bool viewed = QStringView(text).contains(part);
    const QString filled = QLatin1String("%1").arg(text);
    const auto decoded = QByteArray::fromBase64Encoding(encoded);
    const QDateTime midnight = today.startOfDay();
    thread.wait(QDeadlineTimer(1000));
    file.moveToTrash();
    connect(socket, SIGNAL(errorOccurred(QAbstractSocket::SocketError)), SLOT(fail()));
    connect(socket, &QUdpSocket::errorOccurred, this, &Planted::fail);
    request.setTransferTimeout(1000);
    qmlRegisterSingletonInstance("Planted", 1, 0, "Planted", &instance);
    const QQmlModuleRegistration registration("Planted", 1, registerTypes);
    view.setInitialProperties(properties);
    const bool stopped = &QJSEngine::isInterrupted;
}

// The smallest QML module with one type, as a baseline.

#include <QQmlExtensionPlugin>
#include <QQuickItem>

class TrivialItem : public QQuickItem
{
    Q_OBJECT
};

class TrivialPlugin : public QQmlExtensionPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QQmlExtensionInterface")

public:
    void registerTypes(const char *uri) override { qmlRegisterType<TrivialItem>(uri, 1, 0, "Trivial"); }
};

#include "trivialplugin.moc"

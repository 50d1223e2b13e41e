#pragma once

#include <QQmlExtensionPlugin>

/// What the QML engine loads when a screen imports the module. Registers the one type and owns nothing.
class ZeltaConnectPlugin : public QQmlExtensionPlugin
{
    Q_OBJECT
    // Written out, since Qt's own macro carries a version suffix in some releases and none in others; the
    // record in the library is to read the same whatever it was built with.
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QQmlExtensionInterface")

public:
    /// Registers QConnectQmlPlugin as ZeltaConnect 1.0 under the given URI, whatever that is.
    void registerTypes(const char *uri) override;
};

#pragma once

#include <QQmlExtensionPlugin>

/// Plug-in that the QML engine loads when a screen imports the module. Registers the type ZeltaConnect.
class ZeltaConnectPlugin : public QQmlExtensionPlugin
{
    Q_OBJECT
    // Not QQmlExtensionInterface_iid: its version suffix differs between Qt releases, and the metadata in the
    // library is the same for all of them.
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QQmlExtensionInterface")

public:
    /// Registers QConnectQmlPlugin as ZeltaConnect 1.0 under the given URI. The URI is not checked.
    void registerTypes(const char *uri) override;
};

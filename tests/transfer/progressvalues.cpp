#include "progressvalues.h"

#include "control/qconnectqmlplugin.h"

ProgressValues::ProgressValues(QConnectQmlPlugin &plugin)
{
    connect(&plugin, &QConnectQmlPlugin::soundProgressChanged, this,
            [&] { values.append(plugin.soundBankProgress()); });
    connect(&plugin, &QConnectQmlPlugin::triggerProgressChanged, this,
            [&] { values.append(plugin.triggerBankProgress()); });
    connect(&plugin, &QConnectQmlPlugin::btfwProgressChanged, this,
            [&] { values.append(plugin.btfwProgress()); });
    connect(&plugin, &QConnectQmlPlugin::waveTransferProgress, this,
            [&](int /*slot*/, double fraction) { values.append(fraction); });
}

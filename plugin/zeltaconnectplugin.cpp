#include "plugin/zeltaconnectplugin.h"

#include "control/qconnectqmlplugin.h"

#include <QtQml>

void ZeltaConnectPlugin::registerTypes(const char *uri)
{
    qmlRegisterType<QConnectQmlPlugin>(uri, 1, 0, "ZeltaConnect");
}

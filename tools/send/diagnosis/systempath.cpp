#include "systempath.h"

QString systemPath(const QString &absolutePath)
{
    return qEnvironmentVariable("ZELTA_SEND_SYSTEM_ROOT") + absolutePath;
}

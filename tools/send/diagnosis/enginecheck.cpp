#include "enginecheck.h"

#include "engineprobe.h"
#include "tools/send/enginetarget.h"
#include "tools/send/module.h"
#include "tools/shared/toolsping.h"

Finding checkEngine(const QString &importDir)
{
    const QByteArray searchPath = qgetenv("PATH");
    useToolsPing();
    const Module module(importDir);
    qputenv("PATH", searchPath);
    const QString engine = engineTarget().text();
    if (!module.sender())
        return faultFinding(engineCheck, QStringLiteral("the module has no object: ") + module.error(),
                            QStringLiteral("install the package qml-module-zeltaconnect again"));
    EngineProbe probe(module.sender()->property("zelta").value<QObject *>());
    const int ms = probe.answerMs();
    if (ms >= 0)
        return okFinding(engineCheck, QStringLiteral("%1 answers after %2 ms").arg(engine).arg(ms));
    return faultFinding(
        engineCheck,
        QStringLiteral("%1 does not answer a query within %2 ms").arg(engine).arg(EngineProbe::patienceMs),
        QStringLiteral("switch the sound engine on, check its cable, and let UDP pass to its port "
                       "and back to the port that it answers"));
}

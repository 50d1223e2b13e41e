#include "modulecheck.h"

#include "tools/send/module.h"

Finding checkModule(const QString &importDir)
{
    const QString problem = Module::problem(importDir);
    if (problem.isEmpty())
        return okFinding(moduleCheck, QStringLiteral("ZeltaConnect 1.0 in %1").arg(Module::place(importDir)));
    const QString place = Module::place(importDir);
    return faultFinding(
        moduleCheck,
        place.isEmpty() ? QStringLiteral("ZeltaConnect 1.0 is not found: ") + problem
                        : QStringLiteral("ZeltaConnect 1.0 in %1 cannot be loaded: %2").arg(place, problem),
        QStringLiteral(
            "install the package qml-module-zeltaconnect of this version, or give the folder that has "
            "ZeltaConnect/qmldir with QML2_IMPORT_PATH (here: --import)"));
}

#include "diagnosis.h"

#include "cataloguecheck.h"
#include "dropscheck.h"
#include "enginecheck.h"
#include "engineprocesscheck.h"
#include "modulecheck.h"
#include "networkcheck.h"
#include "pingcheck.h"
#include "receivebuffercheck.h"
#include "timercheck.h"

#include "tools/send/enginetarget.h"
#include "tools/send/interruption.h"

void diagnoseInterface(const QString &importDir, const std::function<void(const Finding &)> &report)
{
    const EngineTarget engine = engineTarget();
    const auto run = [&report](const auto &check) {
        if (Interruption::isRequested())
            return false;
        const Finding finding = check();
        if (Interruption::isRequested())
            return false;
        report(finding);
        return finding.state == Finding::State::Ok;
    };

    const bool hasModule = run([&] { return checkModule(importDir); });
    const bool hasRoute = run([&] { return checkRoute(engine); });
    const bool hasAddress = run([&] {
        return hasRoute ? checkOwnAddress(engine)
                        : skippedFinding(ownAddressCheck, QStringLiteral("there is no route"));
    });
    const bool isAlone = run([&] { return checkEngineProcess(engine); });
    // The ping of the interface's search path, before the tools put theirs first.
    const bool hasPing = run(checkPing);

    const bool answers = run([&] {
        if (!hasModule)
            return skippedFinding(engineCheck, QStringLiteral("the module cannot be loaded"));
        if (!isAlone)
            return skippedFinding(engineCheck, QStringLiteral("an answer would come from this machine"));
        return hasAddress ? checkEngine(importDir)
                          : skippedFinding(engineCheck, QStringLiteral("the network cannot be used"));
    });
    run([&] {
        if (!hasPing)
            return skippedFinding(enginePingCheck, QStringLiteral("ping cannot be used"));
        return answers ? checkEnginePing(engine)
                       : skippedFinding(enginePingCheck, QStringLiteral("the engine does not answer"));
    });

    run(checkReceiveBuffer);
    run(checkCatalogue);
    run([&] { return checkDrops(engine); });
    run(checkTimers);
}

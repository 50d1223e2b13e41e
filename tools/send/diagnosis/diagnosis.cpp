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

void diagnoseInterface(const QString &importDir, const std::function<void(const Finding &)> &report)
{
    const EngineTarget engine = engineTarget();
    const auto run = [&report](const Finding &finding) {
        report(finding);
        return finding.state == Finding::State::Ok;
    };

    const bool hasModule = run(checkModule(importDir));
    const bool hasRoute = run(checkRoute(engine));
    const bool hasAddress =
        run(hasRoute ? checkOwnAddress(engine)
                     : skippedFinding(ownAddressCheck, QStringLiteral("there is no route")));
    const bool isAlone = run(checkEngineProcess(engine));
    // The ping of the interface's search path, before the tools put theirs first.
    const bool hasPing = run(checkPing());

    bool answers = false;
    if (!hasModule)
        run(skippedFinding(engineCheck, QStringLiteral("the module cannot be loaded")));
    else if (!isAlone)
        run(skippedFinding(engineCheck, QStringLiteral("an answer would come from this machine")));
    else if (!hasAddress)
        run(skippedFinding(engineCheck, QStringLiteral("the network cannot be used")));
    else
        answers = run(checkEngine(importDir));
    if (!hasPing)
        run(skippedFinding(enginePingCheck, QStringLiteral("ping cannot be used")));
    else if (!answers)
        run(skippedFinding(enginePingCheck, QStringLiteral("the engine does not answer")));
    else
        run(checkEnginePing(engine));

    run(checkReceiveBuffer());
    run(checkCatalogue());
    run(checkDrops(engine));
    run(checkTimers());
}

#include "engineprobe.h"

#include "tools/send/enginetags.h"
#include "tools/send/interruption.h"

#include <QTimer>

namespace {

// A signal does not end an event loop.
constexpr int interruptionMs = 50;

} // namespace

EngineProbe::EngineProbe(QObject *module)
    : m_module(module)
{
    connect(module, SIGNAL(udpPacketArrived(ushort, ushort, ushort)), this,
            SLOT(onEvent(ushort, ushort, ushort)));
}

int EngineProbe::answerMs()
{
    QTimer::singleShot(patienceMs, &m_loop, &QEventLoop::quit);
    QTimer interruption;
    connect(&interruption, &QTimer::timeout, &m_loop, [this] {
        if (Interruption::isRequested())
            m_loop.quit();
    });
    interruption.start(interruptionMs);
    m_since.start();
    QMetaObject::invokeMethod(m_module, "requestHHRawValue");
    m_loop.exec();
    return m_answerMs;
}

void EngineProbe::onEvent(ushort id, ushort /*a*/, ushort /*b*/)
{
    if (m_answerMs >= 0 || !EngineTag::answersQuery(id))
        return;
    m_answerMs = int(m_since.elapsed());
    m_loop.quit();
}

#include "simulatedengine.h"

// The only part of the demo that uses the simulator's library.
#include "simulator/soundengine.h"
#include "simulator/standalone.h"

SimulatedEngine::SimulatedEngine()
    : m_engine(new SoundEngine)
{
    m_engine->moveToThread(&m_thread);
    QObject::connect(&m_thread, &QThread::finished, m_engine, &QObject::deleteLater);
    m_thread.setObjectName(QStringLiteral("engine"));
    m_thread.start();
}

SimulatedEngine::~SimulatedEngine()
{
    m_thread.quit();
    m_thread.wait();
}

bool SimulatedEngine::start()
{
    QMetaObject::invokeMethod(
        m_engine,
        [this] {
            // The screen never reads the files that it sends.
            m_engine->setKeptBytes(0);
            if (!m_engine->listen(QHostAddress(QStringLiteral("127.20.21.22")), 0)) {
                m_error = QStringLiteral("the simulated engine cannot listen: ") + m_engine->errorString();
                return;
            }
            m_address = QStringLiteral("%1:%2").arg(m_engine->address().toString()).arg(m_engine->port());
            simulated::playStandalone(m_engine, true);
        },
        Qt::BlockingQueuedConnection);
    return m_error.isEmpty();
}

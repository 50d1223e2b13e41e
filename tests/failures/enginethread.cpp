#include "enginethread.h"

#include <QElapsedTimer>
#include <QTimer>

namespace {

constexpr int addressWaitMs = 20000;
constexpr int queryBytes = 4;

} // namespace

EngineThread::EngineThread()
{
    m_context.moveToThread(&m_thread);
    m_thread.start();
}

EngineThread::~EngineThread()
{
    m_thread.quit();
    m_thread.wait();
}

void EngineThread::run(const std::function<void()> &function)
{
    QMetaObject::invokeMethod(&m_context, function, Qt::BlockingQueuedConnection);
}

RemoteEngine::RemoteEngine(EngineThread &thread, const QString &address, quint16 port)
    : m_thread(thread)
    , m_address(address)
    , m_port(port)
{
    m_thread.run([this] { listen(); });
    qputenv("ZELTACONNECT_ENGINE", QStringLiteral("%1:%2").arg(address).arg(port).toLatin1());
}

void RemoteEngine::replace()
{
    m_thread.run([this] {
        delete m_engine;
        listen();
    });
}

void RemoteEngine::listen()
{
    m_engine = new SoundEngine;
    m_engine->setVersion(SoundEngine::Version::SoundEngine, 1, 4);
    m_engine->setVersion(SoundEngine::Version::TriggerBoard, 1, 4);
    QElapsedTimer waiting;
    waiting.start();
    // The same test may run from another build tree at the same time.
    while (!m_engine->listen(QHostAddress(m_address), m_port)) {
        if (waiting.hasExpired(addressWaitMs))
            qFatal("%s: %s", qPrintable(m_address), qPrintable(m_engine->errorString()));
        QThread::msleep(20);
    }
}

RemoteEngine::~RemoteEngine()
{
    m_thread.run([this] { delete m_engine; });
}

bool RemoteEngine::fail(const QString &mode)
{
    bool known = false;
    m_thread.run([&] { known = m_engine->setFailure(mode); });
    return known;
}

void RemoteEngine::clearFailures()
{
    m_thread.run([this] { m_engine->clearFailures(); });
}

void RemoteEngine::clearFailuresAfterQuery()
{
    m_thread.run([this] {
        QObject::connect(m_engine, &SoundEngine::datagramReceived, m_engine,
                         [this](const QByteArray &datagram) {
                             if (datagram.size() == queryBytes)
                                 QTimer::singleShot(0, m_engine, &SoundEngine::clearFailures);
                         });
    });
}

QVector<SoundEngine::ReceivedFile> RemoteEngine::files()
{
    QVector<SoundEngine::ReceivedFile> files;
    m_thread.run([&] { files = m_engine->receivedFiles(); });
    return files;
}

QStringList RemoteEngine::violations()
{
    QStringList violations;
    m_thread.run([&] { violations = m_engine->violations(); });
    return violations;
}

void RemoteEngine::setMeters(bool running)
{
    m_thread.run([&] { m_engine->setMeters(running); });
}

quint64 RemoteEngine::heard()
{
    quint64 heard = 0;
    m_thread.run([&] { heard = m_engine->counters().datagrams; });
    return heard;
}

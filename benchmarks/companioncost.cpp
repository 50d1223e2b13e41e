// CPU time of the GUI thread for a screen that gets 100 hits and 30 meter reports a second. The screen with
// the companion module is compared with the same screen on top of ZeltaConnect alone.

#include "benchmarks/enginesocket.h"
#include "benchmarks/ratio.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

#include <sys/prctl.h>

#include <atomic>
#include <ctime>
#include <memory>
#include <thread>

namespace {

constexpr int rounds = 9;
constexpr int secondsPerRound = 3;
constexpr int hitsPerSecond = 100;
constexpr int reportsPerSecond = 30;
constexpr int listedHits = 8;
constexpr long nanosecondsPerHit = 1000000000L / hitsPerSecond;

void pauseForOneHit()
{
    const timespec time{0, nanosecondsPerHit};
    nanosleep(&time, nullptr);
}

QByteArray strike(int i)
{
    QByteArray event = QByteArray::fromHex("494d414399090026");
    event[6] = char(1 + i % 127);
    event[7] = i % 2 == 0 ? 38 : 36;
    return event;
}

QByteArray report(int i)
{
    QByteArray levels("DR");
    for (int word = 0; word < 18; ++word)
        levels.append('\0').append(char((i + word) % 70));
    return levels;
}

/// One of the screens, in a window of its own.
class Screen
{
public:
    Screen(QQmlEngine &qml, EngineSocket &engine, const QString &file)
        : m_engine(engine)
    {
        QQmlComponent component(&qml,
                                QUrl::fromLocalFile(QStringLiteral(COMPANION_BENCHMARK_DIR "/") + file));
        m_root.reset(qobject_cast<QQuickItem *>(component.create()));
        if (!m_root)
            qFatal("%s", qPrintable(component.errorString()));
        QObject *module = m_root->property("module").value<QObject *>();
        QMetaObject::invokeMethod(module, "requestOutsUpdate");
        engine.drain();
        m_address = engine.module();
        m_window.resize(m_root->size().toSize());
        m_root->setParentItem(m_window.contentItem());
    }

    double cpuMs()
    {
        m_window.show();
        QElapsedTimer time;
        time.start();
        // Until the window is drawn.
        while (!time.hasExpired(200))
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
        std::atomic<bool> isOver{false};
        std::thread source([&] {
            prctl(PR_SET_TIMERSLACK, 1UL, 0UL, 0UL, 0UL);
            int reports = 0;
            for (int i = 0; i < secondsPerRound * hitsPerSecond; ++i) {
                m_engine.sendTo(strike(i), m_address);
                if (i * reportsPerSecond / hitsPerSecond >= reports)
                    m_engine.sendTo(report(reports++), m_address);
                pauseForOneHit();
            }
            isOver = true;
            QCoreApplication::postEvent(&m_window, new QEvent(QEvent::User));
        });
        const qint64 before = benchmark::threadCpuNs();
        while (!isOver)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        const qint64 spent = benchmark::threadCpuNs() - before;
        source.join();
        m_window.hide();
        // The same number of rows shows that the screen got the hits.
        if (m_root->property("hits").value<QObject *>()->property("count").toInt() != listedHits)
            qFatal("the screen did not get the hits");
        return double(spent) / 1e6 / secondsPerRound;
    }

private:
    EngineSocket &m_engine;
    sockaddr_in m_address{};
    // The item is deleted before its window.
    QQuickWindow m_window;
    std::unique_ptr<QQuickItem> m_root;
};

} // namespace

int main(int argc, char *argv[])
{
    QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
    QGuiApplication application(argc, argv);
    EngineSocket engine("127.20.26.9");
    QQmlEngine qml;
    qml.addImportPath(QStringLiteral(ZELTACONNECT_QML_DIR));
    Screen with(qml, engine, QStringLiteral("With.qml"));
    Screen without(qml, engine, QStringLiteral("Without.qml"));

    benchmark::printHeading(QStringLiteral("Screen with the companion, GUI thread"));
    const bool met = benchmark::judge(
        {QStringLiteral("100 hits and 30 meter reports a second"), 1.05, true}, rounds,
        QStringLiteral("ms per second"), [&] { return with.cpuMs(); }, [&] { return without.cpuMs(); });
    return met ? 0 : 1;
}

// CPU time of the GUI thread for one event of the engine, from the receive thread's signal to a QML binding.
// The baseline is a queued signal with one binding at the same rate.

#include "benchmarks/enginesocket.h"
#include "benchmarks/ratio.h"
#include "control/qconnectqmlplugin.h"

#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QTimer>

#include <sys/prctl.h>

#include <ctime>
#include <memory>
#include <thread>

namespace {

constexpr int rounds = 7;
constexpr int eventsPerRound = 6000;
constexpr int paceUs = 200; // slower than the receive loop, so that each event is delivered separately

/// The baseline: the least code that passes a value from another thread to a binding.
class Baseline : public QObject
{
    Q_OBJECT
    Q_PROPERTY(uint note READ note NOTIFY noteChanged)

public:
    uint note() const { return m_note; }

    void store(uint note)
    {
        m_note = note;
        Q_EMIT noteChanged();
    }

Q_SIGNALS:
    void arrived(uint note); // NOLINT(readability-inconsistent-declaration-parameter-name): moc names none
    void noteChanged();

private:
    uint m_note = 0;
};

void pauseFor(int microseconds)
{
    const timespec time{0, microseconds * 1000L};
    nanosleep(&time, nullptr);
}

// The CPU time of the GUI thread per event while another thread causes events at the common rate.
template<typename Cause>
double microsecondsPerEvent(const int &delivered, Cause cause)
{
    const int start = delivered;
    std::thread source([cause] {
        prctl(PR_SET_TIMERSLACK, 1UL, 0UL, 0UL, 0UL);
        for (int i = 0; i < eventsPerRound; ++i) {
            cause(i);
            pauseFor(paceUs);
        }
    });
    const qint64 before = benchmark::threadCpuNs();
    while (delivered - start < eventsPerRound)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    const qint64 spent = benchmark::threadCpuNs() - before;
    source.join();
    return double(spent) / 1000.0 / eventsPerRound;
}

std::unique_ptr<QObject> bind(QQmlEngine &engine, const QByteArray &property)
{
    QQmlComponent component(&engine);
    component.setData("import QtQml 2.2\nQtObject { property double seen: " + property + " }", QUrl());
    std::unique_ptr<QObject> object(component.create());
    if (!object)
        qFatal("%s", qPrintable(component.errorString()));
    return object;
}

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    EngineSocket engineSocket("127.20.26.5");
    QConnectQmlPlugin module;
    module.requestOutsUpdate();
    engineSocket.drain();
    Baseline baseline;
    QObject::connect(&baseline, &Baseline::arrived, &baseline, &Baseline::store, Qt::QueuedConnection);

    QQmlEngine engine;
    engine.rootContext()->setContextProperty(QStringLiteral("module"), &module);
    engine.rootContext()->setContextProperty(QStringLiteral("baseline"), &baseline);
    const auto note = bind(engine, "module.note");
    const auto meter = bind(engine, "module.usbInRLevel");
    const auto baselineNote = bind(engine, "baseline.note");

    int hits = 0;
    int reports = 0;
    int baselineEvents = 0;
    QObject::connect(&module, &QConnectQmlPlugin::noteChanged, &module, [&hits] { ++hits; });
    QObject::connect(&module, &QConnectQmlPlugin::outputLevelsChanged, &module, [&reports] { ++reports; });
    QObject::connect(&baseline, &Baseline::noteChanged, &baseline, [&baselineEvents] { ++baselineEvents; });

    const auto strike = [&](int i) {
        QByteArray event = QByteArray::fromHex("494d414399090026");
        event[6] = char(1 + i % 127);
        event[7] = 38;
        engineSocket.send(event);
    };
    const auto report = [&](int i) {
        QByteArray levels("DR");
        for (int word = 0; word < 18; ++word)
            levels.append('\0').append(char((i + word) % 128));
        engineSocket.send(levels);
    };
    const auto padHit = [&] {
        return microsecondsPerEvent(hits, strike);
    };
    const auto meterReport = [&] {
        return microsecondsPerEvent(reports, report);
    };
    const auto bareSignal = [&] {
        return microsecondsPerEvent(baselineEvents, [&baseline](int i) { Q_EMIT baseline.arrived(uint(i)); });
    };

    benchmark::printHeading(QStringLiteral("Event to QML, GUI thread"));
    const QString unit = QStringLiteral("us");
    const bool hitMet = benchmark::judge({QStringLiteral("pad hit / bare queued signal"), 1.3, true}, rounds,
                                         unit, padHit, bareSignal);
    const bool reportMet =
        benchmark::judge({QStringLiteral("meter report of 18 / bare queued signal"), 2.0, true}, rounds, unit,
                         meterReport, bareSignal);
    return hitMet && reportMet ? 0 : 1;
}

#include "eventtoqml.moc"

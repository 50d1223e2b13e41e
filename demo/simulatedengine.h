#pragma once

#include <QString>
#include <QThread>

class SoundEngine;

/// A sound engine of the screen's own. It plays drums in a thread of its own, so that it also answers while
/// the constructor of the module blocks. It ends with the object.
class SimulatedEngine
{
public:
    SimulatedEngine();
    ~SimulatedEngine();
    SimulatedEngine(const SimulatedEngine &) = delete;
    SimulatedEngine &operator=(const SimulatedEngine &) = delete;

    /// Listens on a free port of the loopback network. Returns false if there is none; error() then returns
    /// the reason in one line.
    bool start();
    QString error() const { return m_error; }

    /// ADDRESS:PORT, as the module takes it.
    QString address() const { return m_address; }

private:
    QThread m_thread;
    SoundEngine *m_engine; // lives in m_thread
    QString m_address;
    QString m_error;
};

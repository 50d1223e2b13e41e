#pragma once

#include "tests/failures/enginethread.h"

#include <QStringList>

#include <atomic>
#include <memory>

class QTimer;

/// The engine's side of the soak test: checks that each parameter follows the previous one, sends meters and
/// strikes with values that show their order, and receives files. Lives in its own thread.
class SoakEngine
{
public:
    /// The number of levels that change, one after the other.
    static constexpr int levels = 8;
    static constexpr int values = 128;
    /// Output meters count from 0 to this value repeatedly. 70 is full scale.
    static constexpr int meterValues = 71;
    static constexpr int firstVelocity = 1;
    static constexpr int lastVelocity = 127;

    SoakEngine();
    ~SoakEngine();
    Q_DISABLE_COPY(SoakEngine)

    /// Starts to send meters and strikes. The module must have sent a datagram before.
    void play();
    void stopPlaying();
    /// Skips the value of one meter report.
    void plantWrongMeter();

    bool fail(const QString &mode);
    void clearFailures();
    /// The last received file with its content. Deletes the stored copy.
    SoundEngine::ReceivedFile takeLastFile();
    int fileCount();

    quint64 parameters() const { return m_parameters; }
    quint64 missingParameters() const { return m_missing; }
    quint64 meters() const { return m_meters; }
    quint64 hits() const { return m_hits; }
    quint16 modulePort();
    QStringList problems();

private:
    void takeParameter(int msb, int lsb, int value);
    void playSome();

    EngineThread m_thread;
    SoundEngine *m_engine = nullptr;
    QTimer *m_timer = nullptr;
    QStringList m_problems;
    std::unique_ptr<class QTemporaryDir> m_store;

    // The numbers of the levels, taken from the first round.
    QList<int> m_numbers;
    qint64 m_expected = 0;
    int m_meter = 0;
    int m_velocity = firstVelocity;

    std::atomic<quint64> m_parameters{0};
    std::atomic<quint64> m_missing{0};
    std::atomic<quint64> m_meters{0};
    std::atomic<quint64> m_hits{0};
};

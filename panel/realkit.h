#pragma once

#include <QObject>

#include <memory>

class SoundEngine;

namespace simulated {
class MidiInput;
}

/// An electronic drum kit that plays the engine.
class RealKit : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool connected READ isConnected NOTIFY changed)
    Q_PROPERTY(QString state READ state NOTIFY changed)

public:
    explicit RealKit(SoundEngine *engine, QObject *parent = nullptr);
    ~RealKit() override;

    /// Reads raw MIDI bytes from a device file or a FIFO until disconnectKit(), and tries again when it goes
    /// away. A leading ~/ is the home folder. notes is a file that translates notes, or empty.
    Q_INVOKABLE void connectTo(const QString &path, const QString &notes = {});
    Q_INVOKABLE void disconnectKit();

    bool isConnected() const { return m_input != nullptr; }
    /// One line.
    QString state() const { return m_state; }

Q_SIGNALS:
    void changed();
    /// The kit has played the engine; command does the same.
    void played(const QString &command);

private:
    void setState(const QString &state);

    SoundEngine *m_engine;
    std::unique_ptr<simulated::MidiInput> m_input;
    QString m_state;
};

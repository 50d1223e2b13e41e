#pragma once

#include "midiparser.h"
#include "notemap.h"

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

class SoundEngine;

namespace simulated {

/// Plays a sound engine with an electronic drum kit: reads raw MIDI bytes from a device file or a FIFO and
/// sends what they mean to the module.
///
/// A note-on is a strike, poly pressure a choke, controller 4 the hi-hat pedal, a program change a program
/// change, on any channel. Everything else is ignored. A device that cannot be opened or that goes away is
/// tried again every second.
class MidiInput : public QObject
{
    Q_OBJECT

public:
    MidiInput(const QString &path, SoundEngine *engine, QObject *parent = nullptr);
    ~MidiInput() override;

    void setNoteMap(const NoteMap &map) { m_map = map; }

    /// How often a device is tried again, 1000 ms by default.
    void setRetryMs(int ms) { m_retry.setInterval(ms); }

    /// Opens the device. Returns at once, also when it cannot be opened.
    void start();

    /// True while the device can be read. A FIFO to which nothing writes is open.
    bool isOpen() const { return m_descriptor >= 0; }

Q_SIGNALS:
    /// One line whenever the state changes: "midi-in PATH: open", "midi-in PATH: waiting for a writer" for a
    /// FIFO, or the reason why it cannot be read.
    void stateChanged(const QString &line);
    /// Something was sent to the module. command sends the same, for example "strike snare 100".
    void played(const QString &command);

private:
    enum class State { Unknown, Open, Waiting, Failed };

    bool open();
    void close();
    void dropNotifier();
    void retry();
    void reopen();
    void onReadable();
    bool read();
    void fail(const QString &reason);
    void enter(State state, const QString &text);
    void play(const MidiMessage &message);

    QString m_path;
    SoundEngine *m_engine;
    NoteMap m_map;
    MidiParser m_parser;
    int m_descriptor = -1;
    bool m_isFifo = false;
    bool m_hasWriter = false; // of a FIFO: it had one since it was opened
    QSocketNotifier *m_notifier = nullptr;
    QTimer m_retry;
    State m_state = State::Unknown;
};

} // namespace simulated

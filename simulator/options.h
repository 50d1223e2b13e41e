#pragma once

#include "transcript.h"

#include <QHostAddress>
#include <QStringList>

namespace simulated {

/// The command line of zelta-engine-sim.
struct Options
{
    QHostAddress address;
    quint16 port = 0;
    QHostAddress moduleAddress;
    quint16 modulePort = 0; ///< 0: that of the first datagram
    Verbosity verbosity = Verbosity::Silent;
    bool timestamps = false;
    bool groove = true;
    QString scenario;
    QString storeDirectory;
    QString midiInput; ///< empty: none
    QString noteMap;
    QStringList failures;
    quint32 seed = 1;
    int durationMs = 0; ///< 0: no limit
    QString record;     ///< file to write
    QString replay;     ///< recording to play
    quint16 recordedPort = 0;
    double speed = 1.0; ///< 0: without gaps
    bool loop = false;
    bool compare = false;
    QString toScenario; ///< scenario to write instead of playing the recording
};

enum class OptionsResult { Run, Exit, Bad };

/// Exit: the program prints text and ends (--help, --version, --list-failures). Bad: text is a one-line error
/// message.
OptionsResult parseOptions(const QStringList &arguments, Options *options, QString *text);

} // namespace simulated

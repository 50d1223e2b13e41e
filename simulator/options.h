#pragma once

#include <QHostAddress>
#include <QStringList>

namespace simulated {

/// The command line of zelta-engine-sim.
struct Options
{
    QHostAddress address;
    quint16 port = 0;
    QHostAddress moduleAddress;
    quint16 modulePort = 0; ///< 0: learned from what arrives
    bool verbose = false;
    bool groove = true;
    QString scenario;
    QString storeDirectory;
    QStringList failures;
    quint32 seed = 1;
    int durationMs = 0; ///< 0: until told to end
};

enum class OptionsResult { Run, Exit, Bad };

/// Exit: text is to be shown and the program is done (--help, --version, --list-failures). Bad: text says in
/// one line what is wrong.
OptionsResult parseOptions(const QStringList &arguments, Options *options, QString *text);

} // namespace simulated

#pragma once

#include "enginetext.h"

#include <QObject>

class SoundEngine;

namespace simulated {

/// What the transcript of an engine's traffic contains. Each level includes the ones before.
enum class Verbosity {
    Silent,
    Heard,  ///< the messages of the module, without the packets of files
    Said,   ///< also the datagrams of the engine
    Packets ///< also the packets of files
};

/// The traffic of an engine as lines of text. Costs nothing for what its level leaves out.
class Transcript : public QObject
{
    Q_OBJECT

public:
    Transcript(SoundEngine *engine, Verbosity verbosity, QObject *parent = nullptr);

Q_SIGNALS:
    /// A message of the module is its text; a datagram of the engine begins with "sent: ", an action of a
    /// transfer or a failure mode with "note: ". Datagrams that cannot be read are violations and have no
    /// line.
    void line(const QString &text);

private:
    void takeReceived(const QByteArray &datagram);

    Verbosity m_verbosity;
    EngineText m_sent;
};

} // namespace simulated

#pragma once

#include "comparison.h"
#include "recording.h"
#include "replayer.h"

#include <QObject>
#include <QStringList>
#include <QTimer>

#include <memory>

namespace simulated {

struct Options;

/// The replay of zelta-engine-sim: plays a recording and compares what the module sends meanwhile.
class ReplaySession : public QObject
{
    Q_OBJECT

public:
    ReplaySession(const Recording &recording, const Options &options, SoundEngine *engine);

    void start() { m_replayer.start(); }

    struct Result
    {
        QStringList lines;
        bool hasDifferences = false; ///< of a comparison
    };
    Result result() const;

Q_SIGNALS:
    /// The recording is played, and everything that the module was expected to send has arrived or is
    /// overdue.
    void finished();
    void notSent(const QString &line);

private:
    void take(const QByteArray &datagram);
    void waitForModule();

    Replayer m_replayer;
    std::unique_ptr<Comparison> m_comparison;
    QTimer m_patience;
    bool m_isPlayed = false;
};

} // namespace simulated

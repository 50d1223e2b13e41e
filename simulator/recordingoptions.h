#pragma once

#include "options.h"

#include <QCommandLineOption>
#include <QCommandLineParser>

namespace simulated {

/// The options of zelta-engine-sim that concern recordings.
class RecordingOptions
{
public:
    /// Adds the options to a parser.
    explicit RecordingOptions(QCommandLineParser *parser);

    /// Returns false and sets problem to one line when an option is wrong.
    bool read(const QCommandLineParser &parser, Options *options, QString *problem) const;

private:
    QCommandLineOption m_record;
    QCommandLineOption m_replay;
    QCommandLineOption m_recordedPort;
    QCommandLineOption m_speed;
    QCommandLineOption m_loop;
    QCommandLineOption m_compare;
    QCommandLineOption m_toScenario;
};

} // namespace simulated

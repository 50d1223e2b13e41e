#pragma once

#include "diagnosis/finding.h"
#include "job.h"
#include "outcome.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>
#include <vector>

/// What became of one file.
struct FileResult
{
    enum class State { NotSent, Sent, Failed, WouldSend, Inspected };

    QString path;
    QString kind; ///< as --kind takes it; empty: not given
    int slot = -1;
    QString name;
    qint64 bytes = -1;
    QString looksLike;         ///< kind that the contents or the file's name show; empty: not recognised
    int fileVersion = -1;      ///< of firmware; -1: none
    int installedVersion = -1; ///< of firmware, as the engine reports it; -1: not known
    State state = State::NotSent;
    std::optional<ExitStatus> status; ///< none: not tried
    QString message;
    double seconds = -1.0;
    int retransmissions = -1;
};

/// What became of one run of the program.
struct Result
{
    QString action;
    Outcome outcome{ExitStatus::Sent, QString()};
    QString engine; ///< ADDRESS:PORT
    QStringList warnings;
    std::vector<FileResult> files;
    QString soundBankVersion;
    QString triggerBankVersion;
    QVector<Finding> findings;
};

/// The result of a file that has not been sent yet, with what its contents show.
FileResult resultOf(const Job &job);
/// The average in bytes a second; -1 unless the file was sent.
qint64 rateOf(const FileResult &file);
QString stateName(FileResult::State state);

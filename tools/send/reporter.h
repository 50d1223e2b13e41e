#pragma once

#include "result.h"

/// Shows a run of the program while it runs, and its result.
class Reporter
{
public:
    Reporter() = default;
    virtual ~Reporter() = default;
    Reporter(const Reporter &) = delete;
    Reporter &operator=(const Reporter &) = delete;

    /// Something that the user asked for: help, versions, the contents of a file.
    virtual void answer(const QString &line) = 0;
    /// One of several errors. The error that ends the run is part of its result.
    virtual void error(const QString &line) = 0;
    virtual void warning(const QString &line) = 0;
    virtual void finding(const Finding &finding) = 0;

    virtual void fileStarted(const FileResult &file) = 0;
    /// bytes of the file have been sent. May be called for every packet.
    virtual void progress(const FileResult &file, qint64 bytes) = 0;
    /// Called again and again while there is no progress to show.
    virtual void busy(const QString &activity) = 0;
    /// All data has been sent; the end is not acknowledged yet.
    virtual void allSent(const FileResult &file, const QString &activity) = 0;
    /// The versions of firmware are known, and it will be sent.
    virtual void newVersion(const FileResult &file) = 0;
    virtual void fileEnded(const FileResult &file) = 0;

    /// The end of the run; called once.
    virtual void finished(const Result &result) = 0;
};

#pragma once

#include "display.h"
#include "reporter.h"

struct Options;

/// Shows a run as text: results on standard output, errors and warnings on standard error.
class TextReporter : public Reporter
{
public:
    explicit TextReporter(const Options &options);

    void answer(const QString &line) override;
    void error(const QString &line) override;
    void warning(const QString &line) override;
    void finding(const Finding &finding) override;
    void fileStarted(const FileResult &file) override;
    void progress(const FileResult &file, qint64 bytes) override;
    void busy(const QString &activity) override;
    void allSent(const FileResult &file, const QString &activity) override;
    void newVersion(const FileResult &file) override;
    void fileEnded(const FileResult &file) override;
    void finished(const Result &result) override;

private:
    void say(const QString &line);

    Display m_display;
    const bool m_isQuiet;
    const bool m_keepsGoing;
};

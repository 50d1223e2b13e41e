#pragma once

#include "reporter.h"

#include <QElapsedTimer>

class QJsonObject;

/// Writes the result of a run as one JSON object to standard output, and its progress as one JSON object a
/// line to standard error.
class JsonReporter : public Reporter
{
public:
    /// A quiet one writes only the result. While the object exists, messages of Qt's log become events as
    /// well.
    explicit JsonReporter(bool isQuiet);
    ~JsonReporter() override;

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
    void write(const QJsonObject &event) const;

    const bool m_isQuiet;
    QElapsedTimer m_since;
    qint64 m_writtenAt = 0;
    qint64 m_writtenBytes = 0;
};

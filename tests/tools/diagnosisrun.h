#pragma once

#include "programrun.h"
#include "systemroot.h"

#include <QJsonObject>
#include <QStringList>

/// One run of zelta-send --diagnose --json.
class DiagnosisRun
{
public:
    explicit DiagnosisRun(const SystemRoot &root, const QStringList &arguments = QStringList());
    DiagnosisRun(const QProcessEnvironment &environment, const QStringList &arguments);

    int status() const { return m_run.status; }
    /// The names of the checks with this state, in order: "ok", "fault", "skipped".
    QStringList checks(const char *state) const;
    QString finding(const QString &check) const;
    QString mend(const QString &check) const;

    /// Empty if the run has exactly this fault and reports it in all places. An empty name: no fault.
    QString difference(const QString &fault) const;

private:
    QJsonObject check(const QString &name) const;

    ProgramRun m_run;
    QJsonObject m_result;
};

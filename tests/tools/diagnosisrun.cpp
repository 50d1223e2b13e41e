#include "diagnosisrun.h"

#include "jsonkeys.h"

#include <QJsonArray>

namespace {

constexpr int healthy = 0;
constexpr int faultFound = 7;

QStringList allChecks()
{
    return {
        QStringLiteral("module"),         QStringLiteral("route"),          QStringLiteral("own-address"),
        QStringLiteral("engine-process"), QStringLiteral("ping"),           QStringLiteral("engine"),
        QStringLiteral("engine-ping"),    QStringLiteral("receive-buffer"), QStringLiteral("catalogue"),
        QStringLiteral("drops"),          QStringLiteral("timers"),
    };
}

} // namespace

DiagnosisRun::DiagnosisRun(const SystemRoot &root, const QStringList &arguments)
    : DiagnosisRun(root.environment(), arguments)
{}

DiagnosisRun::DiagnosisRun(const QProcessEnvironment &environment, const QStringList &arguments)
    : m_run(runZeltaSend(QStringList{QStringLiteral("--diagnose"), QStringLiteral("--json")} + arguments,
                         environment))
    , m_result(onlyObject(m_run.output))
{}

QStringList DiagnosisRun::checks(const char *state) const
{
    QStringList names;
    const QJsonArray checks = m_result.value(QLatin1String("checks")).toArray();
    for (const QJsonValue &value : checks) {
        const QJsonObject check = value.toObject();
        if (!state || check.value(QLatin1String("state")).toString() == QLatin1String(state))
            names.append(check.value(QLatin1String("name")).toString());
    }
    return names;
}

QJsonObject DiagnosisRun::check(const QString &name) const
{
    const QJsonArray checks = m_result.value(QLatin1String("checks")).toArray();
    for (const QJsonValue &value : checks) {
        if (value.toObject().value(QLatin1String("name")).toString() == name)
            return value.toObject();
    }
    return {};
}

QString DiagnosisRun::finding(const QString &name) const
{
    return check(name).value(QLatin1String("finding")).toString();
}

QString DiagnosisRun::mend(const QString &name) const
{
    return check(name).value(QLatin1String("mend")).toString();
}

QString DiagnosisRun::difference(const QString &fault) const
{
    const QStringList faults = fault.isEmpty() ? QStringList() : QStringList{fault};
    const QString message = m_result.value(QLatin1String("message")).toString();
    const bool isRight =
        m_run.status == (fault.isEmpty() ? healthy : faultFound) && checks("fault") == faults &&
        checks(nullptr) == allChecks() && hasDocumentedKeys(m_result) &&
        message == (fault.isEmpty() ? QString() : QStringLiteral("faults found: ") + fault) &&
        mend(fault).isEmpty() == fault.isEmpty();
    return isRight ? QString()
                   : QStringLiteral("exit status %1; %2%3")
                         .arg(m_run.status)
                         .arg(QString::fromUtf8(m_run.output), QString::fromUtf8(m_run.errors));
}

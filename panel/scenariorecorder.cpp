#include "scenariorecorder.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

namespace {

QByteArray firstLine()
{
    return QByteArrayLiteral("# Recorded by zelta-panel.");
}

bool isRecordedScenario(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.read(firstLine().size()) == firstLine();
}

} // namespace

ScenarioRecorder::ScenarioRecorder(QObject *parent)
    : QObject(parent)
{}

void ScenarioRecorder::restart(const QStringList &answers, const QStringList &state)
{
    m_answers = answers;
    m_state = state;
    m_steps.clear();
    Q_EMIT countChanged();
}

void ScenarioRecorder::record(const QString &command)
{
    if (isFull())
        return;
    if (m_steps.isEmpty())
        m_sinceFirst.start();
    m_steps.append({m_sinceFirst.elapsed(), command});
    Q_EMIT countChanged();
}

QString ScenarioRecorder::text() const
{
    QStringList lines = {QString::fromLatin1(firstLine()),
                         QStringLiteral("# zelta-engine-sim --scenario FILE plays it.")};
    lines += m_answers;
    lines.append(QStringLiteral("wait-for module"));
    lines += m_state;
    // Pauses instead of times since the start, because the module may appear late.
    qint64 previous = 0;
    for (const Step &step : m_steps) {
        const qint64 pause = step.ms - previous;
        previous = step.ms;
        lines.append(pause > 0 ? QStringLiteral("after %1 %2").arg(pause).arg(step.command) : step.command);
    }
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

QString ScenarioRecorder::save(const QString &path) const
{
    if (m_steps.isEmpty())
        return QStringLiteral("nothing is recorded yet");
    const QString trimmed = path.trimmed();
    if (trimmed.isEmpty())
        return QStringLiteral("the scenario needs a file name");
    const QString full =
        trimmed.startsWith(QLatin1String("~/")) ? QDir::homePath() + trimmed.mid(1) : trimmed;
    if (QFileInfo::exists(full) && !isRecordedScenario(full))
        return QStringLiteral("%1 exists and is not a recorded scenario").arg(full);
    QSaveFile file(full);
    if (!file.open(QIODevice::WriteOnly) || file.write(text().toUtf8()) < 0 || !file.commit())
        return QStringLiteral("%1: %2").arg(full, file.errorString());
    return {};
}

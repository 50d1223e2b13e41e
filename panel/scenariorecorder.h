#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QStringList>
#include <QVector>

/// Records commands with their times, and writes them as a scenario.
class ScenarioRecorder : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    /// Further commands are not recorded.
    static constexpr int capacity = 10000;

    explicit ScenarioRecorder(QObject *parent = nullptr);

    int count() const { return m_steps.size(); }
    bool isFull() const { return count() == capacity; }

    /// Discards all commands. The scenario begins with commands that bring an engine to its present state:
    /// answers before it waits for the module, state after that.
    void restart(const QStringList &answers, const QStringList &state);

    /// Adds a command that was run now.
    void record(const QString &command);

    /// The scenario: it waits for the module, and repeats the commands with the pauses between them.
    QString text() const;

    /// Writes the scenario to a file and returns an empty text, or one line with the reason of the failure. A
    /// leading ~/ is the home folder. A file that is not a recorded scenario is not replaced.
    Q_INVOKABLE QString save(const QString &path) const;

Q_SIGNALS:
    void countChanged();

private:
    struct Step
    {
        qint64 ms; // since the first one
        QString command;
    };

    QStringList m_answers;
    QStringList m_state;
    QVector<Step> m_steps;
    QElapsedTimer m_sinceFirst;
};

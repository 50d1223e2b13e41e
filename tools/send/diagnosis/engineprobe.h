#pragma once

#include <QElapsedTimer>
#include <QEventLoop>
#include <QObject>

/// Sends one query with a ZeltaConnect object and waits for the answer.
class EngineProbe : public QObject
{
    Q_OBJECT

public:
    static constexpr int patienceMs = 5000;

    explicit EngineProbe(QObject *module);

    /// The time until the answer, or -1 if none arrives in time, or before an Interruption. Runs an event
    /// loop.
    int answerMs();

private Q_SLOTS:
    void onEvent(ushort id, ushort a, ushort b);

private:
    QObject *const m_module;
    QEventLoop m_loop;
    QElapsedTimer m_since;
    int m_answerMs = -1;
};

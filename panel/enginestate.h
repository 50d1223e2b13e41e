#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

class SoundEngine;

/// What the engine answers when the module asks.
struct EngineAnswer
{
    QString command; ///< sets the answer, followed by the numbers
    QVector<quint16> numbers;

    /// The command with the numbers.
    QString text() const;
};

QVector<EngineAnswer> answersOf(const SoundEngine &engine);

/// Commands that bring a new engine to the state of this one.
struct StateCommands
{
    QStringList answers; ///< these send nothing, so they need no module
    QStringList others;
};

StateCommands stateCommandsFor(const SoundEngine &engine);

#pragma once

#include <QRandomGenerator>
#include <QVector>

namespace simulated {

/// A stroke on a pad, or a movement of the hi-hat pedal.
struct Stroke
{
    enum class Kind { Hit, Choke, HiHatPosition };

    Kind kind;
    int note;    ///< pad note; unused for the pedal
    int value;   ///< velocity, pressure or pedal position, 0 to 127
    int delayMs; ///< after the sixteenth, for a human feel
};

/// Generates the strokes of an endless groove, one sixteenth at a time. The same seed gives the same strokes.
class Groove
{
public:
    explicit Groove(quint32 seed = 1);

    void restart(quint32 seed);

    /// Beat of the next sixteenth, 1 to 4, or 0 between beats.
    int beat() const;

    /// The strokes of the next sixteenth.
    QVector<Stroke> next();

private:
    void playHands(int bar, int step, QVector<Stroke> *strokes);
    void playFeet(int bar, int step, QVector<Stroke> *strokes);
    void playFill(int step, bool isLong, QVector<Stroke> *strokes);
    void movePedal(int position, QVector<Stroke> *strokes);
    void hit(int note, int velocity, QVector<Stroke> *strokes);
    bool chance(int percent);

    QRandomGenerator m_random;
    quint32 m_step = 0;
    int m_pedal = -1;
};

} // namespace simulated

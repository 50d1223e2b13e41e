#pragma once

#include <chrono>

namespace zelta {

/// A pause between packets. It begins when it is made, so that work can be done in its time, and lasts at
/// least its length. Made and finished in one thread.
class Pause
{
public:
    explicit Pause(std::chrono::milliseconds length)
        : m_end(std::chrono::steady_clock::now() + length)
    {}

    /// Returns when the pause is over, at once if that is past.
    void finish() const;

private:
    const std::chrono::steady_clock::time_point m_end;
};

} // namespace zelta

#pragma once

#include <QtGlobal>

#include <chrono>

namespace zelta {

/// Counts the datagrams that the kernel dropped and limits how often they are reported.
///
/// Belongs to one thread and reads no clock.
class DropCounter
{
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    /// The shortest time between two reports.
    static constexpr std::chrono::seconds interval{1};

    /// Takes the kernel's counter of the socket, which starts at 0 and wraps after 32 bits.
    void update(quint32 total)
    {
        m_unreported += total - m_total;
        m_total = total;
    }

    bool hasUnreported() const { return m_unreported != 0; }

    /// Returns the number of datagrams that were dropped since the last report, or 0 when there is nothing to
    /// report or the interval since the last report has not passed.
    quint64 takeReport(TimePoint now);

private:
    quint32 m_total = 0;
    quint64 m_unreported = 0;
    bool m_hasReported = false;
    TimePoint m_lastReport;
};

} // namespace zelta

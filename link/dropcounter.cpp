#include "link/dropcounter.h"

namespace zelta {

quint64 DropCounter::takeReport(TimePoint now)
{
    if (m_unreported == 0 || (m_hasReported && now - m_lastReport < interval))
        return 0;
    const quint64 count = m_unreported;
    m_unreported = 0;
    m_hasReported = true;
    m_lastReport = now;
    return count;
}

} // namespace zelta

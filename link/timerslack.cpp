#include "link/timerslack.h"

#include <sys/prctl.h>

namespace zelta {

void useMinimalTimerSlack()
{
    constexpr unsigned long slackNs = 1;
    prctl(PR_SET_TIMERSLACK, slackNs, 0UL, 0UL, 0UL);
}

} // namespace zelta

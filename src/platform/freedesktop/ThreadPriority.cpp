#include "Platform.h"

#include <algorithm>
#include <sys/resource.h>
#include <unistd.h>

namespace ostrel {

void lowerThreadPriority()
{
    constexpr int niceness = 10; // Gives a tenth of the share of others.
    const auto thread = static_cast<id_t>(::gettid());
    ::setpriority(PRIO_PROCESS, thread, std::max(niceness, ::getpriority(PRIO_PROCESS, thread)));
}

} // namespace ostrel

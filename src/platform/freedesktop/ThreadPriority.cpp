#include "Platform.h"

#include <sys/resource.h>
#include <unistd.h>

namespace ostrel {

void lowerThreadPriority()
{
    constexpr int niceness = 10; // A tenth of the share that others get.
    ::setpriority(PRIO_PROCESS, static_cast<id_t>(::gettid()), niceness);
}

} // namespace ostrel

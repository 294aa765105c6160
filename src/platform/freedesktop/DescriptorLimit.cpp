#include "DescriptorLimit.h"

#include "Platform.h"

#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

/// The limit at startup; zero if it was never raised.
rlimit initialLimit{};

} // namespace

void raiseDescriptorLimit()
{
    rlimit limit{};
    if (getrlimit(RLIMIT_NOFILE, &limit) != 0 || limit.rlim_cur == limit.rlim_max)
        return;
    initialLimit = limit;
    limit.rlim_cur = limit.rlim_max;
    setrlimit(RLIMIT_NOFILE, &limit);
}

QStringList withInitialDescriptorLimit(const QStringList &command)
{
    if (initialLimit.rlim_cur == 0)
        return command;
    // Not with a QProcess modifier, which has no effect on detached processes.
    return QStringList{u"/bin/sh"_s, u"-c"_s, u"ulimit -S -n \"$0\"; exec \"$@\""_s,
                       QString::number(initialLimit.rlim_cur)} +
           command;
}

} // namespace ostrel

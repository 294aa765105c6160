#pragma once

#include <sys/resource.h>

namespace ostrel::test {

/// Sets the limit of open files to @p softLimit for the test, and restores the former limit at the
/// end.
class LimitGuard
{
public:
    explicit LimitGuard(rlim_t softLimit)
    {
        getrlimit(RLIMIT_NOFILE, &m_before);
        const rlimit limit{.rlim_cur = softLimit, .rlim_max = m_before.rlim_max};
        setrlimit(RLIMIT_NOFILE, &limit);
    }
    ~LimitGuard() { setrlimit(RLIMIT_NOFILE, &m_before); }
    LimitGuard(const LimitGuard &) = delete;
    LimitGuard &operator=(const LimitGuard &) = delete;

private:
    rlimit m_before{};
};

} // namespace ostrel::test

#pragma once

#include <sys/types.h>
#include <unistd.h>

namespace ostrel::test {

/// While it lives, file modes bind this process: if it is root's, it acts as the user nobody.
class PlainUser
{
public:
    PlainUser()
        : m_before(::geteuid())
    {
        if (m_before == 0 && ::seteuid(nobody) != 0)
            ::_exit(1);
    }
    PlainUser(const PlainUser &) = delete;
    PlainUser &operator=(const PlainUser &) = delete;
    ~PlainUser()
    {
        if (::seteuid(m_before) != 0)
            ::_exit(1);
    }

    static constexpr uid_t nobody = 65534;

private:
    uid_t m_before;
};

} // namespace ostrel::test

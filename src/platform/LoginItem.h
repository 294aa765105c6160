#pragma once

namespace ostrel {

/// Starts the program when its user logs in. Main thread.
class LoginItem
{
public:
    LoginItem() = default;
    LoginItem(const LoginItem &) = delete;
    LoginItem &operator=(const LoginItem &) = delete;
    virtual ~LoginItem() = default;

    /// Both are idempotent, and return false if the desktop refused.
    virtual bool registerItem() = 0;
    virtual bool unregisterItem() = 0;
};

} // namespace ostrel

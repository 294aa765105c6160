#pragma once

#include "LoginItem.h"

namespace ostrel {

/// How to start a program at login differs from desktop to desktop, and Qt Core has no function for
/// it: an unknown desktop refuses.
class PortableLoginItem final : public LoginItem
{
public:
    bool registerItem() override;
    bool unregisterItem() override;
};

} // namespace ostrel

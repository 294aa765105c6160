#pragma once

#include "LoginItem.h"

namespace ostrel {

/// How a program asks to be started at login differs from desktop to desktop, and Qt Core knows
/// of no way: an unknown desktop refuses.
class PortableLoginItem final : public LoginItem
{
public:
    bool registerItem() override;
    bool unregisterItem() override;
};

} // namespace ostrel

#pragma once

#include "LoginItem.h"

namespace ostrel {

/// Leaves the user's login alone: no demo starts at the next one.
class DemoLoginItem final : public LoginItem
{
public:
    bool registerItem() override { return true; }
    bool unregisterItem() override { return true; }
};

} // namespace ostrel

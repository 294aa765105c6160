#pragma once

#include "StatusBarHost.h"

namespace ostrel {

/// A host that is there from the start, and whose menus take texts like the toolkit's own.
class PortableStatusBarHost final : public StatusBarHost
{
    Q_OBJECT

public:
    using StatusBarHost::StatusBarHost;

    [[nodiscard]] bool isAwaited() const override { return false; }
    [[nodiscard]] bool isSilent() const override { return false; }
    [[nodiscard]] QString menuText(const QString &text) const override;
    [[nodiscard]] bool hasOurPalette() const override { return false; }
};

} // namespace ostrel

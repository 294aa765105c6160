#pragma once

#include "AccessibilityBus.h"
#include "AccessibleTree.h"
#include "DesktopUser.h"
#include "OstrelProgram.h"
#include "PrivateBus.h"
#include "VirtualDisplay.h"
#include "WindowManager.h"

namespace ostrel::test {

/// The real program on a desktop, with a user who works with its windows: through what a screen
/// reader finds in them, and with keyboard and pointer.
class OstrelDesktop
{
public:
    OstrelDesktop();

    /// Starts the program on its desktop and returns when its window has the keyboard focus and can
    /// be read. False if it never can.
    [[nodiscard]] bool start();

    /// Everything that is showing in the program's windows.
    [[nodiscard]] QList<AccessibleItem> items();
    /// Waits until there is such an item; nothing if it never appears.
    [[nodiscard]] std::optional<AccessibleItem> waitForItem(AccessibleRole role,
                                                            const QString &name);
    /// Waits until there is none.
    [[nodiscard]] bool waitUntilGone(AccessibleRole role, const QString &name);
    /// The innermost item that has the keyboard focus; nothing if no item says so.
    [[nodiscard]] std::optional<AccessibleItem> focusedItem();

    VirtualDisplay display;
    WindowManager windows{display};
    PrivateBus sessionBus;
    AccessibilityBus accessibility{sessionBus, display};
    DesktopUser user{display};
    OstrelProgram program;

private:
    bool m_isReady = false;
};

} // namespace ostrel::test

#include "OstrelDesktop.h"

#include "WaitFor.h"

using namespace Qt::StringLiterals;

namespace ostrel::test {

OstrelDesktop::OstrelDesktop()
{
    program.showOn(display);
    program.setEnvironment(u"DBUS_SESSION_BUS_ADDRESS"_s, sessionBus.address());
    program.setEnvironment(u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON"_s, u"1"_s);
}

bool OstrelDesktop::start()
{
    m_isReady = m_isReady || (windows.isReady() && accessibility.start());
    return m_isReady && program.start() && waitFor([this] { return focusedItem().has_value(); });
}

QList<AccessibleItem> OstrelDesktop::items()
{
    const auto root = accessibility.program(program.processId());
    return root ? showingItems(*root) : QList<AccessibleItem>();
}

std::optional<AccessibleItem> OstrelDesktop::waitForItem(AccessibleRole role, const QString &name)
{
    std::optional<AccessibleItem> found;
    (void)waitFor([&] {
        found = itemNamed(items(), role, name);
        return found.has_value();
    });
    return found;
}

bool OstrelDesktop::waitUntilGone(AccessibleRole role, const QString &name)
{
    return waitFor([&] { return !itemNamed(items(), role, name); });
}

std::optional<AccessibleItem> OstrelDesktop::focusedItem()
{
    const auto root = accessibility.program(program.processId());
    return root ? test::focusedItem(*root) : std::nullopt;
}

} // namespace ostrel::test

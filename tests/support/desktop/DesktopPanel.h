#pragma once

#include "BoundProcess.h"
#include "PrivateBus.h"
#include "VirtualDisplay.h"

#include <QTemporaryDir>

namespace ostrel::test {

/// A real panel (xfce4-panel) along the top of the test's own display. It has only a status bar,
/// which shows StatusNotifier items and draws their menus. Ends with this object.
class DesktopPanel
{
public:
    static constexpr int height = 30;

    /// @p bus and @p display outlive the panel, which isn't started yet.
    DesktopPanel(PrivateBus &bus, const VirtualDisplay &display);

    /// Starts it and waits until it accepts items; false if it never does.
    [[nodiscard]] bool start();
    /// Ends it and waits until it no longer accepts items.
    void stop();

private:
    [[nodiscard]] QStringList environment() const;

    PrivateBus &m_bus;
    QString m_display;
    QTemporaryDir m_folder;
    BoundProcess m_panel;
};

} // namespace ostrel::test

#pragma once

#include "BoundProcess.h"
#include "VirtualDisplay.h"

#include <QByteArray>
#include <QStringList>

namespace ostrel::test {

/// A real window manager (openbox) on a display of the test's own, through which windows are seen
/// and closed. Ends with this object.
class WindowManager
{
public:
    /// @p display outlives it.
    explicit WindowManager(const VirtualDisplay &display);

    /// Waits until it manages windows; false where it doesn't come to that.
    [[nodiscard]] bool isReady();
    /// Whether a window with @p title is to be seen.
    [[nodiscard]] bool hasWindow(const QString &title);
    /// As the close button does.
    [[nodiscard]] bool closeWindow(const QString &title);

private:
    bool control(const QStringList &arguments);

    QString m_display;
    BoundProcess m_manager;
    BoundProcess m_control;
};

} // namespace ostrel::test

#pragma once

#include "BoundProcess.h"
#include "VirtualDisplay.h"

#include <QByteArray>
#include <QRect>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace ostrel::test {

/// A real window manager (openbox), through which windows are found and closed. Ends with this
/// object.
class WindowManager
{
public:
    enum class NewWindows {
        shown,
        minimised, ///< Minimised, and so never drawn.
    };

    /// @p display outlives it. The window manager is starting, see isReady().
    explicit WindowManager(const VirtualDisplay &display,
                           NewWindows newWindows = NewWindows::shown);

    /// Waits until it manages the display; false if it never does.
    [[nodiscard]] bool isReady();
    [[nodiscard]] bool hasWindow(const QString &title);
    /// Closes the window as its close button does.
    [[nodiscard]] bool closeWindow(const QString &title);
    /// Where the window is and how large, as the window manager lists it; empty if there is none.
    [[nodiscard]] QRect geometryOf(const QString &title);
    [[nodiscard]] bool moveWindow(const QString &title, const QRect &geometry);
    [[nodiscard]] bool maximiseWindow(const QString &title);

private:
    bool control(const QStringList &arguments);

    QTemporaryDir m_folder;
    QProcessEnvironment m_environment;
    BoundProcess m_manager;
    QByteArray m_output;
};

} // namespace ostrel::test

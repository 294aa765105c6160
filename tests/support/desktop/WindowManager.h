#pragma once

#include "BoundProcess.h"
#include "VirtualDisplay.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace ostrel::test {

/// A real window manager (openbox), through which windows are seen and closed. Ends with this
/// object.
class WindowManager
{
public:
    enum class NewWindows {
        shown,
        minimised, ///< And so never drawn.
    };

    /// @p display outlives it. It is on its way up.
    explicit WindowManager(const VirtualDisplay &display,
                           NewWindows newWindows = NewWindows::shown);

    /// Waits until it manages the display; false where it never does.
    [[nodiscard]] bool isReady();
    [[nodiscard]] bool hasWindow(const QString &title);
    /// As the close button does.
    [[nodiscard]] bool closeWindow(const QString &title);

private:
    bool control(const QStringList &arguments);

    QTemporaryDir m_folder;
    QProcessEnvironment m_environment;
    BoundProcess m_manager;
    QByteArray m_output;
};

} // namespace ostrel::test

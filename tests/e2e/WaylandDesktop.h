#pragma once

#include "BoundProcess.h"

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

namespace ostrel::test {

using namespace Qt::StringLiterals;

/// A Wayland compositor without a screen (sway), which shows one window at a time, as tabs. As real
/// desktops do, it raises a window only for a token that it has given out, and ignores windows that
/// it doesn't show yet; unlike most, it doesn't give new windows of this program the focus. Ends
/// with this object.
class WaylandDesktop
{
public:
    WaylandDesktop();

    /// Why there can't be one here; empty if there can be.
    [[nodiscard]] static QString obstacle();

    /// Waits until it can show windows; false if it never can.
    [[nodiscard]] bool isReady();
    /// The value for WAYLAND_DISPLAY.
    [[nodiscard]] QString name() const { return m_folder.filePath(u"wayland-1"_s); }

    /// Covers everything with the red window of another program, which gets the focus.
    [[nodiscard]] bool showStranger();
    /// A token for raising one window; empty if it gives out none.
    [[nodiscard]] QByteArray token() const;
    [[nodiscard]] bool hasWindow(const QString &title) const;
    /// The title of the window that has the focus and that the user sees; empty if there is none.
    [[nodiscard]] QString frontWindow() const;
    /// Closes the window as its close button does.
    void closeWindow(const QString &title) const;

private:
    /// Runs @p program on it, and returns what that printed.
    [[nodiscard]] QByteArray outputOf(const QString &program, const QStringList &arguments) const;
    [[nodiscard]] QByteArray control(const QStringList &arguments) const;
    [[nodiscard]] QProcessEnvironment environment() const;
    [[nodiscard]] QString controlSocket() const { return m_folder.filePath(u"control"_s); }

    QTemporaryDir m_folder;
    BoundProcess m_compositor;
    BoundProcess m_stranger;
};

} // namespace ostrel::test

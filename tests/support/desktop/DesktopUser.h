#pragma once

#include "BoundProcess.h"
#include "VirtualDisplay.h"

#include <QPoint>
#include <QString>
#include <QStringList>

namespace ostrel::test {

/// Somebody at the keyboard and the pointer of a display: real events, which reach whatever has the
/// focus or lies under the pointer. Every function returns when the display has taken the events,
/// and is false where it hasn't.
class DesktopUser
{
public:
    /// @p display outlives this object.
    explicit DesktopUser(const VirtualDisplay &display);

    /// @p keys by their X names, with modifiers: "Tab", "shift+F10", "ctrl+comma".
    bool press(const QStringList &keys);
    bool press(const char *key) { return press(QStringList(QString::fromLatin1(key))); }
    bool type(const QString &text);
    bool click(const QPoint &place);
    bool clickRight(const QPoint &place);
    bool drag(const QPoint &from, const QPoint &to);

    /// Puts @p text on the clipboard and keeps it there, as a program does from which it was
    /// copied.
    bool copy(const QString &text);

private:
    bool act(const QStringList &arguments);
    [[nodiscard]] QString pasted();

    QProcessEnvironment m_environment;
    BoundProcess m_clipboardOwner;
};

} // namespace ostrel::test

#pragma once

#include "BoundProcess.h"
#include "VirtualDisplay.h"

#include <QPoint>
#include <QString>
#include <QStringList>

namespace ostrel::test {

/// A user of a display's keyboard and pointer: real events, which reach the focused item or the
/// item under the pointer. Every function returns when the display has accepted the events, and
/// false if it hasn't.
class DesktopUser
{
public:
    /// @p display outlives this object.
    explicit DesktopUser(const VirtualDisplay &display);

    /// Presses @p keys by their X names, with modifiers: "Tab", "shift+F10", "ctrl+comma".
    bool press(const QStringList &keys);
    bool press(const char *key) { return press(QStringList(QString::fromLatin1(key))); }
    bool type(const QString &text);
    bool click(const QPoint &place);
    bool clickRight(const QPoint &place);
    bool drag(const QPoint &from, const QPoint &to);

    /// Puts @p text on the clipboard and keeps it there, like the program from which it was copied.
    bool copy(const QString &text);

private:
    bool act(const QStringList &arguments);
    [[nodiscard]] QString pasted();

    QProcessEnvironment m_environment;
    BoundProcess m_clipboardOwner;
};

} // namespace ostrel::test

#pragma once

#include <QObject>
#include <QString>

namespace ostrel {

/// The program that shows the status items of the desktop's programs. Main thread.
class StatusBarHost : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// True if no host is known, but one may be there or come later.
    [[nodiscard]] virtual bool isAwaited() const = 0;
    /// Whether there is one, but it doesn't answer: the toolkit would wait for it.
    [[nodiscard]] virtual bool isSilent() const = 0;

    /// @p text escaped for a menu that the toolkit draws, so that it is shown unchanged: no
    /// character of it marks a key.
    [[nodiscard]] static QString toolkitMenuText(const QString &text);
    /// The same for a menu that the host draws itself.
    [[nodiscard]] virtual QString menuText(const QString &text) const = 0;
    /// Whether the host takes its colours from the same source as this program's palette, so that
    /// the palette's text is legible on its bar and in its menus.
    [[nodiscard]] virtual bool hasOurPalette() const = 0;

Q_SIGNALS:
    /// A host has come, or has been found, and answers.
    void appeared();
    /// A host has gone; another may come.
    void disappeared();
};

} // namespace ostrel

#pragma once

#include "VirtualDisplay.h"

#include <QColor>
#include <QImage>
#include <QPoint>

#include <optional>

namespace ostrel::test {

/// What a user sees of a virtual display, with its mouse and keyboard.
class Screen
{
public:
    /// @p display outlives it.
    explicit Screen(const VirtualDisplay &display);

    /// What it shows now; null if it can't be read.
    [[nodiscard]] QImage picture() const;
    /// The middle of the pixels within two steps of @p color in the topmost @p height rows; nothing
    /// if they are fewer than @p enough.
    [[nodiscard]] std::optional<QPoint> find(const QColor &color, int height, int enough) const;

    enum class Button { left = 1, right = 3 };
    void click(QPoint point, Button button) const;
    /// Presses keys in turn, named as X names them: "Return".
    void press(const QStringList &keys) const;

private:
    void play(const QStringList &arguments) const;

    const VirtualDisplay &m_display;
};

} // namespace ostrel::test

#pragma once

#include <QFont>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace ostrel {

/// The theme's fonts, and the space that their lines take.
class ThemeFonts : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    /// Sets substitutes for the two families if the system doesn't have them. Called once, after
    /// the application object is created and before the first window.
    static void install();
    /// Loads the list of the system's fonts, so that nothing waits for that later. Any thread.
    static void findFaces();

    /// Avenir Next at @p weight (400 to 700) and @p pixelSize, spaced by @p letterSpacing pixels.
    [[nodiscard]] Q_INVOKABLE static QFont face(int weight, qreal pixelSize,
                                                qreal letterSpacing = defaultLetterSpacing);
    [[nodiscard]] Q_INVOKABLE static QFont mono(int weight, qreal pixelSize);
    /// The desktop's own interface font.
    [[nodiscard]] Q_INVOKABLE static QFont system(qreal pixelSize);

    /// The height of one line of text of @p pixelSize.
    [[nodiscard]] Q_INVOKABLE static qreal lineBox(qreal pixelSize);
    /// How far below the top of its line box a line of @p font starts, so that it is in the middle,
    /// with its baseline at a whole or half pixel; negative if the box is smaller than the font's
    /// line.
    [[nodiscard]] Q_INVOKABLE static qreal halfLeading(const QFont &font);
    /// How much higher a line of @p font is than its line box; 0 if it fits.
    [[nodiscard]] Q_INVOKABLE static qreal overhang(const QFont &font);
    /// The width of @p text on one line.
    [[nodiscard]] static qreal textWidth(const QString &text, const QFont &font);

    /// Wider than Lato's own, and it disables Lato's ligatures.
    static constexpr qreal defaultLetterSpacing = 0.1;
};

} // namespace ostrel

#pragma once

#include <QFont>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace ostrel {

/// The faces of the theme, and how much room their lines take.
class ThemeFonts : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    /// Names what stands in for the two families where the system doesn't have them, and chooses
    /// how text is drawn at this screen's scale. Called once, after the application object is made
    /// and before the first window.
    static void install();
    /// Looks through the system's faces, so that nobody has to wait for that later. Any thread.
    static void findFaces();

    /// Avenir Next at @p weight (400 to 700) and @p pixelSize, spaced by @p letterSpacing pixels.
    [[nodiscard]] Q_INVOKABLE static QFont face(int weight, qreal pixelSize,
                                                qreal letterSpacing = defaultLetterSpacing);
    [[nodiscard]] Q_INVOKABLE static QFont mono(int weight, qreal pixelSize);
    /// The desktop's own interface face.
    [[nodiscard]] Q_INVOKABLE static QFont system(qreal pixelSize);

    /// The height of one line of text of @p pixelSize.
    [[nodiscard]] Q_INVOKABLE static qreal lineBox(qreal pixelSize);
    /// How far below the top of its line box a line of @p font starts, so that it stands in the
    /// middle, on a baseline at a whole or half pixel; negative where the box is tighter than the
    /// face.
    [[nodiscard]] Q_INVOKABLE static qreal halfLeading(const QFont &font);
    /// How much higher a line of @p font is measured than its line box; 0 where it fits.
    [[nodiscard]] Q_INVOKABLE static qreal overhang(const QFont &font);
    /// The width of @p text on one line.
    [[nodiscard]] static qreal textWidth(const QString &text, const QFont &font);

    /// Looser than Lato's own, and it switches off Lato's joined letters.
    static constexpr qreal defaultLetterSpacing = 0.1;
};

} // namespace ostrel

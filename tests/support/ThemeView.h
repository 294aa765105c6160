#pragma once

#include <QColor>
#include <QImage>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QVariant>

#include <memory>

namespace ostrel::test {

using namespace Qt::StringLiterals;

/// A shown window on the theme's background that holds a piece of QML.
class ThemeView
{
public:
    /// @p body is the content of the window's root item, for example `Chip { text: "5m" }`. The
    /// functions below refer to the item whose objectName is "subject".
    explicit ThemeView(const QByteArray &body);
    ~ThemeView();

    /// Empty, or the reason why the piece of QML could not be made.
    [[nodiscard]] QString error() const { return m_error; }
    [[nodiscard]] QQuickWindow &window() { return m_window; }
    /// The item with that objectName; null if there is none.
    [[nodiscard]] QQuickItem *item(const QString &objectName = u"subject"_s) const;
    [[nodiscard]] QVariant property(const char *name) const;
    void setProperty(const char *name, const QVariant &value);
    /// The value of a QML expression, in which the theme's names are known.
    [[nodiscard]] QVariant evaluate(const QString &expression);
    void reduceMotion();
    [[nodiscard]] QColor themeColor(const char *name);

    /// The window's content.
    [[nodiscard]] QImage picture();
    /// The color at @p point of @p item, in the item's own coordinates.
    [[nodiscard]] QColor colorAt(const QQuickItem &item, QPointF point);
    [[nodiscard]] QColor colorAt(QPointF point) { return colorAt(*item(), point); }
    /// The middle of @p item in the window's coordinates.
    [[nodiscard]] static QPoint middleOf(const QQuickItem &item);

private:
    QQmlEngine m_engine;
    QQuickWindow m_window;
    std::unique_ptr<QObject> m_root;
    QString m_error;
};

/// Whether no channel of the two differs by more than rounding does.
[[nodiscard]] bool looksLike(const QColor &left, const QColor &right);
/// @p top at @p opacity, laid over @p ground.
[[nodiscard]] QColor laidOver(const QColor &ground, const QColor &top, double opacity);

} // namespace ostrel::test

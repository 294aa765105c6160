#include "ThemeView.h"

#include "WaitFor.h"

#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlExpression>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

constexpr int side = 400;
/// Wide enough for focus rings and halos to be inside the picture.
constexpr int margin = 40;

QByteArray document(const QByteArray &body)
{
    return "import QtQuick\nimport Ostrel.Theme\nItem { id: root\n" + body + "\n}\n";
}

} // namespace

ThemeView::ThemeView(const QByteArray &body)
{
    m_engine.addImportPath(u"qrc:/qt/qml"_s);
    QQmlComponent component(&m_engine);
    component.setData(document(body), QUrl(u"test.qml"_s));
    m_root.reset(component.create());
    m_error = component.errorString();
    auto *item = qobject_cast<QQuickItem *>(m_root.get());
    if (!item)
        return;
    item->setParentItem(m_window.contentItem());
    item->setPosition({margin, margin});
    item->setSize({side - 2 * margin, side - 2 * margin});
    m_window.resize(side, side);
    m_window.setColor(themeColor("background"));
    m_window.show();
    m_window.requestActivate();
    if (!waitFor([&] { return m_window.isExposed() && m_window.isActive(); }))
        m_error = u"the window was never shown"_s;
}

ThemeView::~ThemeView() = default;

QQuickItem *ThemeView::item(const QString &objectName) const
{
    return m_root->findChild<QQuickItem *>(objectName);
}

QVariant ThemeView::property(const char *name) const
{
    return item()->property(name);
}

void ThemeView::setProperty(const char *name, const QVariant &value)
{
    item()->setProperty(name, value);
}

QVariant ThemeView::evaluate(const QString &expression)
{
    QQmlExpression parsed(qmlContext(m_root.get()), m_root.get(), expression);
    const QVariant value = parsed.evaluate();
    return parsed.hasError() ? QVariant(parsed.error().toString()) : value;
}

void ThemeView::reduceMotion()
{
    QQmlExpression(qmlContext(m_root.get()), m_root.get(), u"Theme.reducedMotion = true"_s)
        .evaluate();
}

QColor ThemeView::themeColor(const char *name)
{
    return evaluate(u"Theme.%1"_s.arg(QLatin1String(name))).value<QColor>();
}

QImage ThemeView::picture()
{
    return m_window.grabWindow();
}

QColor ThemeView::colorAt(const QQuickItem &item, QPointF point)
{
    const QPointF place = item.mapToScene(point) * m_window.effectiveDevicePixelRatio();
    return picture().pixelColor(static_cast<int>(std::floor(place.x())),
                                static_cast<int>(std::floor(place.y())));
}

QPoint ThemeView::middleOf(const QQuickItem &item)
{
    return item.mapToScene(item.boundingRect().center()).toPoint();
}

bool looksLike(const QColor &left, const QColor &right)
{
    constexpr int rounding = 2;
    const std::array differences = {left.red() - right.red(), left.green() - right.green(),
                                    left.blue() - right.blue(), left.alpha() - right.alpha()};
    return std::all_of(differences.begin(), differences.end(),
                       [](int difference) { return std::abs(difference) <= rounding; });
}

QColor laidOver(const QColor &ground, const QColor &top, double opacity)
{
    const auto mix = [&](float under, float over) {
        const auto share = static_cast<float>(opacity) * top.alphaF();
        return under + (over - under) * share;
    };
    return QColor::fromRgbF(mix(ground.redF(), top.redF()), mix(ground.greenF(), top.greenF()),
                            mix(ground.blueF(), top.blueF()));
}

} // namespace ostrel::test

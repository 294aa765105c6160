#include "HaloClock.h"

#include <QPointF>

#include <chrono>
#include <cmath>

namespace ostrel {

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds frame = 50ms;
constexpr std::chrono::milliseconds oneWay = 1500ms;
/// A halo has 36 shades: what swells by less shows nothing new.
constexpr double smallestStep = 1.0 / 36;

/// The curve that CSS calls "ease-in-out".
QEasingCurve easeInOut()
{
    QEasingCurve curve(QEasingCurve::BezierSpline);
    curve.addCubicBezierSegment(QPointF(0.42, 0), QPointF(0.58, 1), QPointF(1, 1));
    return curve;
}

} // namespace

HaloClock::HaloClock(QObject *parent)
    : QObject(parent)
    , m_easing(easeInOut())
{
    m_timer.setInterval(frame);
    connect(&m_timer, &QTimer::timeout, this, &HaloClock::advance);
}

void HaloClock::follow()
{
    if (++m_followers > 1)
        return;
    m_elapsed.start();
    m_timer.start();
}

void HaloClock::leave()
{
    if (--m_followers > 0)
        return;
    m_timer.stop();
    setSwell(0);
}

void HaloClock::advance()
{
    const double ways = std::fmod(static_cast<double>(m_elapsed.elapsed()) / oneWay.count(), 2);
    const double swell = m_easing.valueForProgress(ways <= 1 ? ways : 2 - ways);
    if (std::abs(swell - m_swell) >= smallestStep)
        setSwell(swell);
}

void HaloClock::setSwell(double swell)
{
    if (m_swell == swell)
        return;
    m_swell = swell;
    Q_EMIT swellChanged();
}

} // namespace ostrel

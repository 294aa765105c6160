#pragma once

#include <QEasingCurve>
#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

namespace ostrel {

/// The phase that all pulsing halos share, so that they are drawn in the same frames. It advances
/// at most 20 times a second, less often where the motion is slow: a frame that looks like the one
/// before isn't drawn. Main thread.
class HaloClock : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    /// From 0 to 1 and back, 1.5 seconds each way, easing in and out. 0 if no halo follows.
    Q_PROPERTY(double swell READ swell NOTIFY swellChanged FINAL)

public:
    explicit HaloClock(QObject *parent = nullptr);

    [[nodiscard]] double swell() const { return m_swell; }

    /// Called by a halo that begins to pulse. The first one starts the clock.
    Q_INVOKABLE void follow();
    /// Called by a halo that no longer pulses, once for each follow().
    Q_INVOKABLE void leave();

Q_SIGNALS:
    void swellChanged();

private:
    void advance();
    void setSwell(double swell);

    QTimer m_timer;
    QElapsedTimer m_elapsed;
    QEasingCurve m_easing;
    double m_swell = 0;
    int m_followers = 0;
};

} // namespace ostrel

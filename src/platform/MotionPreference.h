#pragma once

#include <QObject>

namespace ostrel {

/// Whether the user has asked the desktop for less motion. Main thread.
class MotionPreference : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// False as long as the desktop hasn't reported it.
    [[nodiscard]] bool isReduced() const { return m_isReduced; }

Q_SIGNALS:
    void isReducedChanged();

protected:
    void setReduced(bool isReduced);

private:
    bool m_isReduced = false;
};

} // namespace ostrel

#pragma once

#include <QObject>

#include <optional>

namespace ostrel {

/// What the user has asked of every program on the desktop. Main thread.
class DesktopPreferences : public QObject
{
    Q_OBJECT

public:
    struct Values
    {
        bool isMotionReduced = false;
        bool isContrastHigh = false;
        /// Whether the hours of clocks count to twelve; absent if as usual in the user's region.
        std::optional<bool> countsToTwelve = {};

        bool operator==(const Values &) const = default;
    };

    using QObject::QObject;

    /// The defaults above as long as the desktop hasn't reported others.
    [[nodiscard]] const Values &values() const { return m_values; }

Q_SIGNALS:
    void valuesChanged();

protected:
    void setValues(const Values &values);

private:
    Values m_values;
};

} // namespace ostrel

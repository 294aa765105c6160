#pragma once

#include <QLocale>
#include <QObject>
#include <QTimeZone>

#include <optional>

namespace ostrel {

/// How clocks show times to the user.
struct ClockStyle
{
    Q_GADGET

public:
    QTimeZone timeZone = QTimeZone::systemTimeZone();
    QLocale locale = {};
    /// Whether hours count to twelve, as the user has told the desktop; absent if as usual in the
    /// locale.
    std::optional<bool> countsToTwelve = {};

    bool operator==(const ClockStyle &) const = default;
};

} // namespace ostrel

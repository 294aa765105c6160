#pragma once

#include "Check.h"

#include <QMetaType>
#include <QString>

#include <span>
#include <vector>

namespace ostrel {

/// What the response-time chart plots: the checks that were up, in order of time.
struct ResponseSeries
{
    Q_GADGET
    Q_PROPERTY(QString newestText READ newestText)
    Q_PROPERTY(bool isPlottable READ isPlottable)

public:
    struct Point
    {
        Timestamp time;
        double responseTime; ///< Milliseconds.

        bool operator==(const Point &) const = default;
    };

    /// Longer series show only their line.
    static constexpr std::size_t maxMarkedPoints = 40;

    std::vector<Point> points = {};

    /// "245 ms", the newest point's; empty if there is none.
    [[nodiscard]] QString newestText() const;
    /// Whether there is a line to draw.
    [[nodiscard]] bool isPlottable() const { return points.size() >= 2; }
    [[nodiscard]] bool hasMarks() const { return points.size() <= maxMarkedPoints; }
    /// One sentence: the newest, lowest, highest and mean response time.
    [[nodiscard]] QString spokenText() const;

    bool operator==(const ResponseSeries &) const = default;
};

/// @p checks may be in any order; failed ones are left out and leave no gap.
[[nodiscard]] ResponseSeries responseSeries(std::span<const Check> checks);

} // namespace ostrel

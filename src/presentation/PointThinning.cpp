#include "PointThinning.h"

#include <algorithm>
#include <cmath>

namespace ostrel {

namespace {

using Points = std::span<const QPointF>;

/// How many of @p points, which aren't empty, are in the section of the first one.
std::size_t firstSectionSize(Points points, double left, double width)
{
    const auto sectionOf = [left, width](QPointF point) {
        return std::floor((point.x() - left) / width);
    };
    const auto end =
        std::ranges::upper_bound(points, sectionOf(points.front()), std::less<>(), sectionOf);
    return static_cast<std::size_t>(end - points.begin());
}

void appendExtremes(std::vector<QPointF> &thinned, Points section)
{
    if (section.size() <= 2) {
        thinned.insert(thinned.end(), section.begin(), section.end());
        return;
    }
    const auto [lowest, highest] = std::ranges::minmax_element(section, {}, &QPointF::y);
    thinned.push_back(*std::min(lowest, highest));
    thinned.push_back(*std::max(lowest, highest));
}

/// Both ends of @p points are those of the line.
void keepEnds(std::vector<QPointF> &thinned, Points points)
{
    if (thinned.front() != points.front())
        thinned.insert(thinned.begin(), points.front());
    if (thinned.back() != points.back())
        thinned.push_back(points.back());
}

} // namespace

std::vector<QPointF> thinnedPoints(Points points, double left, double width)
{
    std::vector<QPointF> thinned;
    thinned.reserve(points.size());
    for (Points rest = points; !rest.empty();) {
        const std::size_t count = firstSectionSize(rest, left, width);
        appendExtremes(thinned, rest.first(count));
        rest = rest.subspan(count);
    }
    if (!points.empty())
        keepEnds(thinned, points);
    return thinned;
}

} // namespace ostrel

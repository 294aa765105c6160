#include "StatisticLayout.h"

#include "MonitorDetail.h"
#include "ThemeFonts.h"

#include <algorithm>

namespace ostrel {

namespace {

constexpr int unitSize = 14;

qreal widthOf(const Statistic &statistic, int valueSize, qreal unitGap)
{
    const qreal value =
        ThemeFonts::textWidth(statistic.value, ThemeFonts::face(QFont::Bold, valueSize, 0));
    if (statistic.unit.isEmpty())
        return value;
    return value + unitGap +
           ThemeFonts::textWidth(statistic.unit, ThemeFonts::face(QFont::Medium, unitSize));
}

} // namespace

int StatisticLayout::valueSize(const QVariantList &statistics, qreal room, qreal unitGap)
{
    const auto fits = [&](int size) {
        return std::ranges::all_of(statistics, [&](const QVariant &statistic) {
            return widthOf(statistic.value<Statistic>(), size, unitGap) <= room;
        });
    };
    int size = largestValue;
    while (size > smallestValue && !fits(size))
        --size;
    return size;
}

} // namespace ostrel

#include "ResponseSeries.h"

#include "DisplayFormats.h"

#include <QCoreApplication>

#include <algorithm>

namespace ostrel {

namespace {

struct SeriesTexts
{
    Q_DECLARE_TR_FUNCTIONS(ResponseSeries)
};

double meanResponseTime(const std::vector<ResponseSeries::Point> &points)
{
    double sum = 0;
    for (const auto &point : points)
        sum += point.responseTime;
    return sum / static_cast<double>(points.size());
}

QString text(double responseTime)
{
    return responseTimeText(Milliseconds(responseTime));
}

} // namespace

QString ResponseSeries::newestText() const
{
    return points.empty() ? QString() : text(points.back().responseTime);
}

QString ResponseSeries::spokenText() const
{
    if (points.empty())
        return SeriesTexts::tr("Response Time: waiting for data");
    const auto [lowest, highest] = std::ranges::minmax_element(points, {}, &Point::responseTime);
    return SeriesTexts::tr("Response Time: newest %1, lowest %2, highest %3, average %4")
        .arg(newestText(), text(lowest->responseTime), text(highest->responseTime),
             text(meanResponseTime(points)));
}

ResponseSeries responseSeries(std::span<const Check> checks)
{
    ResponseSeries series;
    series.points.reserve(checks.size());
    for (const Check &check : checks) {
        if (check.isUp)
            series.points.push_back({check.timestamp, check.responseTime});
    }
    std::ranges::stable_sort(series.points, {}, &ResponseSeries::Point::time);
    return series;
}

} // namespace ostrel

#include "PresentationSamples.h"
#include "Printers.h"
#include "ResponseChartPainter.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

constexpr QSizeF body(600, 180);
constexpr double glyphWidth = 5;

double widthOf(const QString &text)
{
    return glyphWidth * static_cast<double>(text.size());
}

ResponseChart chartOf(const std::vector<Check> &checks, QSizeF size = body,
                      const QLocale &locale = QLocale(u"en_US"_s))
{
    return responseChart(responseSeries(checks), size, {widthOf, 6}, {QTimeZone("UTC"), locale});
}

std::vector<Check> dayOfChecks(int count)
{
    const Monitor monitor = sampleMonitor();
    std::vector<Check> checks;
    for (int i = 0; i < count; ++i)
        checks.push_back(
            upCheck(monitor, sampleNow() - i * (24 * 3600s / count), 100 + 2 * i % 165));
    return checks;
}

QStringList textsOf(const ResponseChart &chart)
{
    QStringList texts;
    for (const auto &label : chart.labels)
        texts += label.text;
    return texts;
}

bool isFinite(const QPointF &point)
{
    return std::isfinite(point.x()) && std::isfinite(point.y());
}

/// @p chart without labels and upright grid lines, painted.
QImage painted(ResponseChart chart, QSizeF size, double scale)
{
    chart.verticals.clear();
    chart.labels.clear();
    QImage image((size * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    QPainter painter(&image);
    paintResponseChart(painter, chart, {.line = Qt::blue, .grid = Qt::gray});
    return image;
}

/// The checks of a day, as slow as @p milliseconds says of each.
template<typename Milliseconds>
std::vector<Check> dayOfChecks(int count, Milliseconds milliseconds)
{
    const Monitor monitor = sampleMonitor();
    std::vector<Check> checks;
    for (int i = 0; i < count; ++i)
        checks.push_back(
            upCheck(monitor, sampleNow() - (count - i) * (24 * 3600s / count), milliseconds(i)));
    return checks;
}

/// The picture of a chart whose line is level, without its ends: every column of its pixels is to
/// be the same.
QImage levelPicture(int count, double scale)
{
    const auto chart = chartOf(dayOfChecks(count, [](int) { return 110; }));
    const QRectF inside = chart.plot.adjusted(4, 0, -4, 0);
    return painted(chart, body, scale)
        .copy(QRectF(inside.topLeft() * scale, inside.size() * scale).toRect());
}

int greatestDifference(const QImage &one, const QImage &other)
{
    int greatest = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x)
            greatest =
                std::max(greatest, std::abs(qRed(one.pixel(x, y)) - qRed(other.pixel(x, y))));
    }
    return greatest;
}

double meanDifference(const QImage &one, const QImage &other)
{
    double sum = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x)
            sum += std::abs(qRed(one.pixel(x, y)) - qRed(other.pixel(x, y)));
    }
    return sum / (one.width() * one.height());
}

/// @p chart, with the same curve but so few points that it is stroked.
ResponseChart withFewPoints(ResponseChart chart)
{
    chart.points = {chart.points.front(), chart.points.back()};
    return chart;
}

QRectF boxOf(const ChartLabel &label)
{
    return {label.position.x(), label.position.y() - 6, widthOf(label.text), 6};
}

} // namespace

TEST(ResponseChartTest, TooFewPointsGiveAnEmptyChart)
{
    EXPECT_TRUE(chartOf({}).isEmpty());
    EXPECT_TRUE(chartOf(dayOfChecks(1)).isEmpty());
}

TEST(ResponseChartTest, TwoPointsAreOneStretchOfLineWithTwoMarks)
{
    const auto chart = chartOf(dayOfChecks(2));
    EXPECT_EQ(chart.curve.size(), 1U);
    EXPECT_EQ(chart.marks, chart.points);
    EXPECT_EQ(chart.marks.size(), 2U);
}

TEST(ResponseChartTest, PlotKeepsItsMargins)
{
    EXPECT_EQ(chartOf(dayOfChecks(96)).plot, QRectF(32, 8, 560, 152));
}

TEST(ResponseChartTest, WideValueLabelsMoveThePlot)
{
    const Monitor monitor = sampleMonitor();
    const auto chart = chartOf(
        {upCheck(monitor, sampleNow() - 1h, 1234567), upCheck(monitor, sampleNow(), 2234567)});
    EXPECT_EQ(chart.plot.left(), 7 * glyphWidth + 8);
    for (const auto &label : chart.labels)
        EXPECT_GE(label.position.x(), 0);
}

TEST(ResponseChartTest, FirstAndLastPointsTouchThePlotsSides)
{
    const auto chart = chartOf(dayOfChecks(96));
    EXPECT_DOUBLE_EQ(chart.points.front().x(), chart.plot.left());
    EXPECT_DOUBLE_EQ(chart.points.back().x(), chart.plot.right());
}

TEST(ResponseChartTest, ValuesArePlacedOnTheScale)
{
    const Monitor monitor = sampleMonitor();
    // The scale is 0 to 300.
    const auto chart =
        chartOf({upCheck(monitor, sampleNow() - 1h, 0), upCheck(monitor, sampleNow() - 30min, 150),
                 upCheck(monitor, sampleNow(), 270)});
    EXPECT_DOUBLE_EQ(chart.points[0].y(), chart.plot.bottom());
    EXPECT_DOUBLE_EQ(chart.points[1].y(), chart.plot.center().y());
    EXPECT_DOUBLE_EQ(chart.points[1].x(), chart.plot.center().x());
    EXPECT_DOUBLE_EQ(chart.highest, chart.points[2].y());
}

TEST(ResponseChartTest, ValueLabelsEndEightPixelsLeftOfThePlot)
{
    const auto chart = chartOf(dayOfChecks(96));
    EXPECT_EQ(chart.horizontals, (std::vector{160.0, 160 - 152 / 3.0, 160 - 304 / 3.0, 8.0}));
    const auto &top = chart.labels[3];
    EXPECT_EQ(top.text, u"300"_s);
    EXPECT_DOUBLE_EQ(boxOf(top).right(), 24);
    EXPECT_DOUBLE_EQ(boxOf(top).center().y(), 8);
}

TEST(ResponseChartTest, TimeLabelsAreCentredUnderTheirLines)
{
    const auto chart = chartOf(dayOfChecks(96));
    EXPECT_EQ(textsOf(chart).mid(4).join(QLatin1Char('|')), u"6 PM|Fri 20|6 AM|12 PM"_s);
    ASSERT_EQ(chart.verticals.size(), 4U);
    EXPECT_DOUBLE_EQ(boxOf(chart.labels[5]).center().x(), chart.verticals[1]);
    EXPECT_DOUBLE_EQ(chart.labels[5].position.y(), 176);
}

TEST(ResponseChartTest, LabelsNeverOverlapNorLeaveTheBody)
{
    for (const double width : {60.0, 120.0, 200.0, 340.0, 600.0}) {
        for (const int count : {2, 3, 5, 24, 288}) {
            const QSizeF size(width, 180);
            const auto chart = chartOf(dayOfChecks(count), size);
            EXPECT_FALSE(chart.labels.empty()) << width;
            for (std::size_t i = 0; i < chart.labels.size(); ++i) {
                const QRectF box = boxOf(chart.labels[i]);
                EXPECT_TRUE(QRectF({}, size).contains(box))
                    << width << " " << qPrintable(chart.labels[i].text);
                for (std::size_t j = 0; j < i; ++j)
                    EXPECT_FALSE(boxOf(chart.labels[j]).intersects(box)) << width;
            }
        }
    }
}

TEST(ResponseChartTest, LabelThatWouldLeaveTheBodyIsLeftOutButItsLineStays)
{
    const Monitor monitor = sampleMonitor();
    const auto last = *parseTimestamp("2026-11-20T14:00:00Z");
    const auto chart = chartOf({upCheck(monitor, last - 4h), upCheck(monitor, last)});
    EXPECT_EQ(chart.verticals.size(), 5U);
    EXPECT_EQ(textsOf(chart).last(), u"1 PM"_s);
}

TEST(ResponseChartTest, FortyPointsAreMarkedAndFortyOneNot)
{
    EXPECT_EQ(chartOf(dayOfChecks(40)).marks.size(), 40U);
    EXPECT_TRUE(chartOf(dayOfChecks(41)).marks.empty());
}

TEST(ResponseChartTest, PointsThatCanBeToldApartAreAllOnTheLine)
{
    for (const int count : {2, 41, 220, 221, 288, 560}) {
        const auto chart = chartOf(dayOfChecks(count));
        EXPECT_EQ(chart.points.size(), static_cast<std::size_t>(count));
        EXPECT_EQ(chart.curve.size(), chart.points.size() - 1);
    }
}

TEST(ResponseChartTest, OfMorePointsTheExtremesOfTwoPixelsAreOnTheLine)
{
    for (const double width : {600.0, 1000.0, 2400.0}) {
        const auto chart = chartOf(dayOfChecks(2000), {width, 180});
        EXPECT_LE(static_cast<double>(chart.points.size()), chart.plot.width() + 2);
        EXPECT_GT(static_cast<double>(chart.points.size()),
                  std::min(2000.0, chart.plot.width()) * 0.95);
        EXPECT_EQ(chart.curve.size(), chart.points.size() - 1);
        EXPECT_TRUE(std::ranges::is_sorted(chart.points, {}, &QPointF::x));
        EXPECT_DOUBLE_EQ(chart.points.front().x(), chart.plot.left());
        EXPECT_DOUBLE_EQ(chart.points.back().x(), chart.plot.right());
    }
}

TEST(ResponseChartTest, MarkedPointsAreAllOnTheLine)
{
    const Monitor monitor = sampleMonitor();
    std::vector<Check> checks{upCheck(monitor, sampleNow() - 24h)};
    for (int i = 0; i < 39; ++i)
        checks.push_back(upCheck(monitor, sampleNow() + i * 1s, 100 + i));
    const auto chart = chartOf(checks);
    EXPECT_EQ(chart.points.size(), 40U);
    EXPECT_EQ(chart.marks, chart.points);
}

TEST(ResponseChartTest, SpikeKeepsItsHeight)
{
    for (const double width : {600.0, 2400.0}) {
        // The scale ends at 1000.
        const auto chart = chartOf(
            dayOfChecks(2000, [](int i) { return i == 1003 ? 900 : 100 + i % 7; }), {width, 180});
        const auto spike = std::ranges::min(chart.points, {}, &QPointF::y);
        EXPECT_DOUBLE_EQ(spike.y(), chart.plot.bottom() - 0.9 * chart.plot.height());
        EXPECT_NEAR(spike.x(), chart.plot.left() + chart.plot.width() * 1003 / 1999, 0.01);

        const QImage image = painted(chart, {width, 180}, 1);
        const auto ink = [&](double y) {
            return 255 - qRed(image.pixel(qRound(spike.x() - 0.5), qRound(y)));
        };
        EXPECT_GT(ink(spike.y()), 190) << width;
        EXPECT_GT(ink(spike.y() + 30), 190) << width;
        EXPECT_EQ(ink(spike.y() - 4), 0) << width;
    }
}

TEST(ResponseChartTest, LineLooksTheSameWhateverItsPointsNumber)
{
    for (const double scale : {1.0, 1.25, 2.0}) {
        const QImage few = levelPicture(220, scale);
        for (const int count : {221, 288, 560, 563, 2000})
            EXPECT_LE(greatestDifference(levelPicture(count, scale), few), 4)
                << count << " at " << scale;
    }
}

TEST(ResponseChartTest, LongLineIsPaintedAsItWouldBeStroked)
{
    const auto calm = [](int i) { return 200 + 20 * std::sin(i * 0.1) + i % 3; };
    const auto noisy = [](int i) { return 200 + 90 * std::sin(i * 1.7) + 50 * std::sin(i * 0.3); };
    for (const int count : {221, 500, 2000}) {
        for (const double scale : {1.0, 1.25, 2.0}) {
            for (const auto &checks : {dayOfChecks(count, calm), dayOfChecks(count, noisy)}) {
                const auto chart = chartOf(checks);
                ASSERT_GT(chart.points.size(), 220U);
                const double difference = meanDifference(
                    painted(chart, body, scale), painted(withFewPoints(chart), body, scale));
                EXPECT_LT(difference, 3) << count << " at " << scale;
            }
        }
    }
}

TEST(ResponseChartTest, LongLineHasNoSeams)
{
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        const QImage image = levelPicture(1440, scale);
        const QImage column = image.copy(0, 0, 1, image.height());
        EXPECT_LT(qRed(column.pixel(0, column.height() - 4)), 255);
        for (int x = 1; x < image.width(); ++x)
            ASSERT_EQ(image.copy(x, 0, 1, image.height()), column) << x << " at " << scale;
    }
}

TEST(ResponseChartTest, LongSeriesInABodyWithoutRoomIsPainted)
{
    for (const QSizeF size : {QSizeF(1, 1), QSizeF(600, 20), QSizeF(30, 180)})
        EXPECT_FALSE(painted(chartOf(dayOfChecks(2000), size), size, 1).isNull());
}

TEST(ResponseChartTest, EqualTimestampsStayFinite)
{
    const Monitor monitor = sampleMonitor();
    const auto chart =
        chartOf({upCheck(monitor, sampleNow() - 1h, 100), upCheck(monitor, sampleNow(), 200),
                 upCheck(monitor, sampleNow(), 200), upCheck(monitor, sampleNow(), 300)});
    EXPECT_EQ(chart.curve.size(), 3U);
    for (const auto &segment : chart.curve) {
        EXPECT_TRUE(isFinite(segment.control1));
        EXPECT_TRUE(isFinite(segment.control2));
        EXPECT_TRUE(isFinite(segment.end));
    }
}

TEST(ResponseChartTest, ASingleTimestampIsInTheMiddle)
{
    const Monitor monitor = sampleMonitor();
    const auto chart =
        chartOf({upCheck(monitor, sampleNow(), 100), upCheck(monitor, sampleNow(), 300)});
    ASSERT_EQ(chart.points.size(), 2U);
    for (const QPointF &point : chart.points)
        EXPECT_DOUBLE_EQ(point.x(), chart.plot.center().x());
}

TEST(ResponseChartTest, ValuesBeyondEveryScaleStayFinite)
{
    const Monitor monitor = sampleMonitor();
    const auto chart =
        chartOf({upCheck(monitor, sampleNow() - 1h, 1e300), upCheck(monitor, sampleNow(), -5)});
    ASSERT_EQ(chart.points.size(), 2U);
    for (const QPointF &point : chart.points)
        EXPECT_TRUE(chart.plot.adjusted(-1, -1, 1, 1).contains(point));
}

TEST(ResponseChartTest, BodyWithoutRoomGivesAnEmptyPlot)
{
    const auto chart = chartOf(dayOfChecks(5), {0, 0});
    EXPECT_EQ(chart.plot.width(), 0);
    EXPECT_EQ(chart.plot.height(), 0);
}

} // namespace ostrel::test

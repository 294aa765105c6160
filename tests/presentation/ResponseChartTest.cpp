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
    return responseChart(responseSeries(checks), size, {widthOf, 6}, QTimeZone("UTC"), locale);
}

std::vector<Check> dayOfChecks(int count)
{
    const Monitor monitor = sampleMonitor();
    std::vector<Check> checks;
    for (int i = 0; i < count; ++i)
        checks.push_back(
            upCheck(monitor, sampleNow() - i * (24 * 60min / count), 100 + 2 * i % 165));
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

/// The picture of a dense chart whose line is level, without labels and vertical grid lines: every
/// column of its pixels must be the same.
QImage levelPicture(double scale)
{
    const Monitor monitor = sampleMonitor();
    std::vector<Check> checks;
    for (int i = 1440; i > 0; --i)
        checks.push_back(upCheck(monitor, sampleNow() - i * 1min, 100));
    ResponseChart chart = chartOf(checks);
    chart.verticals.clear();
    chart.labels.clear();
    QImage image((body * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paintResponseChart(painter, chart, {.line = Qt::blue, .grid = Qt::gray});
    const QRectF inside = chart.plot.adjusted(4, 0, -4, 0);
    return image.copy(QRectF(inside.topLeft() * scale, inside.size() * scale).toRect());
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

TEST(ResponseChartTest, PointsNearerThanTheLineIsWideAreABand)
{
    const auto sparse = chartOf(dayOfChecks(96));
    EXPECT_EQ(sparse.curve.size(), 95U);
    EXPECT_TRUE(sparse.band.empty());
    const auto dense = chartOf(dayOfChecks(1440));
    EXPECT_TRUE(dense.curve.empty());
    EXPECT_FALSE(dense.band.empty());
    EXPECT_EQ(dense.points.size(), 1440U);
}

TEST(ResponseChartTest, BandHasNoSeams)
{
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        const QImage image = levelPicture(scale);
        const QImage column = image.copy(0, 0, 1, image.height());
        EXPECT_GT(qAlpha(column.pixel(0, column.height() / 2)), 0);
        for (int x = 1; x < image.width(); ++x)
            ASSERT_EQ(image.copy(x, 0, 1, image.height()), column) << x << " at " << scale;
    }
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

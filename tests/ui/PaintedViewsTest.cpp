#include "ClockStyle.h"
#include "MonitorDetail.h"
#include "PresentationSamples.h"
#include "Printers.h"
#include "ResponseChartView.h"
#include "UptimeTimelineView.h"
#include "WaitFor.h"

#include <QAccessible>
#include <QDir>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItemGrabResult>
#include <QQuickView>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

/// The card's colours and font, as a view binds them.
constexpr auto document = R"(
    import QtQuick
    import Ostrel

    Rectangle {
        id: root
        property alias series: chart.series
        property alias clock: chart.clock
        property alias timeline: strip.timeline
        readonly property color ink: Qt.rgba(0.12, 0.12, 0.22, 1)
        width: 602
        height: 242
        color: Qt.rgba(1, 0.97, 0.95, 1)
        ResponseChartView {
            id: chart
            objectName: "chart"
            width: parent.width
            height: 180
            lineColor: Qt.rgba(0.16, 0.20, 0.52, 1)
            gridColor: Qt.alpha(root.ink, 0.25)
            labelColor: Qt.alpha(root.ink, 0.5)
            labelFont: Qt.font({ family: "Lato", pixelSize: 9, letterSpacing: 0.1 })
        }
        UptimeTimelineView {
            id: strip
            objectName: "strip"
            y: 200
            width: parent.width
            height: 26
            upColor: Qt.rgba(0.22, 0.75, 0.50, 1)
            downColor: Qt.rgba(0.92, 0.34, 0.30, 1)
            emptyColor: Qt.alpha(root.ink, 0.04)
        }
    }
)";

class PaintedViewsTest : public testing::Test
{
protected:
    PaintedViewsTest()
    {
        m_view.engine()->addImportPath(u"qrc:/qt/qml"_s);
        QQmlComponent component(m_view.engine());
        component.setData(document, QUrl(u"qrc:/PaintedViewsTest.qml"_s));
        m_root.reset(qobject_cast<QQuickItem *>(component.create()));
        EXPECT_TRUE(m_root) << qPrintable(component.errorString());
    }

    void show(const std::vector<Check> &checks)
    {
        m_root->setProperty("series", QVariant::fromValue(responseSeries(checks)));
        m_root->setProperty("timeline", QVariant::fromValue(uptimeTimeline(checks, sampleNow())));
    }

    /// What the software renderer draws.
    QImage grab()
    {
        m_root->setParentItem(m_view.contentItem());
        m_view.resize(m_root->size().toSize());
        m_view.show();
        return m_view.grabWindow();
    }

    QAccessibleInterface *accessible(const char *objectName)
    {
        return QAccessible::queryAccessibleInterface(
            m_root->findChild<QObject *>(QLatin1String(objectName)));
    }

    QQuickView m_view;
    std::unique_ptr<QQuickItem> m_root;
};

std::vector<Check> wavyDay(int count, int failEvery)
{
    const Monitor monitor = sampleMonitor();
    std::vector<Check> checks;
    for (int i = count - 1; i >= 0; --i) {
        const Timestamp when = sampleNow() - i * (24 * 60min / count);
        const double wave = 190 + 50 * std::sin(i * 0.35) + 25 * std::sin(i * 1.7);
        checks.push_back(i % failEvery == failEvery - 1 ? downCheck(monitor, when)
                                                        : upCheck(monitor, when, wave));
    }
    return checks;
}

/// Saves the picture in the folder OSTREL_PICTURES, if that is set, so that it can be looked at.
void keep(const QImage &image, const QString &name)
{
    const QString folder = qEnvironmentVariable("OSTREL_PICTURES");
    if (folder.isEmpty())
        return;
    EXPECT_TRUE(image.save(QDir(folder).filePath(name + u".png"_s)));
}

/// How many pixels of @p image are nearly @p color.
int countPixels(const QImage &image, const QColor &color)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            count += std::abs(pixel.red() - color.red()) < 8 &&
                     std::abs(pixel.green() - color.green()) < 8 &&
                     std::abs(pixel.blue() - color.blue()) < 8;
        }
    }
    return count;
}

/// The number of columns in which the chart of @p image has a dark pixel, which only its line has.
int columnsWithLine(const QImage &image)
{
    int count = 0;
    for (int x = 0; x < image.width(); ++x) {
        int darkest = 255;
        for (int y = 0; y < image.height() * 180 / 242; ++y)
            darkest = std::min(darkest, image.pixelColor(x, y).lightness());
        count += darkest < 128 ? 1 : 0;
    }
    return count;
}

/// Five times up and down again.
std::vector<Check> steepDay(int count)
{
    const Monitor monitor = sampleMonitor();
    std::vector<Check> checks;
    for (int i = 0; i < count; ++i) {
        const double wave = std::abs(std::remainder(5.0 * i / (count - 1), 1));
        checks.push_back(upCheck(monitor, sampleNow() - i * (86400s / count), 1800 * wave));
    }
    return checks;
}

/// How many pixels of the chart's line are above each other, in the middle of a slope.
int lineThickness(const QImage &image)
{
    const int x = image.width() * 285 / 602;
    int count = 0;
    for (int y = 0; y < image.height() * 180 / 242; ++y)
        count += image.pixelColor(x, y).lightness() < 128 ? 1 : 0;
    return count;
}

const QColor up = QColor::fromRgbF(0.22F, 0.75F, 0.50F);
const QColor down = QColor::fromRgbF(0.92F, 0.34F, 0.30F);
const QColor disc = QColor::fromRgbF(0.16F, 0.20F, 0.52F);

} // namespace

TEST_F(PaintedViewsTest, LongSeriesIsALineWithoutPoints)
{
    show(wavyDay(96, 24));
    const QImage image = grab();
    keep(image, u"long-%1"_s.arg(image.width()));
    EXPECT_LT(countPixels(image, disc), 20);
    EXPECT_GT(countPixels(image, up), 1000);
    EXPECT_GT(countPixels(image, down), 100);
}

TEST_F(PaintedViewsTest, ShortSeriesHasPoints)
{
    show(wavyDay(24, 6));
    const QImage image = grab();
    keep(image, u"short-%1"_s.arg(image.width()));
    EXPECT_GT(countPixels(image, disc), 20 * 5);
}

TEST_F(PaintedViewsTest, TheAreaUnderTheLineIsTintedDownToTheScalesFoot)
{
    const Monitor monitor = sampleMonitor();
    for (const int count : {2, 41, 1440}) {
        std::vector<Check> checks;
        for (int i = 0; i < count; ++i)
            checks.push_back(upCheck(monitor, sampleNow() - i * 30s, 200));
        show(checks);
        const QImage image = grab();
        const double scale = image.width() / m_root->width();
        const auto strength = [&](double y) {
            // In the middle of the chart, beside the grid lines.
            const QColor pixel = image.pixelColor(qRound(307 * scale), qRound(y * scale));
            return image.pixelColor(0, 0).lightness() - pixel.lightness();
        };
        keep(image, u"area-%1"_s.arg(count));
        EXPECT_EQ(strength(12), 0) << count << ": above the line";
        EXPECT_GT(strength(75), strength(140)) << count << ": fading";
        EXPECT_GT(strength(140), 0) << count << ": near the foot";
    }
}

TEST_F(PaintedViewsTest, LongestSeriesIsPainted)
{
    show(wavyDay(1440, 480));
    const QImage image = grab();
    keep(image, u"longest"_s);
    EXPECT_GT(columnsWithLine(image), image.width() * 9 / 10);
    EXPECT_GT(countPixels(image, up), 1000);
}

TEST_F(PaintedViewsTest, TheLineIsAsThickWhateverTheNumberOfChecks)
{
    show(steepDay(41));
    const int thickness = lineThickness(grab());
    EXPECT_GE(thickness, 4);
    for (const int count : {220, 221, 288, 1000, 2000}) {
        show(steepDay(count));
        const QImage image = grab();
        keep(image, u"steep-%1"_s.arg(count));
        EXPECT_NEAR(lineThickness(image), thickness, 1) << count;
    }
}

TEST_F(PaintedViewsTest, NothingToShowIsOneQuietStrip)
{
    show({});
    const QImage image = grab();
    keep(image, u"empty"_s);
    EXPECT_EQ(countPixels(image, up) + countPixels(image, down) + countPixels(image, disc), 0);
    EXPECT_NE(image.pixelColor(image.width() / 2, image.height() * 213 / 242),
              image.pixelColor(image.width() / 2, image.height() * 90 / 242));
}

TEST_F(PaintedViewsTest, ANewSeriesIsPainted)
{
    show({});
    const QImage before = grab();
    show(wavyDay(24, 6));
    EXPECT_NE(grab(), before);
}

TEST_F(PaintedViewsTest, TheTimesFollowTheUsersClock)
{
    const auto countTo = [&](bool twelve) {
        const ClockStyle clock = {
            .timeZone = QTimeZone("UTC"), .locale = QLocale(u"en_US"_s), .countsToTwelve = twelve};
        m_root->setProperty("clock", QVariant::fromValue(clock));
        return grab();
    };
    show(wavyDay(24, 6));
    const QImage twelve = countTo(true);
    EXPECT_NE(countTo(false), twelve);
    EXPECT_EQ(countTo(true), twelve);
}

TEST_F(PaintedViewsTest, BothAreSpokenAsASentence)
{
    show(wavyDay(24, 24));
    ASSERT_TRUE(accessible("chart"));
    EXPECT_EQ(accessible("chart")->role(), QAccessible::Graphic);
    EXPECT_TRUE(accessible("chart")
                    ->text(QAccessible::Name)
                    .startsWith(u"Response Time: newest 190 ms, lowest "_s));
    ASSERT_TRUE(accessible("strip"));
    EXPECT_EQ(accessible("strip")->role(), QAccessible::Graphic);
    EXPECT_EQ(accessible("strip")->text(QAccessible::Name),
              u"Uptime 95.83%, checks: 24, failed: 1, oldest: 23h ago"_s);
}

TEST_F(PaintedViewsTest, WithoutChecksTheyAreSpokenToo)
{
    EXPECT_EQ(accessible("chart")->text(QAccessible::Name), u"Response Time: waiting for data"_s);
}

} // namespace ostrel::test

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("TZ", "UTC");
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QLocale::setDefault(QLocale(u"en_US"_s));
    testing::InitGoogleTest(&argc, argv);
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}

#include "Monitor.h"
#include "ResponseChartPainter.h"
#include "UptimeStrip.h"
#include "UptimeTimeline.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <functional>
#include <limits>

using namespace Qt::StringLiterals;

// How long it takes to lay out and paint the chart and the strip of the detail page, beside the
// painter filling the same picture with the same number of straight lines.

namespace {

using namespace ostrel;
using namespace std::chrono_literals;

constexpr QSizeF body(602, 180);
constexpr QSizeF wideBody(2400, 180);
constexpr QSizeF row(602, 26);
constexpr int rounds = 60;

Timestamp now()
{
    return *parseTimestamp("2026-11-20T15:42:00Z");
}

/// The best of many rounds, in milliseconds: slower ones were interrupted.
double best(const std::function<void()> &work)
{
    double shortest = std::numeric_limits<double>::infinity();
    for (int i = 0; i < rounds; ++i) {
        const auto begin = std::chrono::steady_clock::now();
        work();
        const Milliseconds time = std::chrono::steady_clock::now() - begin;
        shortest = std::min(shortest, time.count());
    }
    return shortest;
}

std::vector<Check> dayOfChecks(int count)
{
    std::vector<Check> checks;
    for (int i = count - 1; i >= 0; --i) {
        const double wave = 190 + 50 * std::sin(60.0 * i / count) + 25 * std::sin(i * 1.7);
        Check &check = checks.emplace_back();
        check.timestamp = now() - i * (86400s / count);
        check.isUp = true;
        check.responseTime = wave;
    }
    return checks;
}

QImage canvas(QSizeF size, double scale)
{
    QImage image((size * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    return image;
}

double timeChart(const std::vector<Check> &checks, const ChartStyle &style, QSizeF size,
                 double scale)
{
    QImage image = canvas(size, scale);
    return best([&] {
        const auto chart = responseChart(responseSeries(checks), size, labelMetrics(style.font),
                                         {QTimeZone("UTC"), QLocale::c()});
        QPainter painter(&image);
        paintResponseChart(painter, chart, style);
    });
}

double timeLayout(const std::vector<Check> &checks, const ChartStyle &style, QSizeF size)
{
    return best([&] {
        static_cast<void>(responseChart(responseSeries(checks), size, labelMetrics(style.font),
                                        {QTimeZone("UTC"), QLocale::c()}));
    });
}

double timeStrip(const std::vector<Check> &checks, double scale)
{
    QImage image = canvas(row, scale);
    return best([&] {
        QPainter painter(&image);
        paintUptimeStrip(painter, uptimeTimeline(checks, now()).bars, row,
                         {Qt::green, Qt::red, Qt::gray});
    });
}

/// The bare machine: one antialiased line of the same width through the same points.
double timeBareLines(const std::vector<Check> &checks, QSizeF size, double scale)
{
    QPolygonF line;
    for (std::size_t i = 0; i < checks.size(); ++i)
        line.append({size.width() * double(i) / double(checks.size()),
                     size.height() - checks[i].responseTime / 2});
    QImage image = canvas(size, scale);
    return best([&] {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Qt::black, 2.5));
        painter.drawPolyline(line);
    });
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    QFont font(u"Lato"_s);
    font.setPixelSize(9);
    const ChartStyle style = {
        .line = Qt::darkBlue, .grid = Qt::gray, .label = Qt::gray, .font = font};

    std::printf("%-8s %6s %6s %12s %12s %12s %8s\n", "points", "width", "scale", "layout ms",
                "chart ms", "bare ms", "ratio");
    for (const int count : {2, 40, 96, 220, 221, 500, 2000}) {
        for (const QSizeF size : {body, wideBody}) {
            for (const double scale : {1.0, 2.0}) {
                const auto checks = dayOfChecks(count);
                const double chart = timeChart(checks, style, size, scale);
                const double bare = timeBareLines(checks, size, scale);
                std::printf("%-8d %6.0f %6.2f %12.3f %12.3f %12.3f %8.2f\n", count, size.width(),
                            scale, timeLayout(checks, style, size), chart, bare, chart / bare);
            }
        }
    }
    std::printf("\n%-8s %6s %12s\n", "checks", "scale", "strip ms");
    for (const double scale : {1.0, 2.0})
        std::printf("%-8d %6.2f %12.3f\n", 200, scale, timeStrip(dayOfChecks(200), scale));
    return 0;
}

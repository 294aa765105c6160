#include "PaintingEstimate.h"

#include <QPainter>
#include <QPen>

#include <gtest/gtest.h>

#include <cmath>

namespace ostrel {
namespace {

double workOfALine(const QPen &pen)
{
    PaintingEstimate estimate(QSize(128, 128));
    QPainter painter(&estimate);
    painter.setPen(pen);
    painter.drawLine(QPointF(0, 0), QPointF(100, 0));
    return estimate.work();
}

TEST(PaintingEstimateTest, ALineIsItsPointsTimesItsReach)
{
    EXPECT_EQ(workOfALine(Qt::NoPen), 2 * 100);
    EXPECT_TRUE(std::isfinite(workOfALine(QPen(Qt::black))));
    EXPECT_GT(workOfALine(QPen(Qt::black)), 6 * 2 * 100);
}

TEST(PaintingEstimateTest, DashesAreWorkWithoutEnd)
{
    QPen dashed(Qt::black);
    dashed.setDashPattern({0.0001, 0.0001});
    EXPECT_TRUE(std::isinf(workOfALine(dashed)));
}

} // namespace
} // namespace ostrel

#include "LocalClock.h"

#include "Printers.h"
#include "ScopedTimeZone.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

const Timestamp winterNoon = *parseTimestamp("2026-01-10T12:00:00Z");

QString shown(const QDateTime &time)
{
    return time.toString(u"yyyy-MM-dd HH:mm"_s);
}

} // namespace

TEST(LocalClockTest, AZoneShowsItsOwnTimeWhateverTheComputersZoneIs)
{
    const ScopedTimeZone zone("EST5");
    const QTimeZone berlin("Europe/Berlin");
    EXPECT_EQ(shown(onClocksOf(berlin, winterNoon)), u"2026-01-10 13:00"_s);
    EXPECT_EQ(onClocksOf(berlin, QDate(2026, 1, 10), QTime(13, 0)).toMSecsSinceEpoch(),
              winterNoon.time_since_epoch().count());
}

TEST(LocalClockTest, AnInvalidZoneMeansTheComputersClock)
{
    const ScopedTimeZone zone("MEZ-1MESZ");
    ASSERT_FALSE(QTimeZone::systemTimeZone().isValid()) << "nothing is tested";
    EXPECT_EQ(shown(onClocksOf({}, winterNoon)), u"2026-01-10 13:00"_s);
    EXPECT_EQ(onClocksOf({}, QDate(2026, 1, 10), QTime(13, 0)).toMSecsSinceEpoch(),
              winterNoon.time_since_epoch().count());
}

TEST(LocalClockTest, AnUnknownSystemZoneMeansUtc)
{
    const ScopedTimeZone zone("Nowhere/At All");
    EXPECT_EQ(shown(onClocksOf({}, winterNoon)), u"2026-01-10 12:00"_s);
}

} // namespace ostrel::test

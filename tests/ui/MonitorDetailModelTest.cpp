#include "MonitorDetailModel.h"

#include "PresentationSamples.h"
#include "Printers.h"
#include "WaitFor.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

class MonitorDetailModelTest : public testing::Test
{
protected:
    SampleStore sample;
    Monitor shop = sample.add(sampleMonitor());
    QTimeZone timeZone = QTimeZone::utc();
    MonitorDetailModel model{sample.store, [this] { return sample.now; },
                             [this] { return timeZone; }, QLocale(u"en_US"_s)};
    QSignalSpy changes{&model, &MonitorDetailModel::detailChanged};
};

} // namespace

TEST_F(MonitorDetailModelTest, WithoutAMonitorItIsEmpty)
{
    EXPECT_EQ(model.detail(), MonitorDetail());
    model.setMonitorId(QUuid::createUuid());
    EXPECT_EQ(changes.count(), 0);
}

TEST_F(MonitorDetailModelTest, AChosenMonitorIsShownWithItsChecks)
{
    sample.store.addCheck(upCheck(shop, sample.now));
    model.setMonitorId(shop.id);
    EXPECT_EQ(model.detail().name, u"Shop"_s);
    EXPECT_EQ(model.recentChecks()->rowCount(), 1);
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(MonitorDetailModelTest, ANewCheckIsShownAtOnce)
{
    model.setMonitorId(shop.id);
    EXPECT_EQ(model.detail().pillText, u"PENDING"_s);
    sample.store.addCheck(upCheck(shop, sample.now));
    EXPECT_EQ(model.detail().pillText, u"UP"_s);
    EXPECT_EQ(changes.count(), 2);
}

TEST_F(MonitorDetailModelTest, ARunningCheckOnRequestIsShownOnItsMonitorsPage)
{
    QSignalSpy checking(&model, &MonitorDetailModel::isCheckingChanged);
    model.setChecking(shop.id, true);
    EXPECT_FALSE(model.isChecking()) << "no page is shown";
    model.setMonitorId(shop.id);
    EXPECT_TRUE(model.isChecking());
    EXPECT_EQ(checking.count(), 2);
    model.setMonitorId(sample.add(sampleMonitor(u"Other"_s)).id);
    EXPECT_FALSE(model.isChecking());
    model.setMonitorId(shop.id);
    model.setChecking(shop.id, false);
    EXPECT_FALSE(model.isChecking());
}

TEST_F(MonitorDetailModelTest, TheListAndTheChartFollowTheComputersTimeZoneTogether)
{
    sample.store.addCheck(upCheck(shop, *parseTimestamp("2026-11-20T14:42:31Z")));
    model.setMonitorId(shop.id);
    const auto timeText = [this] {
        return model.recentChecks()->index(0).data(RecentChecksModel::timeTextRole).toString();
    };
    EXPECT_EQ(timeText(), u"2:42 PM"_s);
    QSignalSpy clocks(&model, &MonitorDetailModel::clockChanged);
    timeZone = QTimeZone("Europe/Berlin");
    model.refresh();
    EXPECT_EQ(timeText(), u"3:42 PM"_s);
    EXPECT_EQ(model.clock().timeZone, timeZone);
    EXPECT_EQ(clocks.count(), 1);
    model.refresh();
    EXPECT_EQ(clocks.count(), 1);
}

TEST_F(MonitorDetailModelTest, TheListAndTheChartFollowTheDesktopsClockFormatTogether)
{
    sample.store.addCheck(upCheck(shop, *parseTimestamp("2026-11-20T14:42:31Z")));
    model.setMonitorId(shop.id);
    QSignalSpy rows(model.recentChecks(), &RecentChecksModel::dataChanged);
    model.setCountsToTwelve(false);
    EXPECT_EQ(model.recentChecks()->index(0).data(RecentChecksModel::timeTextRole), u"14:42"_s);
    EXPECT_EQ(model.clock().countsToTwelve, std::optional(false));
    EXPECT_EQ(rows.count(), 1);
    model.setCountsToTwelve({});
    EXPECT_EQ(model.recentChecks()->index(0).data(RecentChecksModel::timeTextRole), u"2:42 PM"_s);
}

TEST_F(MonitorDetailModelTest, AnotherMonitorsCheckChangesNothing)
{
    const Monitor other = sample.add(sampleMonitor(u"Other"_s));
    sample.store.addCheck(upCheck(shop, sample.now));
    model.setMonitorId(shop.id);
    changes.clear();
    // So that an update of the page would show.
    sample.now += std::chrono::minutes(2);
    sample.store.addCheck(upCheck(other, sample.now));
    EXPECT_EQ(changes.count(), 0);
}

TEST_F(MonitorDetailModelTest, AnEditedMonitorIsShownAtOnceAndADeletedOneDisappears)
{
    model.setMonitorId(shop.id);
    shop.name = u"Bakery"_s;
    sample.store.updateMonitor(shop);
    EXPECT_EQ(model.detail().name, u"Bakery"_s);
    sample.store.deleteMonitor(shop.id);
    EXPECT_EQ(model.detail(), MonitorDetail());
}

TEST_F(MonitorDetailModelTest, TimeIsFollowedOnlyWhileThePageIsShown)
{
    sample.store.addCheck(upCheck(shop, sample.now));
    model.setMonitorId(shop.id);
    EXPECT_FALSE(model.isShown());
    sample.now += 2min;
    EXPECT_EQ(model.detail().lastCheckedText, u"Last checked now"_s);

    model.setShown(true);
    EXPECT_EQ(model.detail().lastCheckedText, u"Last checked 2 minutes ago"_s);
    sample.now += 1min;
    EXPECT_TRUE(
        waitFor([&] { return model.detail().lastCheckedText == u"Last checked 3 minutes ago"_s; }));

    model.setShown(false);
    EXPECT_FALSE(model.isShown());
}

} // namespace ostrel::test

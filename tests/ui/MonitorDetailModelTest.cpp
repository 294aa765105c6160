#include "MonitorDetailModel.h"

#include "PresentationSamples.h"
#include "Printers.h"
#include "WaitFor.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

class MonitorDetailModelTest : public testing::Test
{
protected:
    SampleStore sample;
    Monitor shop = sample.add(sampleMonitor());
    MonitorDetailModel model{sample.store, [this] { return sample.now; }, QTimeZone::utc(),
                             QLocale(QStringLiteral("en_US"))};
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
    EXPECT_EQ(model.detail().name, QStringLiteral("Shop"));
    EXPECT_EQ(model.recentChecks()->rowCount(), 1);
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(MonitorDetailModelTest, ANewCheckIsShownAtOnce)
{
    model.setMonitorId(shop.id);
    EXPECT_EQ(model.detail().pillText, QStringLiteral("PENDING"));
    sample.store.addCheck(upCheck(shop, sample.now));
    EXPECT_EQ(model.detail().pillText, QStringLiteral("UP"));
    EXPECT_EQ(changes.count(), 2);
}

TEST_F(MonitorDetailModelTest, AnotherMonitorsCheckChangesNothing)
{
    const Monitor other = sample.add(sampleMonitor(QStringLiteral("Other")));
    sample.store.addCheck(upCheck(shop, sample.now));
    model.setMonitorId(shop.id);
    changes.clear();
    // So that making the page anew would show.
    sample.now += std::chrono::minutes(2);
    sample.store.addCheck(upCheck(other, sample.now));
    EXPECT_EQ(changes.count(), 0);
}

TEST_F(MonitorDetailModelTest, AnEditedMonitorIsShownAtOnceAndADeletedOneIsGone)
{
    model.setMonitorId(shop.id);
    shop.name = QStringLiteral("Bakery");
    sample.store.updateMonitor(shop);
    EXPECT_EQ(model.detail().name, QStringLiteral("Bakery"));
    sample.store.deleteMonitor(shop.id);
    EXPECT_EQ(model.detail(), MonitorDetail());
}

TEST_F(MonitorDetailModelTest, TimeIsFollowedOnlyWhileThePageIsShown)
{
    sample.store.addCheck(upCheck(shop, sample.now));
    model.setMonitorId(shop.id);
    EXPECT_FALSE(model.isShown());
    sample.now += 2min;
    EXPECT_EQ(model.detail().lastCheckedText, QStringLiteral("Last checked now"));

    model.setShown(true);
    EXPECT_EQ(model.detail().lastCheckedText, QStringLiteral("Last checked 2 minutes ago"));
    sample.now += 1min;
    EXPECT_TRUE(waitFor([&] {
        return model.detail().lastCheckedText == QStringLiteral("Last checked 3 minutes ago");
    }));

    model.setShown(false);
    EXPECT_FALSE(model.isShown());
}

} // namespace ostrel::test

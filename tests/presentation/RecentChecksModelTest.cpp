#include "RecentChecksModel.h"

#include "PresentationSamples.h"
#include "Printers.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

class RecentChecksModelTest : public testing::Test
{
protected:
    ~RecentChecksModelTest() override { EXPECT_TRUE(m_reset.isEmpty()); }

    /// Adds a monitor with @p count checks whose response times are 100, 101, …
    Monitor addWithChecks(int count)
    {
        const Monitor monitor = sampleMonitor();
        return m_sample.add(monitor, upChecks(monitor, count, sampleNow()));
    }
    QString text(int row, int role = RecentChecksModel::resultTextRole) const
    {
        return m_model.index(row).data(role).toString();
    }

    SampleStore m_sample;
    RecentChecksModel m_model{m_sample.store, {QTimeZone("UTC"), QLocale(u"en_US"_s)}};
    QAbstractItemModelTester m_tester{&m_model,
                                      QAbstractItemModelTester::FailureReportingMode::Fatal};
    QSignalSpy m_inserted{&m_model, &QAbstractItemModel::rowsInserted};
    QSignalSpy m_removed{&m_model, &QAbstractItemModel::rowsRemoved};
    QSignalSpy m_moved{&m_model, &QAbstractItemModel::rowsMoved};
    QSignalSpy m_changed{&m_model, &QAbstractItemModel::dataChanged};
    QSignalSpy m_reset{&m_model, &QAbstractItemModel::modelReset};
};

} // namespace

TEST_F(RecentChecksModelTest, IsEmptyWithoutAMonitorAndWithoutChecks)
{
    EXPECT_EQ(m_model.rowCount(), 0);
    m_model.setMonitorId(addWithChecks(0).id);
    EXPECT_EQ(m_model.rowCount(), 0);
}

TEST_F(RecentChecksModelTest, Of25ChecksShowsTheNewest20NewestFirst)
{
    m_model.setMonitorId(addWithChecks(25).id);
    ASSERT_EQ(m_model.rowCount(), 20);
    EXPECT_EQ(text(0), u"124 ms"_s);
    EXPECT_EQ(text(19), u"105 ms"_s);
}

TEST_F(RecentChecksModelTest, NewCheckOfAFullListTakesTheLastRowToTheTop)
{
    const Monitor monitor = addWithChecks(25);
    m_model.setMonitorId(monitor.id);
    m_inserted.clear();
    QString firstWhenChanged;
    QObject::connect(&m_model, &QAbstractItemModel::dataChanged, &m_model,
                     [&] { firstWhenChanged = text(0); });
    m_sample.store.addCheck(upCheck(monitor, sampleNow() + 1min, 999));
    ASSERT_EQ(m_moved.size(), 1);
    EXPECT_EQ(m_moved[0][1].toInt(), 19);
    EXPECT_EQ(m_moved[0][2].toInt(), 19);
    EXPECT_EQ(m_moved[0][4].toInt(), 0);
    ASSERT_EQ(m_changed.size(), 1);
    EXPECT_EQ(m_changed[0][0].toModelIndex().row(), 0);
    EXPECT_EQ(m_changed[0][1].toModelIndex().row(), 0);
    EXPECT_TRUE(m_inserted.isEmpty());
    EXPECT_TRUE(m_removed.isEmpty());
    EXPECT_EQ(firstWhenChanged, u"999 ms"_s);
    EXPECT_EQ(text(0), u"999 ms"_s);
    EXPECT_EQ(text(1), u"124 ms"_s);
    EXPECT_EQ(text(19), u"106 ms"_s);
}

TEST_F(RecentChecksModelTest, ShortListOnlyGrows)
{
    const Monitor monitor = addWithChecks(3);
    m_model.setMonitorId(monitor.id);
    m_inserted.clear();
    m_sample.store.addCheck(upCheck(monitor, sampleNow() + 1min, 999));
    EXPECT_EQ(m_model.rowCount(), 4);
    ASSERT_EQ(m_inserted.size(), 1);
    EXPECT_EQ(m_inserted[0][1].toInt(), 0);
    EXPECT_EQ(m_inserted[0][2].toInt(), 0);
    EXPECT_TRUE(m_removed.isEmpty());
    EXPECT_TRUE(m_moved.isEmpty());
    EXPECT_EQ(text(0), u"999 ms"_s);
}

TEST_F(RecentChecksModelTest, AnotherFullListReplacesTheRows)
{
    m_model.setMonitorId(addWithChecks(20).id);
    m_model.setMonitorId(addWithChecks(25).id);
    ASSERT_EQ(m_model.rowCount(), 20);
    EXPECT_EQ(text(0), u"124 ms"_s);
    EXPECT_EQ(text(19), u"105 ms"_s);
}

TEST_F(RecentChecksModelTest, ChecksOfOtherMonitorsChangeNothing)
{
    m_model.setMonitorId(addWithChecks(3).id);
    m_inserted.clear();
    addWithChecks(2);
    EXPECT_TRUE(m_inserted.isEmpty());
}

TEST_F(RecentChecksModelTest, AnotherMonitorReplacesTheRows)
{
    m_model.setMonitorId(addWithChecks(5).id);
    m_model.setMonitorId(addWithChecks(2).id);
    EXPECT_EQ(m_model.rowCount(), 2);
}

TEST_F(RecentChecksModelTest, OnlyAnotherClockRewritesTheTimes)
{
    const ClockStyle clock = {QTimeZone("UTC"), QLocale(u"en_US"_s)};
    m_model.setMonitorId(addWithChecks(3).id);
    m_changed.clear();
    m_model.setClock(clock);
    EXPECT_TRUE(m_changed.isEmpty());
    m_model.setClock({QTimeZone("Asia/Tokyo"), clock.locale});
    EXPECT_EQ(m_changed.size(), 1);
}

TEST_F(RecentChecksModelTest, DeletedMonitorLeavesNoRows)
{
    const Monitor monitor = addWithChecks(5);
    m_model.setMonitorId(monitor.id);
    m_sample.store.deleteMonitor(monitor.id);
    EXPECT_EQ(m_model.rowCount(), 0);
}

TEST_F(RecentChecksModelTest, RowShowsTimeCodeAndResult)
{
    m_model.setMonitorId(addWithChecks(1).id);
    EXPECT_TRUE(m_model.index(0).data(RecentChecksModel::isUpRole).toBool());
    EXPECT_EQ(m_model.index(0).data(RecentChecksModel::toneRole).value<Tone>(), Tone::Up);
    EXPECT_EQ(text(0, RecentChecksModel::timeTextRole), u"3:42 PM"_s);
    EXPECT_EQ(text(0, RecentChecksModel::codeTextRole), u"200"_s);
    EXPECT_EQ(text(0, RecentChecksModel::spokenTextRole), u"3:42 PM, up, 200, 100 ms"_s);
}

TEST_F(RecentChecksModelTest, DownRowShowsItsErrorOrFailed)
{
    const Monitor monitor = sampleMonitor();
    m_sample.add(monitor, {downCheck(monitor, sampleNow() - 1min),
                           downCheck(monitor, sampleNow(), u"HTTP 503"_s)});
    m_model.setMonitorId(monitor.id);
    EXPECT_EQ(text(0), u"HTTP 503"_s);
    EXPECT_EQ(text(1), u"Failed"_s);
    EXPECT_EQ(text(1, RecentChecksModel::codeTextRole), QString());
    EXPECT_EQ(m_model.index(0).data(RecentChecksModel::toneRole).value<Tone>(), Tone::Down);
}

} // namespace ostrel::test

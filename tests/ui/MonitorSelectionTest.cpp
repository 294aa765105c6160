#include "MonitorSelection.h"

#include "PresentationSamples.h"
#include "Printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

class MonitorSelectionTest : public testing::Test
{
protected:
    MonitorSelectionTest() { selection.setMonitors(&model); }

    SampleStore samples;
    Monitor first = samples.add(sampleMonitor(u"First"_s));
    Monitor second = samples.add(sampleMonitor(u"Second"_s));
    MonitorListModel model{samples.store};
    MonitorSelection selection;
};

} // namespace

TEST_F(MonitorSelectionTest, NothingIsSelectedAtFirst)
{
    EXPECT_TRUE(selection.monitorIdValue().toUuid().isNull());
    EXPECT_FALSE(selection.showsMonitor());
}

TEST_F(MonitorSelectionTest, ACountChangeSelectsTheFirstIfNothingIsSelected)
{
    samples.add(sampleMonitor(u"Third"_s));
    EXPECT_EQ(selection.monitorIdValue().toUuid(), first.id);
}

TEST_F(MonitorSelectionTest, ACountChangeKeepsASelection)
{
    selection.setMonitorId(second.id);
    samples.add(sampleMonitor(u"Third"_s));
    samples.store.deleteMonitor(first.id);
    EXPECT_EQ(selection.monitorIdValue().toUuid(), second.id);
    EXPECT_EQ(selection.row(), 0);
}

TEST_F(MonitorSelectionTest, AnEditSelectsNothing)
{
    Monitor edited = first;
    edited.name = u"Other"_s;
    samples.store.updateMonitor(edited);
    EXPECT_TRUE(selection.monitorIdValue().toUuid().isNull());
}

TEST_F(MonitorSelectionTest, DeletingTheSelectedMonitorSelectsTheFirstRemaining)
{
    selection.setMonitorId(second.id);
    selection.leave(second.id);
    samples.store.deleteMonitor(second.id);
    EXPECT_EQ(selection.monitorIdValue().toUuid(), first.id);
    selection.leave(first.id);
    samples.store.deleteMonitor(first.id);
    EXPECT_FALSE(selection.showsMonitor());
    EXPECT_TRUE(selection.monitorIdValue().toUuid().isNull());
}

TEST_F(MonitorSelectionTest, ADeletedMonitorThatIsStillSelectedIsNotShown)
{
    selection.setMonitorId(second.id);
    samples.store.deleteMonitor(second.id);
    EXPECT_EQ(selection.monitorIdValue().toUuid(), second.id);
    EXPECT_FALSE(selection.showsMonitor());
}

TEST_F(MonitorSelectionTest, RowsBeyondTheEndsSelectTheLastOneAndTheDashboard)
{
    selection.selectRow(7);
    EXPECT_EQ(selection.row(), 1);
    selection.selectRow(-1);
    EXPECT_TRUE(selection.monitorIdValue().toUuid().isNull());
}

} // namespace ostrel::test

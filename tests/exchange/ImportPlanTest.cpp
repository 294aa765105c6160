#include "ImportPlan.h"

#include "ExchangeSamples.h"
#include "ForeignTexts.h"
#include "Printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

ImportedMonitor identified(const Monitor &monitor)
{
    return {.monitor = monitor, .hasIdentity = true};
}

QList<ImportAction> actionsOf(const QList<ImportStep> &steps)
{
    QList<ImportAction> actions;
    for (const ImportStep &step : steps)
        actions += step.action;
    return actions;
}

/// The monitors after @p steps, which must be possible.
QList<Monitor> after(const QList<ImportStep> &steps, QList<Monitor> monitors)
{
    const auto planned = planChanges(monitors, changesOf(steps));
    if (const auto *refusal = std::get_if<Refusal>(&planned)) {
        ADD_FAILURE() << qPrintable(refusal->reason);
        return {};
    }
    for (const PlannedChange &each : std::get<QList<PlannedChange>>(planned)) {
        const auto present = std::ranges::find(monitors, each.monitor.id, &Monitor::id);
        if (present == monitors.end())
            monitors.append(each.monitor);
        else
            *present = each.monitor;
    }
    return monitors;
}

const Monitor site = website(1, u"https://a.example/"_s);

Monitor changedSite()
{
    Monitor changed = site;
    changed.name = u"changed"_s;
    changed.responseTimeThreshold = Milliseconds(5);
    return changed;
}

constexpr ImportPolicy policies[] = {ImportPolicy::refuse, ImportPolicy::replace,
                                     ImportPolicy::copy};

} // namespace

TEST(ImportPlanTest, WhatIsNewIsAddedWithItsHistory)
{
    for (const ImportPolicy policy : policies) {
        ImportedMonitor offered = identified(site);
        offered.checks = {checkAt(site, 1, true)};
        const auto steps = planImport({}, {offered}, policy);
        ASSERT_EQ(actionsOf(steps), QList{ImportAction::add});
        EXPECT_EQ(steps[0].change, MonitorChange::create(site, offered.checks));
    }
}

TEST(ImportPlanTest, WhatIsThereWithTheSameSettingsIsSkipped)
{
    Monitor stored = site;
    stored.createdAt += std::chrono::milliseconds(500); // Files hold whole seconds.
    for (const ImportPolicy policy : policies)
        EXPECT_EQ(actionsOf(planImport({stored}, {identified(site)}, policy)),
                  QList{ImportAction::skip});
}

TEST(ImportPlanTest, OtherSettingsAreRefusedUnlessThePolicyIsChosen)
{
    const QList<ImportedMonitor> offered = {identified(changedSite()),
                                            identified(website(2, u"https://b.example/"_s))};
    const auto steps = planImport({site}, offered, ImportPolicy::refuse);
    EXPECT_EQ(actionsOf(steps), (QList{ImportAction::refuse, ImportAction::add}));
    EXPECT_TRUE(changesOf(steps).isEmpty()) << "all or nothing";
}

TEST(ImportPlanTest, ReplacingLeavesNothingOfTheOldSettings)
{
    const auto there = planImport({site}, {identified(changedSite())}, ImportPolicy::replace);
    EXPECT_EQ(actionsOf(there), QList{ImportAction::replace});
    EXPECT_EQ(after(there, {site}), QList{changedSite()});
    // What the file's monitor lacks goes, too.
    const auto back = planImport({changedSite()}, {identified(site)}, ImportPolicy::replace);
    EXPECT_EQ(after(back, {changedSite()}), QList{site});
}

TEST(ImportPlanTest, ACopyStandsBesideWithAnIdOfItsOwn)
{
    ImportedMonitor offered = identified(changedSite());
    offered.checks = {checkAt(site, 1, true)};
    const auto steps = planImport({site}, {offered}, ImportPolicy::copy);
    ASSERT_EQ(actionsOf(steps), QList{ImportAction::add});
    const MonitorChange &change = steps[0].change;
    EXPECT_NE(change.id, site.id);
    EXPECT_EQ(change.monitor.id, change.id);
    EXPECT_EQ(change.monitor.name, u"changed"_s);
    ASSERT_EQ(change.checks.size(), 1U);
    EXPECT_EQ(change.checks[0].monitorId, change.id);
    EXPECT_EQ(after(steps, {site}).size(), 2);
}

TEST(ImportPlanTest, AnAddressThatIsWatchedIsSkipped)
{
    const Monitor port = portMonitor(2, u"db.example"_s, 5432);
    const QList<ImportedMonitor> offered = {{.monitor = website(11, site.url)},
                                            {.monitor = portMonitor(12, u"db.example"_s, 5432)},
                                            {.monitor = portMonitor(13, u"db.example"_s, 5433)}};
    for (const ImportPolicy policy : policies)
        EXPECT_EQ(actionsOf(planImport({site, port}, offered, policy)),
                  (QList{ImportAction::skip, ImportAction::skip, ImportAction::add}));
}

TEST(ImportPlanTest, AFileThatNamesAMonitorTwiceAddsItOnce)
{
    EXPECT_EQ(actionsOf(planImport({}, {identified(site), identified(site)}, ImportPolicy::refuse)),
              (QList{ImportAction::add, ImportAction::skip}));
    EXPECT_EQ(actionsOf(planImport({}, {{.monitor = site}, {.monitor = website(2, site.url)}},
                                   ImportPolicy::refuse)),
              (QList{ImportAction::add, ImportAction::skip}));
    EXPECT_EQ(actionsOf(planImport({}, {identified(site), identified(changedSite())},
                                   ImportPolicy::refuse)),
              (QList{ImportAction::add, ImportAction::refuse}));
}

TEST(ImportPlanTest, EveryStepIsALine)
{
    Monitor named = website(2, u"https://b.example/"_s);
    named.name = u"B"_s;
    const auto steps = planImport({site, named},
                                  {identified(site), identified(changedSite()),
                                   identified(portMonitor(3, u"db.example"_s, 22))},
                                  ImportPolicy::refuse);
    EXPECT_EQ(describeSteps(steps),
              QByteArray("skip     a.example  https://a.example/  (is there already)\n"
                         "refuse   changed  https://a.example/  (is there already with other "
                         "settings)\n"
                         "add      db.example  db.example:22\n"));
}

TEST(ImportPlanTest, ForeignTextsTakeOneLineEach)
{
    for (const ForeignText &foreign : foreignTexts()) {
        Monitor monitor = website(1, foreign.text);
        monitor.name = foreign.text;
        const QString text = QString::fromUtf8(
            describeSteps(planImport({}, {identified(monitor)}, ImportPolicy::refuse)));
        EXPECT_EQ(text.count(u'\n'), 1) << foreign.name;
        EXPECT_TRUE(isFitForPeople(text.chopped(1))) << foreign.name;
    }
}

} // namespace ostrel::test

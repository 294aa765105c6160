#include "MonitorChange.h"

#include "EngineFakes.h"
#include "Printers.h"
#include "RecordObjects.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

namespace ostrel::test {

namespace {

using Kind = MonitorChange::Kind;

QJsonArray arrayOf(const QByteArray &json)
{
    const auto document = QJsonDocument::fromJson(json);
    EXPECT_TRUE(document.isArray()) << json.constData();
    return document.array();
}

Check checkOf(const Monitor &monitor)
{
    return {.id = QUuid::createUuid(), .monitorId = monitor.id, .timestamp = {}};
}

class PlanTest : public testing::Test
{
protected:
    /// The outcomes of @p changes, or why they are refused.
    [[nodiscard]] QStringList planned(const QList<MonitorChange> &changes) const
    {
        const auto result = planChanges({shop, blog}, changes);
        if (const auto *refusal = std::get_if<Refusal>(&result))
            return {refusal->reason};
        QStringList outcomes;
        for (const PlannedChange &each : std::get<QList<PlannedChange>>(result))
            outcomes += rawValue(each.outcome);
        return outcomes;
    }
    [[nodiscard]] Monitor updated(const QJsonObject &members) const
    {
        const auto result = planChanges({shop}, {MonitorChange::update(shop.id, members)});
        EXPECT_TRUE(std::holds_alternative<QList<PlannedChange>>(result));
        return std::get<QList<PlannedChange>>(result).constFirst().monitor;
    }

    Monitor shop = makeMonitor();
    Monitor blog = makeMonitor(u"Blog"_s);
    Monitor news = makeMonitor(u"News"_s);
    const QString noShop = u"There is no monitor with the id "_s + idText(news.id) + u'.';
};

} // namespace

TEST(MonitorChangeTest, ItsJsonFormIsReadBack)
{
    Monitor shop = makeMonitor();
    shop.createdAt = {}; // Whole seconds, as its stored form has.
    const QList<MonitorChange> changes = {
        MonitorChange::create(shop),
        MonitorChange::create(shop, {checkOf(shop), checkOf(shop)}),
        MonitorChange::update(shop.id, {{u"interval"_s, 60}, {u"keyword"_s, QJsonValue()}}),
        MonitorChange::update(shop.id, {}),
        MonitorChange::of(Kind::remove, shop.id),
        MonitorChange::of(Kind::pause, shop.id),
        MonitorChange::of(Kind::resume, shop.id),
    };
    const auto read = changesFrom(changesArray(changes));
    ASSERT_TRUE(std::holds_alternative<QList<MonitorChange>>(read));
    EXPECT_EQ(std::get<QList<MonitorChange>>(read), changes);
}

TEST(MonitorChangeTest, TheFirstMalformedOneIsNamed)
{
    const char *const malformed[] = {
        "1",
        "null",
        "[]",
        "{}",
        R"({"rename": "0123ABCD-0000-4000-8000-000000000001"})",
        R"({"pause": 1})",
        R"({"pause": "0123ABCD"})",
        R"({"pause": "0123ABCD-0000-4000-8000-000000000001",
            "resume": "0123ABCD-0000-4000-8000-000000000001"})",
        R"({"update": "0123ABCD-0000-4000-8000-000000000001"})",
        R"({"update": {"name": "Shop"}})",
        R"({"create": {"name": "Shop"}})",
        R"({"create": null, "checks": []})",
    };
    for (const char *each : malformed) {
        const QByteArray json =
            QByteArray(R"([{"remove": "0123ABCD-0000-4000-8000-000000000001"}, )") + each + ']';
        EXPECT_EQ(std::get<Refusal>(changesFrom(arrayOf(json))).reason,
                  u"Number 2 of the changes is malformed."_s)
            << each;
    }
}

TEST(MonitorChangeTest, AHistoryMustBeAListOfChecks)
{
    for (const QJsonValue &checks :
         {QJsonValue(1), QJsonValue(), QJsonValue(QJsonArray{1}), QJsonValue(QJsonObject{})}) {
        const QJsonObject object{{u"create"_s, monitorObject(makeMonitor())},
                                 {u"checks"_s, checks}};
        EXPECT_TRUE(std::holds_alternative<Refusal>(changesFrom({object})));
    }
}

TEST_F(PlanTest, EveryChangeHasAnOutcome)
{
    shop.isEnabled = false;
    EXPECT_EQ(
        planned({MonitorChange::create(news), MonitorChange::create(shop),
                 MonitorChange::update(blog.id, {{u"interval"_s, 7}}),
                 MonitorChange::update(blog.id, {{u"interval"_s, 7}}),
                 MonitorChange::of(Kind::pause, shop.id), MonitorChange::of(Kind::resume, shop.id),
                 MonitorChange::of(Kind::resume, shop.id), MonitorChange::of(Kind::remove, shop.id),
                 MonitorChange::of(Kind::remove, shop.id)}),
        (QStringList{u"done"_s, u"unchanged"_s, u"done"_s, u"unchanged"_s, u"unchanged"_s,
                     u"done"_s, u"unchanged"_s, u"done"_s, u"unchanged"_s}));
}

TEST_F(PlanTest, AChangeSeesThoseBeforeIt)
{
    EXPECT_EQ(planned({MonitorChange::create(news), MonitorChange::of(Kind::pause, news.id)}),
              (QStringList{u"done"_s, u"done"_s}));
    news.id = shop.id;
    EXPECT_EQ(planned({MonitorChange::of(Kind::remove, shop.id), MonitorChange::create(news)}),
              (QStringList{u"done"_s, u"done"_s}));
}

TEST_F(PlanTest, WhatCantBeMadeIsRefusedWithAllTheOthers)
{
    const auto fine = MonitorChange::of(Kind::remove, blog.id);
    for (const MonitorChange &unknown :
         {MonitorChange::update(news.id, {}), MonitorChange::of(Kind::pause, news.id),
          MonitorChange::of(Kind::resume, news.id)})
        EXPECT_EQ(planned({fine, unknown}), QStringList{noShop});

    Monitor other = shop;
    other.interval = Seconds(1);
    EXPECT_EQ(planned({fine, MonitorChange::create(other)}),
              QStringList{u"There is another monitor with the id "_s + idText(shop.id) + u'.'});
    for (const QJsonObject &members :
         {QJsonObject{{u"interval"_s, u"soon"_s}}, QJsonObject{{u"url"_s, QJsonValue()}}})
        EXPECT_EQ(planned({fine, MonitorChange::update(shop.id, members)}),
                  QStringList{u"A value doesn't suit the monitor with the id "_s + idText(shop.id) +
                              u'.'});
}

TEST_F(PlanTest, AnUpdateChangesItsMembersAlone)
{
    shop.keyword = u"OK"_s;
    shop.createdAt += std::chrono::milliseconds(250);
    Monitor expected = shop;
    EXPECT_EQ(updated({}), expected);
    expected.interval = Seconds(7);
    expected.keyword.reset();
    EXPECT_EQ(updated({{u"interval"_s, 7}, {u"keyword"_s, QJsonValue()}}), expected);
}

TEST_F(PlanTest, AnUpdateCantChangeTheId)
{
    EXPECT_EQ(updated({{u"id"_s, idText(blog.id)}}).id, shop.id);
}

} // namespace ostrel::test

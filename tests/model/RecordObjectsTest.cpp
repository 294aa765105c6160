#include "RecordObjects.h"

#include "Printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

Monitor shop()
{
    return {.id = QUuid(u"{0123abcd-0000-4000-8000-000000000001}"_s),
            .name = u"Sh\u00f6p"_s,
            .url = u"https://shop.example"_s,
            .keyword = u"OK"_s};
}

Check checkOf(const Monitor &monitor)
{
    Check check{.id = QUuid::createUuid(), .monitorId = monitor.id, .timestamp = {}};
    check.isUp = true;
    check.responseTime = 12.5;
    check.statusCode = 200;
    return check;
}

} // namespace

TEST(RecordObjectsTest, AMonitorIsReadBack)
{
    const QJsonObject object = monitorObject(shop());
    EXPECT_EQ(object.value(u"id"_s), u"0123ABCD-0000-4000-8000-000000000001"_s);
    EXPECT_EQ(object.value(u"keyword"_s), u"OK"_s);
    EXPECT_FALSE(object.contains(u"port"_s));
    EXPECT_EQ(monitorFrom(object), shop());
}

TEST(RecordObjectsTest, WhatIsNoMonitorIsRefused)
{
    EXPECT_EQ(monitorFrom({}), std::nullopt);
    QJsonObject object = monitorObject(shop());
    object.insert(u"interval"_s, u"60"_s);
    EXPECT_EQ(monitorFrom(object), std::nullopt);
}

TEST(RecordObjectsTest, ChecksAreReadBackAsThoseOfTheMonitor)
{
    const std::vector<Check> checks = {checkOf(shop()), checkOf(shop())};
    EXPECT_EQ(checksFrom(checkArray(checks), shop().id), checks);
    const QUuid other = QUuid::createUuid();
    const auto moved = checksFrom(checkArray(checks), other);
    ASSERT_TRUE(moved);
    EXPECT_EQ(moved->front().monitorId, other);
}

TEST(RecordObjectsTest, WhatIsNoCheckIsRefused)
{
    EXPECT_EQ(checksFrom({1}, shop().id), std::nullopt);
    EXPECT_EQ(checksFrom({QJsonObject{}}, shop().id), std::nullopt);
    EXPECT_EQ(checksFrom({}, shop().id), std::vector<Check>());
}

TEST(RecordObjectsTest, AnIdIsInItsCanonicalForm)
{
    EXPECT_EQ(idFrom(idText(shop().id)), shop().id);
    EXPECT_EQ(idFrom(u"0123abcd-0000-4000-8000-000000000001"_s), shop().id);
    for (const QJsonValue &value : {QJsonValue(), QJsonValue(1), QJsonValue(u"0123abcd"_s)})
        EXPECT_EQ(idFrom(value), std::nullopt);
}

} // namespace ostrel::test

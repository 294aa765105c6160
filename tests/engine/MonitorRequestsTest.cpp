#include "MonitorRequests.h"

#include "MonitorCommands.h"
#include "Printers.h"
#include "RecordObjects.h"
#include "ScriptedEngine.h"
#include "WaitFor.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace ostrel::test {

namespace {

class MonitorRequestsTest : public testing::Test, protected FolderStore, protected ScriptedEngine
{
protected:
    MonitorRequestsTest()
        : ScriptedEngine(store)
    {
        shop.isEnabled = false;
        store.addMonitor(shop);
    }

    void ask(const QByteArray &request)
    {
        requests.answer(request, [this](const QByteArray &answer) { answers += answer; });
    }
    [[nodiscard]] QByteArray answerTo(const QByteArray &request)
    {
        ask(request);
        return answers.isEmpty() ? QByteArray() : answers.takeLast();
    }
    [[nodiscard]] QJsonArray arrayIn(const QByteArray &answer) const
    {
        return std::get<QJsonValue>(valueIn(answer)).toArray();
    }

    QList<QByteArray> answers;
    Monitor shop = makeMonitor();
    MonitorCommands commands{store, engine};
    MonitorRequests requests{store, commands};
};

} // namespace

TEST_F(MonitorRequestsTest, TellsTheMonitors)
{
    const QJsonArray monitors = arrayIn(answerTo(monitorsRequest()));
    EXPECT_EQ(monitors, QJsonArray{monitorObject(shop)});
}

TEST_F(MonitorRequestsTest, MakesChanges)
{
    Monitor news = makeMonitor(u"News"_s);
    news.createdAt = {}; // Whole seconds, as its stored form has.
    EXPECT_EQ(answerTo(changeRequest({MonitorChange::create(news),
                                      MonitorChange::of(MonitorChange::Kind::pause, shop.id)})),
              R"(ok {"outcomes":["done","unchanged"]})");
    EXPECT_EQ(store.monitors(), (QList<Monitor>{shop, news}));
    EXPECT_TRUE(engine.tasks().contains(news.id));
}

TEST_F(MonitorRequestsTest, SaysIfAChangeCouldNotBeSaved)
{
    ASSERT_TRUE(QDir(store.storageDir()).removeRecursively());
    QFile inTheWay(store.storageDir());
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    const auto value =
        valueIn(answerTo(changeRequest({MonitorChange::of(MonitorChange::Kind::remove, shop.id)})));
    EXPECT_EQ(std::get<QJsonValue>(value).toObject().value(u"unsaved"_s), store.saveFailure());
    EXPECT_FALSE(store.saveFailure().isEmpty());
    EXPECT_TRUE(store.monitors().isEmpty());
}

TEST_F(MonitorRequestsTest, RefusedChangesChangeNothing)
{
    EXPECT_EQ(answerTo(changeRequest({MonitorChange::of(MonitorChange::Kind::remove, shop.id),
                                      MonitorChange::of(MonitorChange::Kind::pause, QUuid())})),
              "refused There is no monitor with the id 00000000-0000-0000-0000-000000000000.");
    EXPECT_EQ(store.monitors(), QList<Monitor>{shop});
}

TEST_F(MonitorRequestsTest, AnswersOnceAllChecksHaveEnded)
{
    Monitor news = makeMonitor(u"News"_s);
    news.isEnabled = false;
    store.addMonitor(news);
    httpCheck.hold();
    ask(checkNowRequest({shop.id, news.id}));
    httpCheck.finishNext(true);
    ASSERT_TRUE(waitFor([&] { return store.checks(shop.id).size() == 1; }));
    EXPECT_TRUE(answers.isEmpty());
    httpCheck.finishNext(false);
    ASSERT_TRUE(waitFor([&] { return !answers.isEmpty(); }));
    EXPECT_EQ(arrayIn(answers.constFirst()),
              (QJsonArray{checkObject(store.checks(shop.id).back()),
                          checkObject(store.checks(news.id).back())}));
}

TEST_F(MonitorRequestsTest, ACheckThatIsDroppedHasNoResult)
{
    store.addCheck({.id = QUuid::createUuid(), .monitorId = shop.id, .timestamp = {}});
    httpCheck.hold();
    ask(checkNowRequest({shop.id}));
    Q_EMIT wakeSignal.didWake();
    httpCheck.finishNext(true);
    ASSERT_TRUE(waitFor([&] { return !answers.isEmpty(); }));
    EXPECT_EQ(answers.constFirst(), "ok [null]");
}

TEST_F(MonitorRequestsTest, WaitsForACheckThatRunsAlready)
{
    httpCheck.hold();
    commands.checkNow(shop.id);
    ask(checkNowRequest({shop.id}));
    EXPECT_EQ(httpCheck.runs.size(), 1u);
    httpCheck.finishNext(true);
    ASSERT_TRUE(waitFor([&] { return !answers.isEmpty(); }));
    EXPECT_EQ(arrayIn(answers.constFirst()).size(), 1);
}

TEST_F(MonitorRequestsTest, NoChecksAreAnsweredAtOnce)
{
    EXPECT_EQ(answerTo(checkNowRequest({})), "ok []");
}

TEST_F(MonitorRequestsTest, WhatItDoesNotKnowIsRefused)
{
    const struct
    {
        QByteArray request;
        const char *answer;
    } cases[] = {
        {"", "refused The request is malformed."},
        {"{", "refused The request is malformed."},
        {"[]", "refused The request is malformed."},
        {"{}", "refused The request is malformed."},
        {"\xff\xfe", "refused The request is malformed."},
        {QByteArray(100'000, '['), "refused The request is malformed."},
        {R"({"monitors":null,"change":[]})", "refused The request is malformed."},
        {R"({"restart":null})", "refused The request is unknown."},
        {R"({"change":{}})", "refused The request is unknown."},
        {R"({"checkNow":null})", "refused The request is unknown."},
        {R"({"change":[1]})", "refused Number 1 of the changes is malformed."},
        {R"({"checkNow":[1]})", "refused One of the monitors is no longer there."},
    };
    for (const auto &each : cases)
        EXPECT_EQ(answerTo(each.request), each.answer) << each.request.left(80).constData();
    EXPECT_EQ(store.monitors(), QList<Monitor>{shop});
}

TEST(RequestAnswerTest, AnAnswerIsReadOrRefused)
{
    EXPECT_EQ(std::get<QJsonValue>(valueIn("ok [1]")), QJsonValue(QJsonArray{1}));
    EXPECT_EQ(std::get<QJsonValue>(valueIn("ok {}")), QJsonValue(QJsonObject{}));
    EXPECT_EQ(std::get<Refusal>(valueIn("refused It is late.")).reason, u"It is late."_s);
    for (const char *line : {"", "ok", "ok ", "ok 1", "ok [", "yes []"})
        EXPECT_EQ(std::get<Refusal>(valueIn(line)).reason, u"The answer is malformed."_s) << line;
}

} // namespace ostrel::test

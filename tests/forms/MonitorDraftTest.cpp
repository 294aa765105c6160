#include "MonitorDraft.h"

#include "Printers.h"

#include <gtest/gtest.h>

#include <string>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

struct ThresholdCase
{
    const char *name;
    std::optional<double> milliseconds;
    const char16_t *text;
};

class ThresholdTextTest : public testing::TestWithParam<ThresholdCase>
{
};

struct SavedThresholdCase
{
    const char *name;
    const char16_t *text;
    std::optional<double> milliseconds;
};

class SavedThresholdTest : public testing::TestWithParam<SavedThresholdCase>
{
};

struct SavedPortCase
{
    const char *name;
    const char16_t *text;
    std::optional<qint64> port;
};

class SavedPortTest : public testing::TestWithParam<SavedPortCase>
{
};

std::optional<Milliseconds> asThreshold(std::optional<double> milliseconds)
{
    return milliseconds ? std::optional(Milliseconds(*milliseconds)) : std::nullopt;
}

Monitor portMonitor()
{
    return {.id = QUuid::createUuid(),
            .name = u"Orders"_s,
            .url = u"db.local"_s,
            .method = HTTPMethod::HEAD,
            .interval = Seconds(77),
            .timeout = Seconds(2.5),
            .isEnabled = false,
            .notifyOnDown = false,
            .notifyOnRecovery = false,
            .createdAt = Timestamp(std::chrono::seconds(1)),
            .type = MonitorType::port,
            .keyword = u" ready "_s,
            .keywordShouldExist = false,
            .responseTimeThreshold = Milliseconds(200),
            .port = 5432,
            .sslExpiryWarningDays = 30};
}

} // namespace

TEST(MonitorDraftTest, ANewOneHoldsTheInitialValues)
{
    const MonitorDraft draft;
    EXPECT_EQ(draft.url, QString());
    EXPECT_EQ(draft.portText, QString());
    EXPECT_EQ(draft.interval, Seconds(300));
    EXPECT_EQ(draft.method, HTTPMethod::GET);
    EXPECT_EQ(draft.timeout, Seconds(30));
    EXPECT_EQ(draft.monitorType, MonitorType::http);
    EXPECT_EQ(draft.keyword, QString());
    EXPECT_TRUE(draft.keywordShouldExist);
    EXPECT_EQ(draft.thresholdText, QString());
}

TEST(MonitorDraftTest, ShowsTheFieldsOfAMonitor)
{
    const MonitorDraft expected = {.url = u"db.local"_s,
                                   .portText = u"5432"_s,
                                   .interval = Seconds(77),
                                   .method = HTTPMethod::HEAD,
                                   .timeout = Seconds(2.5),
                                   .monitorType = MonitorType::port,
                                   .keyword = u" ready "_s,
                                   .keywordShouldExist = false,
                                   .thresholdText = u"200"_s};
    EXPECT_EQ(draftOf(portMonitor()), expected);
}

TEST(MonitorDraftTest, ShowsAbsentFieldsAsEmpty)
{
    const MonitorDraft draft = draftOf({.id = QUuid::createUuid()});
    EXPECT_EQ(draft.keyword, QString());
    EXPECT_EQ(draft.thresholdText, QString());
    EXPECT_EQ(draft.portText, QString());
}

TEST(MonitorDraftTest, AMonitorThatIsShownAndSavedIsUnchanged)
{
    const Monitor monitor = portMonitor();
    EXPECT_EQ(withDraft(monitor, draftOf(monitor)), monitor);
}

TEST(MonitorDraftTest, SavingReplacesOnlyTheFieldsThatTheFormShows)
{
    const Monitor before = portMonitor();
    Monitor expected = before;
    expected.url = u"https://shop.example"_s;
    expected.interval = Seconds(300);
    expected.method = HTTPMethod::POST;
    expected.timeout = Seconds(30);
    expected.type = MonitorType::http;
    expected.keyword = std::nullopt;
    expected.keywordShouldExist = true;
    expected.responseTimeThreshold = std::nullopt;
    expected.port = std::nullopt;

    EXPECT_EQ(withDraft(before, {.url = u"shop.example"_s, .method = HTTPMethod::POST}), expected);
}

TEST(MonitorDraftTest, AKeywordIsSavedAsTyped)
{
    const MonitorDraft blanks = {.url = u"a.b"_s, .keyword = u" "_s};
    EXPECT_EQ(withDraft({}, blanks).keyword, u" "_s);
}

TEST(MonitorDraftTest, ANewMonitorIsEnabledWithEveryNotificationOn)
{
    const Timestamp now(std::chrono::seconds(1'700'000'000));
    const Monitor made = newMonitor({.url = u"www.example.org"_s}, now);

    const Monitor expected = {.id = made.id,
                              .name = u"example.org"_s,
                              .url = u"https://www.example.org"_s,
                              .method = HTTPMethod::GET,
                              .interval = Seconds(300),
                              .timeout = Seconds(30),
                              .isEnabled = true,
                              .notifyOnDown = true,
                              .notifyOnRecovery = true,
                              .createdAt = now,
                              .type = MonitorType::http,
                              .keyword = std::nullopt,
                              .keywordShouldExist = true,
                              .responseTimeThreshold = std::nullopt,
                              .port = std::nullopt,
                              .sslExpiryWarningDays = 14};
    EXPECT_EQ(made, expected);
}

TEST(MonitorDraftTest, EveryNewMonitorHasARandomIdOfItsOwn)
{
    const MonitorDraft draft = {.url = u"a.b"_s};
    const QUuid id = newMonitor(draft, {}).id;
    EXPECT_EQ(id.version(), QUuid::Random);
    EXPECT_NE(id, newMonitor(draft, {}).id);
}

TEST_P(ThresholdTextTest, ShowsWholeMilliseconds)
{
    Monitor monitor = portMonitor();
    monitor.responseTimeThreshold = asThreshold(GetParam().milliseconds);
    EXPECT_EQ(draftOf(monitor).thresholdText, QString::fromUtf16(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(
    Table, ThresholdTextTest,
    testing::Values(ThresholdCase{"None", {}, u""}, ThresholdCase{"Whole", 500, u"500"},
                    ThresholdCase{"RoundedDown", 450.9, u"450"},
                    ThresholdCase{"NegativeTowardsZero", -450.9, u"-450"},
                    ThresholdCase{"Zero", 0, u"0"}, ThresholdCase{"Fraction", 0.9, u"0"},
                    ThresholdCase{"NegativeFraction", -0.9, u"0"},
                    ThresholdCase{"Large", 1e6, u"1000000"},
                    ThresholdCase{"BeyondIntegers", 1e20, u"100000000000000000000"}),
    [](const auto &test) { return std::string(test.param.name); });

TEST_P(SavedThresholdTest, IsTakenAsANumber)
{
    const MonitorDraft draft = {.url = u"a.b"_s,
                                .thresholdText = QString::fromUtf16(GetParam().text)};
    EXPECT_EQ(withDraft({}, draft).responseTimeThreshold, asThreshold(GetParam().milliseconds));
}

INSTANTIATE_TEST_SUITE_P(Table, SavedThresholdTest,
                         testing::Values(SavedThresholdCase{"Whole", u"500", 500},
                                         SavedThresholdCase{"Fraction", u"450.9", 450.9},
                                         SavedThresholdCase{"Zero", u"0", 0},
                                         SavedThresholdCase{"Negative", u"-5", -5},
                                         SavedThresholdCase{"Empty", u"", {}},
                                         SavedThresholdCase{"Words", u"slow", {}},
                                         SavedThresholdCase{"Infinity", u"inf", {}},
                                         SavedThresholdCase{"Comma", u"450,9", {}}),
                         [](const auto &test) { return std::string(test.param.name); });

TEST_P(SavedPortTest, IsTakenAsAnInteger)
{
    const MonitorDraft draft = {.url = u"db"_s,
                                .portText = QString::fromUtf16(GetParam().text),
                                .monitorType = MonitorType::port};
    EXPECT_EQ(withDraft({}, draft).port, GetParam().port);
}

INSTANTIATE_TEST_SUITE_P(
    Table, SavedPortTest,
    testing::Values(SavedPortCase{"Plain", u"5432", 5432},
                    SavedPortCase{"BeyondAllPorts", u"70000", 70000},
                    SavedPortCase{"Signed", u"+80", 80}, SavedPortCase{"Empty", u"", {}},
                    SavedPortCase{"Blank", u" 80", {}}, SavedPortCase{"Words", u"https", {}},
                    SavedPortCase{"BeyondIntegers", u"99999999999999999999", {}}),
    [](const auto &test) { return std::string(test.param.name); });

} // namespace ostrel::test

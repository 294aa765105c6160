#include "CheckJson.h"

#include "DecodedChecks.h"
#include "Printers.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace ostrel {
namespace {

using namespace std::chrono;

const QUuid id(u"{01234567-89ab-cdef-0123-456789abcdef}"_s);
const QUuid monitorId(u"{fedcba98-7654-3210-fedc-ba9876543210}"_s);

const std::string idJson = R"("01234567-89AB-CDEF-0123-456789ABCDEF")";
const std::string monitorIdJson = R"("FEDCBA98-7654-3210-FEDC-BA9876543210")";
const std::string plainJson =
    R"({"id":)" + idJson + R"(,"monitorId":)" + monitorIdJson +
    R"(,"timestamp":"2026-11-20T19:00:00Z","responseTime":245.123,"isUp":true})";

Check plainCheck()
{
    Check check;
    check.id = id;
    check.monitorId = monitorId;
    check.timestamp = sys_days(2026y / 11 / 20) + 19h;
    check.responseTime = 245.123;
    check.isUp = true;
    return check;
}

Check fullCheck()
{
    Check check = plainCheck();
    check.statusCode = 503;
    check.isUp = false;
    check.error = u"\"\\\u0001\n caf\u00e9 \U0001F426"_s;
    check.sslExpiresAt = Timestamp(sys_days(2027y / 1 / 1));
    check.keywordFound = false;
    return check;
}

std::string encoded(const Check &check)
{
    std::string json;
    appendCheck(json, check);
    return json;
}

std::optional<Check> decoded(const std::string &json)
{
    return test::decodeCheck(QByteArray::fromStdString(json));
}

/// The plain check with @p member added at its end.
std::string with(const std::string &member)
{
    return plainJson.substr(0, plainJson.size() - 1) + "," + member + "}";
}

std::string replaced(std::string text, const std::string &before, const std::string &after)
{
    return text.replace(text.find(before), before.size(), after);
}

class Collector : public CheckMapVisitor
{
public:
    void openHistory(const QUuid &opened) override { ids.push_back(opened); }
    void takeCheck(Check &&check, std::optional<TextRange> compact) override
    {
        checks.push_back(std::move(check));
        compactTexts.push_back(compact);
    }

    std::vector<QUuid> ids;
    std::vector<Check> checks;
    std::vector<std::optional<TextRange>> compactTexts;
};

bool decodeMap(const std::string &json, Collector &collector)
{
    return test::decodeCheckMap(QByteArray::fromStdString(json), collector);
}

bool decodesMap(const std::string &json)
{
    Collector collector;
    return decodeMap(json, collector);
}

/// The part of a map with the one check @p json that is reported as that check's compact text.
std::optional<std::string> compactTextOf(const std::string &json)
{
    Collector collector;
    const std::string map = "[" + monitorIdJson + ",[" + json + "]]";
    EXPECT_TRUE(decodeMap(map, collector)) << json;
    const auto range = collector.compactTexts.at(0);
    return range ? std::optional(map.substr(range->offset, range->length)) : std::nullopt;
}

TEST(CheckJsonTest, EqualErrorTextsAreSharedAndOthersKept)
{
    const std::string timedOut = with(R"("error":"Timed out")");
    const std::string refused = with(R"("error":"Refused")");
    Collector collector;
    ASSERT_TRUE(decodeMap("[" + monitorIdJson + ",[" + timedOut + "," + plainJson + "," + timedOut +
                              "," + refused + "," + timedOut + "]]",
                          collector));

    const std::vector<Check> &checks = collector.checks;
    ASSERT_EQ(checks.size(), 5U);
    EXPECT_EQ(*checks[0].error, u"Timed out"_s);
    EXPECT_FALSE(checks[1].error);
    EXPECT_EQ(&*checks[2].error, &*checks[0].error);
    EXPECT_EQ(*checks[3].error, u"Refused"_s);
    EXPECT_EQ(*checks[4].error, u"Timed out"_s);
}

TEST(CheckJsonTest, PortCheckIsWrittenWithoutAbsentKeys)
{
    EXPECT_EQ(encoded(plainCheck()), plainJson);
}

TEST(CheckJsonTest, EveryFieldIsWrittenCompactly)
{
    EXPECT_EQ(encoded(fullCheck()),
              R"({"id":)" + idJson + R"(,"monitorId":)" + monitorIdJson +
                  R"(,"timestamp":"2026-11-20T19:00:00Z","statusCode":503,"responseTime":245.123,)"
                  R"("isUp":false,"error":"\"\\\u0001\u000a caf)"
                  "\xc3\xa9 \xf0\x9f\x90\xa6"
                  R"(","sslExpiresAt":"2027-01-01T00:00:00Z","keywordFound":false})");
}

TEST(CheckJsonTest, EveryFieldIsReadBack)
{
    EXPECT_EQ(decoded(encoded(fullCheck())), fullCheck());
    EXPECT_EQ(decoded(encoded(plainCheck())), plainCheck());
}

TEST(CheckJsonTest, ResponseTimesAreReadBackExactly)
{
    for (const double time : {0.0, -1.5, 245.0, 0.1, 1e-7, 1e300, 5e-324, 1.7976931348623157e308}) {
        Check check = plainCheck();
        check.responseTime = time;
        EXPECT_EQ(decoded(encoded(check)), check) << time;
    }
}

TEST(CheckJsonTest, ValuesThatJsonCannotHoldAreReplaced)
{
    Check check = plainCheck();
    check.responseTime = std::numeric_limits<double>::quiet_NaN();
    check.error = u"a"_s + QChar(0xdc00) + u"b"_s;
    const auto read = decoded(encoded(check));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->responseTime, 0);
    EXPECT_EQ((*read->error).size(), 3);
}

TEST(CheckJsonTest, ChecksOfOneSecondReadBackWithEqualTimestamps)
{
    Check earlier = plainCheck();
    Check later = plainCheck();
    earlier.timestamp += 1ms;
    later.timestamp += 999ms;
    const auto first = decoded(encoded(earlier));
    const auto second = decoded(encoded(later));
    ASSERT_TRUE(first && second);
    EXPECT_EQ(first->timestamp, second->timestamp);
}

TEST(CheckJsonTest, AMissingErrorIsAbsentAndAMissingIsUpFails)
{
    const auto check = decoded(plainJson);
    ASSERT_TRUE(check);
    EXPECT_FALSE(check->error);
    EXPECT_FALSE(decoded(replaced(plainJson, R"(,"isUp":true)", "")));
}

TEST(CheckJsonTest, AMissingRequiredKeyFails)
{
    for (const char *key : {"id", "monitorId", "timestamp", "responseTime", "isUp"})
        EXPECT_FALSE(decoded(replaced(plainJson, std::string("\"") + key + "\"", "\"later\"")))
            << key;
}

TEST(CheckJsonTest, WrongTypesFail)
{
    for (const char *member :
         {R"("statusCode":"200")", R"("statusCode":200.5)", R"("statusCode":2147483648)",
          R"("statusCode":-2147483648)", R"("error":1)", R"("sslExpiresAt":0)",
          R"("sslExpiresAt":"2027-01-01")", R"("keywordFound":0)", R"("keywordFound":"true")",
          R"("isUp":1)", R"("responseTime":"1")", R"("id":null)",
          R"("id":"{01234567-89AB-CDEF-0123-456789ABCDEF}")", R"("timestamp":{})", R"("error":[])",
          R"("error":"\ud800")", R"("later":tru)"})
        EXPECT_FALSE(decoded(with(member))) << member;
}

TEST(CheckJsonTest, OptionalKeysThatAreNullAreAbsent)
{
    for (const char *key : {"statusCode", "error", "sslExpiresAt", "keywordFound"}) {
        const std::string member = '"' + std::string(key) + R"(":null)";
        EXPECT_EQ(decoded(with(member)), plainCheck()) << key;
        EXPECT_EQ(decoded(with(member + "," + member)), plainCheck()) << key;
        EXPECT_FALSE(decoded(with('"' + std::string(key) + R"(":nul)"))) << key;
    }
    for (const char *key : {"id", "monitorId", "timestamp", "responseTime", "isUp"})
        EXPECT_FALSE(decoded(with('"' + std::string(key) + R"(":null)"))) << key;
    const auto check =
        decoded(with(R"("error":"x","error":null,"statusCode":200,"statusCode":null)"));
    EXPECT_EQ(check, plainCheck()) << "of a key that comes twice the last counts";
}

TEST(CheckMapTest, ANullDoesNotComeBackInTheNextCheckOrInTheFile)
{
    Collector collector;
    Check failed = plainCheck();
    failed.error = u"x"_s;
    const std::string withNull = with(R"("error":null)");
    ASSERT_TRUE(decodeMap("[" + monitorIdJson + ",[" + withNull + "," + with(R"("error":"x")") +
                              "," + withNull + "," + withNull + "]]",
                          collector));
    EXPECT_EQ(collector.checks, (std::vector{plainCheck(), failed, plainCheck(), plainCheck()}));
    EXPECT_EQ(compactTextOf(withNull), std::nullopt);
}

TEST(CheckJsonTest, WholeStatusCodesAreRead)
{
    for (const char *member :
         {R"("statusCode":200)", R"("statusCode":200.0)", R"("statusCode":2e2)"}) {
        const auto check = decoded(with(member));
        ASSERT_TRUE(check) << member;
        EXPECT_EQ(*check->statusCode, 200) << member;
    }
}

TEST(CheckJsonTest, UnknownKeysAndAnyOrderAreRead)
{
    const std::string shuffled =
        R"({"isUp":true, "later":{"id":[null,"]"]},"responseTime":245.123,)"
        R"("timestamp":"2026-11-20T19:00:00Z","monitorId":)" +
        monitorIdJson + ",\"id\" : " + idJson + "}";
    EXPECT_EQ(decoded(shuffled), plainCheck());
}

TEST(CheckJsonTest, AnythingButOneObjectFails)
{
    for (const std::string &text :
         {std::string(), std::string("[]"), std::string("null"), plainJson + "x",
          plainJson + plainJson, plainJson.substr(0, plainJson.size() - 1)})
        EXPECT_FALSE(decoded(text)) << text;
}

TEST(CheckMapTest, AlternatesIdsAndHistories)
{
    Collector collector;
    const std::string opening = "[" + monitorIdJson + ",[";
    ASSERT_TRUE(decodeMap(opening + plainJson + "," + encoded(fullCheck()) + "]," + idJson + ",[]]",
                          collector));
    EXPECT_EQ(collector.ids, (std::vector{monitorId, id}));
    EXPECT_EQ(collector.checks, (std::vector{plainCheck(), fullCheck()}));
    const TextRange first = {opening.size(), plainJson.size()};
    const TextRange second = {opening.size() + plainJson.size() + 1, encoded(fullCheck()).size()};
    EXPECT_EQ(collector.compactTexts, (std::vector<std::optional<TextRange>>{first, second}));
}

TEST(CheckMapTest, EmptyMapIsAnEmptyArray)
{
    EXPECT_TRUE(decodesMap("[]"));
}

TEST(CheckMapTest, AnythingButAMapFails)
{
    const std::string pair = monitorIdJson + ",[" + plainJson + "]";
    for (const std::string &text :
         {std::string(), std::string("{}"), std::string("null"), std::string("[[]]"),
          "[" + monitorIdJson + "]", "[" + pair + "," + idJson + "]", "[" + pair, "[" + pair + "]]",
          "[" + pair + "] x", "[" + pair + ",]", "[" + monitorIdJson + ",{}]",
          "[" + monitorIdJson + ",null]", "[" + monitorIdJson + ",[null]]",
          "[" + monitorIdJson + ",[[]]]", "[" + monitorIdJson + ",[{}]]",
          "[\"x\",[" + plainJson + "]]", "{" + monitorIdJson + ":[" + plainJson + "]}",
          "[" + monitorIdJson + ",[" + plainJson + " " + plainJson + "]]"})
        EXPECT_FALSE(decodesMap(text)) << text;
}

TEST(CheckMapTest, CompactTextIsReportedWithItsPosition)
{
    // As another program might have spelled it, but without a superfluous byte.
    const std::string text = replaced(plainJson, "245.123", "2.45123e2");
    EXPECT_EQ(compactTextOf(text), text);
    EXPECT_EQ(compactTextOf(encoded(fullCheck())), encoded(fullCheck()));
}

TEST(CheckMapTest, OtherTextIsNotReportedAsCompact)
{
    const std::string lowerId = R"("01234567-89ab-cdef-0123-456789abcdef")";
    for (const std::string &text :
         {replaced(plainJson, ":true", ": true"), replaced(plainJson, "true}", "true }"),
          replaced(plainJson, ",\"isUp", ",\n\"isUp"), replaced(plainJson, idJson, lowerId),
          replaced(plainJson, "F-0123-456789ABCDEF", "F-0123-456789ABCDEf"),
          replaced(plainJson, "\"isUp\"", "\"is\\u0055p\""), with(R"("isUp":true)"),
          with(R"("later":1)"), plainJson + " ", replaced(plainJson, "245.123,", "245.123 ,"),
          replaced(plainJson, "01234567", "\\u0030\\u0031234567")})
        EXPECT_EQ(compactTextOf(text), std::nullopt) << text;
}

TEST(CheckMapTest, LargeFileIsRead)
{
    std::string json = "[" + monitorIdJson + ",[" + plainJson;
    for (int i = 1; i < 5000; ++i)
        json += "," + plainJson;
    Collector collector;
    ASSERT_TRUE(decodeMap(json + "]]", collector));
    EXPECT_EQ(collector.checks, std::vector<Check>(5000, plainCheck()));
}

} // namespace
} // namespace ostrel

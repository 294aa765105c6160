#include "MonitorJson.h"

#include "Printers.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;

namespace ostrel {
namespace {

using namespace std::chrono;

const QUuid id(u"{01234567-89ab-cdef-0123-456789abcdef}"_s);

Monitor fullMonitor()
{
    Monitor monitor;
    monitor.id = id;
    monitor.name = u"Caf\u00e9 \"\\\u0001 \U0001F426"_s;
    monitor.url = u"https://a.example/?q=1&r=2"_s;
    monitor.method = HTTPMethod::POST;
    monitor.interval = Seconds(0.25);
    monitor.timeout = Seconds(12.5);
    monitor.isEnabled = false;
    monitor.notifyOnDown = false;
    monitor.notifyOnRecovery = false;
    monitor.createdAt = sys_days(2026y / 11 / 20) + 19h;
    monitor.type = MonitorType::port;
    monitor.keyword = u"Welcome"_s;
    monitor.keywordShouldExist = false;
    monitor.responseTimeThreshold = Milliseconds(1500.5);
    monitor.port = 5432;
    monitor.sslExpiryWarningDays = 30;
    return monitor;
}

/// An object with only the required keys.
QJsonObject plainObject()
{
    return {{u"id"_s, u"01234567-89AB-CDEF-0123-456789ABCDEF"_s},
            {u"name"_s, QString()},
            {u"url"_s, u"https://a.example"_s},
            {u"method"_s, u"GET"_s},
            {u"interval"_s, 60},
            {u"timeout"_s, 30},
            {u"isEnabled"_s, true},
            {u"notifyOnDown"_s, true},
            {u"notifyOnRecovery"_s, true},
            {u"createdAt"_s, u"2026-11-20T19:00:00Z"_s}};
}

std::optional<QList<Monitor>> decoded(const QJsonObject &object)
{
    return decodeMonitors(QJsonDocument(QJsonArray{object}).toJson());
}

/// The plain object with the raw text @p json as the value of @p key.
QByteArray withRaw(const QString &key, const QByteArray &json)
{
    QJsonObject object = plainObject();
    object.remove(key);
    QByteArray text = QJsonDocument(object).toJson(QJsonDocument::Compact);
    text.chop(1);
    return "[" + text + ",\"" + key.toUtf8() + "\":" + json + "}]";
}

TEST(MonitorJsonTest, EveryFieldIsReadBack)
{
    const QList<Monitor> monitors = {fullMonitor(), Monitor{}, fullMonitor()};
    EXPECT_EQ(decodeMonitors(encodeMonitors(monitors)), monitors);
}

TEST(MonitorJsonTest, EmptyListIsReadBack)
{
    EXPECT_EQ(decodeMonitors(encodeMonitors({})), QList<Monitor>());
}

TEST(MonitorJsonTest, IsIndentedWithOneKeyPerLine)
{
    const QByteArray json = encodeMonitors({fullMonitor()});
    EXPECT_EQ(json.count('\n'), 16 + 4);
    EXPECT_TRUE(json.contains("\n        \"id\": \"01234567-89AB-CDEF-0123-456789ABCDEF\",\n"));
}

TEST(MonitorJsonTest, AbsentKeysAreLeftOut)
{
    const auto array = QJsonDocument::fromJson(encodeMonitors({Monitor{}})).array();
    const QJsonObject object = array.at(0).toObject();
    EXPECT_FALSE(object.contains(u"keyword"_s));
    EXPECT_FALSE(object.contains(u"responseTimeThreshold"_s));
    EXPECT_FALSE(object.contains(u"port"_s));
    EXPECT_EQ(object.size(), 13);
}

TEST(MonitorJsonTest, KeysAddedLaterHaveDefaults)
{
    const auto monitors = decoded(plainObject());
    ASSERT_TRUE(monitors);
    const Monitor &monitor = monitors->first();
    EXPECT_EQ(monitor.type, MonitorType::http);
    EXPECT_TRUE(monitor.keywordShouldExist);
    EXPECT_EQ(monitor.sslExpiryWarningDays, 14);
    EXPECT_FALSE(monitor.keyword);
    EXPECT_FALSE(monitor.responseTimeThreshold);
    EXPECT_FALSE(monitor.port);
}

TEST(MonitorJsonTest, AMissingRequiredKeyFails)
{
    for (const QString &key : plainObject().keys()) {
        QJsonObject object = plainObject();
        object.remove(key);
        EXPECT_FALSE(decoded(object)) << key.toStdString();
    }
}

TEST(MonitorJsonTest, UnknownEnumerationTextsFail)
{
    EXPECT_FALSE(decodeMonitors(withRaw(u"method"_s, "\"PUT\"")));
    EXPECT_FALSE(decodeMonitors(withRaw(u"method"_s, "\"get\"")));
    EXPECT_FALSE(decodeMonitors(withRaw(u"type"_s, "\"tcp\"")));
}

TEST(MonitorJsonTest, WrongTypesFail)
{
    const QJsonObject full =
        QJsonDocument::fromJson(encodeMonitors({fullMonitor()})).array().at(0).toObject();
    const QByteArray texts[] = {"null", "[]", "{}", "true", "1", "\"x\""};
    for (const QString &key : full.keys()) {
        const QJsonValue value = full.value(key);
        for (const QByteArray &text : texts) {
            const bool isFreeText = key == u"name"_s || key == u"url"_s || key == u"keyword"_s;
            const bool isOptional = !plainObject().contains(key);
            if ((text == "null" && isOptional) || (text == "true" && value.isBool()) ||
                (text == "1" && value.isDouble()) || (text == "\"x\"" && isFreeText))
                continue;
            EXPECT_FALSE(decodeMonitors(withRaw(key, text)))
                << key.toStdString() << text.toStdString();
        }
    }
}

TEST(MonitorJsonTest, OptionalKeysThatAreNullAreAbsent)
{
    const auto plain = decoded(plainObject());
    ASSERT_TRUE(plain);
    for (const char *key : {"type", "keyword", "keywordShouldExist", "responseTimeThreshold",
                            "port", "sslExpiryWarningDays"}) {
        EXPECT_EQ(decodeMonitors(withRaw(QLatin1StringView(key), "null")), plain) << key;
        EXPECT_FALSE(decodeMonitors(withRaw(QLatin1StringView(key), "nul"))) << key;
    }
    for (const QString &key : plainObject().keys())
        EXPECT_FALSE(decodeMonitors(withRaw(key, "null"))) << key.toStdString();
    EXPECT_EQ(decodeMonitors(withRaw(u"port"_s, R"(80,"port":null)")), plain)
        << "of a key that comes twice the last counts";
}

TEST(MonitorJsonTest, IntegersAreWhole)
{
    const QString key = u"port"_s;
    for (const char *text : {"80", "80.0", "8e1", "800e-1"}) {
        const auto monitors = decodeMonitors(withRaw(key, text));
        ASSERT_TRUE(monitors) << text;
        EXPECT_EQ(monitors->first().port, 80) << text;
    }
    for (const char *text : {"80.5", "9223372036854775808", "-9223372036854775809", "1e19", "1e400",
                             "080", "+80", "0x50", "\"80\""})
        EXPECT_FALSE(decodeMonitors(withRaw(key, text))) << text;
    const auto largest = decodeMonitors(withRaw(key, "9223372036854775807"));
    ASSERT_TRUE(largest);
    EXPECT_EQ(largest->first().port, std::numeric_limits<qint64>::max());
    EXPECT_EQ(decodeMonitors(encodeMonitors(*largest)), largest);
}

TEST(MonitorJsonTest, DatesOfOtherLayoutsFail)
{
    const QString key = u"createdAt"_s;
    for (const char *text : {"\"2026-11-20T19:00:00.5Z\"", "\"2026-11-20T19:00:00+01:00\"",
                             "\"2026-11-20\"", "1795202400"})
        EXPECT_FALSE(decodeMonitors(withRaw(key, text))) << text;
}

TEST(MonitorJsonTest, SubSecondCreationTimeComesBackRoundedDown)
{
    Monitor monitor = fullMonitor();
    monitor.createdAt += 999ms;
    const auto monitors = decodeMonitors(encodeMonitors({monitor}));
    ASSERT_TRUE(monitors);
    EXPECT_EQ(monitors->first().createdAt, fullMonitor().createdAt);
}

TEST(MonitorJsonTest, UnknownKeysOfAnyNestingAreIgnored)
{
    const auto known = decoded(plainObject());
    for (const char *text : {"{\"a\":[1,{\"b\":null}],\"c\":\"}\"}", "[[],[[]]]", "null", "1.5e3",
                             "\"\\u00e9\"", "true"})
        EXPECT_EQ(decodeMonitors(withRaw(u"later"_s, text)), known) << text;
    for (const char *text :
         {"tru", "[1,]", "{\"a\"}", "\"\\x\"", "nul", "[1 2]", "{\"a\":1,}", "01"})
        EXPECT_FALSE(decodeMonitors(withRaw(u"later"_s, text))) << text;
}

TEST(MonitorJsonTest, ExtremeNestingFails)
{
    EXPECT_FALSE(
        decodeMonitors(withRaw(u"later"_s, QByteArray(100000, '[') + QByteArray(100000, ']'))));
}

TEST(MonitorJsonTest, EscapedKeysAreRecognized)
{
    QByteArray json = withRaw(u"name"_s, "\"Shop\"");
    json.replace("\"name\"", "\"n\\u0061me\"");
    const auto monitors = decodeMonitors(json);
    ASSERT_TRUE(monitors);
    EXPECT_EQ(monitors->first().name, u"Shop"_s);
}

TEST(MonitorJsonTest, OfARepeatedKeyTheLastCounts)
{
    QByteArray json = withRaw(u"name"_s, "\"first\",\"name\":\"last\"");
    const auto monitors = decodeMonitors(json);
    ASSERT_TRUE(monitors);
    EXPECT_EQ(monitors->first().name, u"last"_s);
}

TEST(MonitorJsonTest, LowerCaseIdIsRead)
{
    const auto monitors =
        decodeMonitors(withRaw(u"id"_s, "\"01234567-89ab-cdef-0123-456789abcdef\""));
    ASSERT_TRUE(monitors);
    EXPECT_EQ(monitors->first().id, id);
}

TEST(MonitorJsonTest, AnythingButAnArrayOfObjectsFails)
{
    const QByteArray json = encodeMonitors({fullMonitor()});
    for (const QByteArray &text :
         {QByteArray(), QByteArray(" "), QByteArray("{}"), QByteArray("null"), QByteArray("[1]"),
          QByteArray("[[]]"), QByteArray("[null]"), QByteArray("["), QByteArray("[]]"),
          QByteArray("[],[]"), QByteArray("[] x"), QByteArray("[,]"), json + "x", json + json,
          json.chopped(3), QByteArray("\xff")})
        EXPECT_FALSE(decodeMonitors(text)) << text.toStdString();
}

TEST(MonitorJsonTest, OneBadRecordFailsTheFile)
{
    QByteArray json = encodeMonitors({fullMonitor(), fullMonitor()});
    json.replace(json.lastIndexOf("\"POST\""), 6, "\"PUT\"");
    EXPECT_FALSE(decodeMonitors(json));
}

TEST(MonitorJsonTest, InvalidTextFails)
{
    const QString key = u"name"_s;
    for (const char *text :
         {"\"\\ud800\"", "\"\\udc00\"", "\"\\ud800\\u0041\"", "\"\\uD83D\"", "\"\xff\"",
          "\"\xed\xa0\x80\"", "\"\xc0\x80\"", "\"a\nb\"", "\"\\u12\""})
        EXPECT_FALSE(decodeMonitors(withRaw(key, text))) << text;
}

TEST(MonitorJsonTest, TextsKeepEveryCharacter)
{
    for (const QString &text :
         {u"\ufeffmark"_s, QString(QChar(0)), u"\u2028/\u007f"_s, u"\r\n\t"_s}) {
        Monitor monitor = fullMonitor();
        monitor.name = text;
        const auto monitors = decodeMonitors(encodeMonitors({monitor}));
        ASSERT_TRUE(monitors);
        EXPECT_EQ(monitors->first().name, text);
    }
}

TEST(MonitorJsonTest, ValuesThatJsonCannotHoldAreReplaced)
{
    Monitor monitor = fullMonitor();
    monitor.name = u"a"_s + QChar(0xd800) + u"b"_s;
    monitor.interval = Seconds(std::numeric_limits<double>::infinity());
    monitor.timeout = Seconds(std::numeric_limits<double>::quiet_NaN());
    monitor.responseTimeThreshold = Milliseconds(std::numeric_limits<double>::infinity());
    const auto monitors = decodeMonitors(encodeMonitors({monitor}));
    ASSERT_TRUE(monitors);
    EXPECT_EQ(monitors->first().name.size(), 3);
    EXPECT_EQ(monitors->first().interval, Monitor().interval);
    EXPECT_EQ(monitors->first().timeout, Monitor().timeout);
    EXPECT_FALSE(monitors->first().responseTimeThreshold);
}

} // namespace
} // namespace ostrel

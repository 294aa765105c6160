#include "PrometheusText.h"

#include "Printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

TEST(PrometheusTextTest, DurationsAreWholeSecondsOrMilliseconds)
{
    using namespace std::chrono_literals;
    EXPECT_EQ(durationText(30s), QByteArray("30s"));
    EXPECT_EQ(durationText(1500ms), QByteArray("1500ms"));
    EXPECT_EQ(durationText(24h), QByteArray("86400s"));
}

TEST(PrometheusTextTest, YamlEscapesWhatIsNotPrintable)
{
    const struct
    {
        QString text;
        QString yaml;
    } cases[] = {
        {u"plain: # text"_s, u"\"plain: # text\""_s},
        {u"a\"b\\c"_s, u"\"a\\\"b\\\\c\""_s},
        {u"a\nb\tc\x7F"_s, u"\"a\\u000ab\\u0009c\\u007f\""_s},
        {u"\u0085\uFEFF\u2028\uFFFE"_s, u"\"\\u0085\\ufeff\\u2028\\ufffe\""_s},
        {u"\u00FC\U0001F600"_s, u"\"\u00FC\U0001F600\""_s},
        {QString(QChar(0xD800)) + u"a"_s, u"\"\uFFFDa\""_s},
    };
    for (const auto &each : cases)
        EXPECT_EQ(yamlText(each.text), each.yaml.toUtf8());
}

TEST(PrometheusTextTest, APatternMatchesItsTextLiterally)
{
    EXPECT_EQ(literalPattern(u"a.b*c(d)[e]{f}^$|\\+?"_s),
              u"a\\.b\\*c\\(d\\)\\[e\\]\\{f\\}\\^\\$\\|\\\\\\+\\?"_s);
    EXPECT_EQ(literalPattern(u"\u00FC -_/<>\""_s), u"\u00FC -_/<>\""_s);
}

} // namespace ostrel::test

#include "MonitorNames.h"

#include "ForeignTexts.h"
#include "OneLine.h"
#include "Printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

Monitor monitor(const char *idBeginning, const QString &name,
                const QString &url = u"https://shop.example/cart"_s)
{
    const QString id =
        QString::fromLatin1(idBeginning).leftJustified(8, u'0') + u"-1111-4000-8000-000000000001"_s;
    return {.id = QUuid(id), .name = name, .url = url};
}

class MonitorNamesTest : public testing::Test
{
protected:
    /// The beginnings of the ids of what @p names mean, or the complaint.
    [[nodiscard]] QString meant(const QStringList &names) const
    {
        const auto found = monitorsNamed(names, monitors);
        if (const auto *complaint = std::get_if<QString>(&found))
            return *complaint;
        QStringList ids;
        for (const Monitor &each : std::get<QList<Monitor>>(found))
            ids += shortId(each);
        return ids.join(u' ');
    }

    QList<Monitor> monitors = {
        monitor("AAAA1111", u"Shop"_s),    monitor("AAAA2222", u"shop"_s),
        monitor("BBBB0000", u"My blog"_s), monitor("CAFE0000", u"News"_s),
        monitor("DDDD0000", u"cafe"_s),    monitor("EEEE0000", {}),
        monitor("FFFF0000", u"Äpfel"_s),
    };
};

} // namespace

TEST_F(MonitorNamesTest, AMonitorIsNamedByItsIdOrItsName)
{
    const struct
    {
        QString name;
        const char *meant;
    } cases[] = {
        {u"BBBB0000-1111-4000-8000-000000000001"_s, "BBBB0000"},
        {u"bbbb0000-1111-4000-8000-000000000001"_s, "BBBB0000"},
        {u"BBBB"_s, "BBBB0000"},
        {u"bbbb0000"_s, "BBBB0000"},
        {u"bbbb0000-11"_s, "BBBB0000"},
        {u"aaaa2"_s, "AAAA2222"},
        {u"Shop"_s, "AAAA1111"},
        {u"shop"_s, "AAAA2222"},
        {u"My blog"_s, "BBBB0000"},
        {u"MY BLOG"_s, "BBBB0000"},
        {u"shop.example"_s, "EEEE0000"},
        {u"äPFEL"_s, "FFFF0000"},
        {u"a\u0308pfel"_s, "FFFF0000"},
    };
    for (const auto &each : cases)
        EXPECT_EQ(meant({each.name}), QString::fromLatin1(each.meant)) << qPrintable(each.name);
}

TEST_F(MonitorNamesTest, WhatNamesNoneIsTold)
{
    for (const QString &name : {u"Sho"_s, u"BBB"_s, QString(), u" "_s, u"BBBB1"_s})
        EXPECT_EQ(meant({u"News"_s, name}), u"No monitor is called '"_s + name + u"'."_s);
}

TEST_F(MonitorNamesTest, WhatNamesSeveralIsToldWithTheirIds)
{
    EXPECT_EQ(meant({u"News"_s, u"SHOP"_s}),
              u"2 monitors are called 'SHOP'; their ids are AAAA1111, AAAA2222."_s);
    EXPECT_EQ(meant({u"aaaa"_s}),
              u"2 monitors are called 'aaaa'; their ids are AAAA1111, AAAA2222."_s);
    EXPECT_EQ(meant({u"cafe"_s}),
              u"2 monitors are called 'cafe'; their ids are CAFE0000, DDDD0000."_s);
    for (int i = 0; i < 6; ++i)
        monitors += monitor("ABCD0000", u"Many"_s);
    EXPECT_TRUE(meant({u"Many"_s}).endsWith(u", \u2026."_s));
}

TEST_F(MonitorNamesTest, EachIsMeantOnceInTheOrderOfTheNames)
{
    EXPECT_EQ(meant({u"News"_s, u"Shop"_s, u"CAFE0"_s}), u"CAFE0000 AAAA1111"_s);
    EXPECT_EQ(meant({}), QString());
}

TEST_F(MonitorNamesTest, AForeignNameIsMeantAsItIsShown)
{
    for (const ForeignText &foreign : foreignTexts()) {
        monitors = {monitor("AAAA0000", foreign.text)};
        const QString shown = oneLine(monitors.constFirst().displayName());
        EXPECT_EQ(meant({shown}), u"AAAA0000"_s) << foreign.name;
        EXPECT_TRUE(isFitForPeople(meant({u"x"_s + foreign.text}))) << foreign.name;
        EXPECT_TRUE(isFitForPeople(nameAndId(monitors.constFirst()))) << foreign.name;
    }
}

TEST_F(MonitorNamesTest, ATargetIsTheAddressAndThePortOfAPortMonitor)
{
    Monitor each = monitor("AAAA0000", u"Db"_s, u"db.local"_s);
    each.port = 5432;
    EXPECT_EQ(targetText(each), u"db.local"_s);
    each.type = MonitorType::port;
    EXPECT_EQ(targetText(each), u"db.local, port 5432"_s);
}

} // namespace ostrel::test

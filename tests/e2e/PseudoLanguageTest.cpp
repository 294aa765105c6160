#include "ExpectedMonitor.h"
#include "HostileBehaviours.h"
#include "OstrelDesktop.h"
#include "Printers.h"
#include "WaitFor.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

/// The part of @p told that has not gone through a translator.
QString untranslated(QString told)
{
    static const QRegularExpression innermost(u"⟦[^⟦⟧]*⟧"_s);
    while (told.contains(innermost))
        told.remove(innermost);
    return told;
}

/// Names of things, units and the user's own input are the same in every language.
bool isSameInEveryLanguage(const QString &told)
{
    static const QRegularExpression same(QRegularExpression::anchoredPattern(
        u"Ostrel|Shop|GET|HEAD|POST|https?://\\S*|127\\.0\\.0\\.1\\S*|\\S+\\.local|~?/\\S*|"
        "[^a-zA-Z]*|\\d+(\\.\\d+)?s|[\\d.,]+ ?(ms|s)|\\d+:\\d+ [AP]M"_s));
    const QStringList parts = told.split(u", "_s);
    return std::ranges::all_of(
        parts, [](const QString &part) { return same.match(part.trimmed()).hasMatch(); });
}

} // namespace

class PseudoLanguageTest : public testing::Test
{
protected:
    PseudoLanguageTest()
    {
        shop.interval = shop.timeout = Seconds(3600);
        shop.name = u"Shop"_s;
        desktop.program.setArguments({u"--language"_s, u"pseudo"_s});
    }

    void expectAllTranslated(const char *where)
    {
        int translated = 0;
        for (const AccessibleItem &item : desktop.items()) {
            if (item.role == AccessibleRole::application)
                continue;
            translated += item.name.contains(u'⟦') ? 1 : 0;
            for (const QString &told : {item.name, item.description})
                EXPECT_TRUE(isSameInEveryLanguage(untranslated(told)))
                    << where << ": " << item.describe().trimmed().toStdString();
        }
        EXPECT_GT(translated, 3) << where;
    }

    [[nodiscard]] bool waitForName(const char *name)
    {
        return waitFor([&] {
            const auto items = desktop.items();
            return std::ranges::any_of(items, [&](const AccessibleItem &item) {
                return item.name.contains(QString::fromUtf8(name));
            });
        });
    }

    [[nodiscard]] bool press(const char *name)
    {
        const auto items = desktop.items();
        const auto found = std::ranges::find_if(items, [&](const AccessibleItem &item) {
            return item.name.contains(QString::fromUtf8(name));
        });
        return found != items.cend() && found->node.act(u"Press"_s);
    }

    HostileServer server{answerWith("OK")};
    OstrelDesktop desktop;
    Monitor shop = webMonitor(u"Shop"_s, server.url());
};

TEST_F(PseudoLanguageTest, NoTextOfTheWindowIsMissed)
{
    ASSERT_TRUE(desktop.start());
    ASSERT_TRUE(waitForName("⟦Stárt Möñïtörïñg"));
    expectAllTranslated("without monitors");
    EXPECT_EQ(desktop.program.stop(), 0);

    shop.keyword = u"OK"_s;
    desktop.program.writeMonitors({shop});
    ASSERT_TRUE(desktop.start());
    ASSERT_TRUE(waitForName("Øpërátïöñál"));
    expectAllTranslated("dashboard");
    ASSERT_TRUE(desktop.user.press("Down"));
    ASSERT_TRUE(waitForName("⟦Lást çhëçkëd"));
    expectAllTranslated("page");
    ASSERT_TRUE(desktop.user.press("Menu"));
    ASSERT_TRUE(waitForName("⟦Dëlëtë"));
    expectAllTranslated("row menu");
    ASSERT_TRUE(press("⟦Páüsë"));
    ASSERT_TRUE(waitForName("⟦PÁÜSËD"));
    expectAllTranslated("page of a paused monitor");
    ASSERT_TRUE(desktop.user.press("Menu"));
    ASSERT_TRUE(waitForName("⟦Rësümë"));
    expectAllTranslated("row menu of a paused monitor");
    ASSERT_TRUE(desktop.user.press({u"Escape"_s, u"ctrl+e"_s}));
    ASSERT_TRUE(waitForName("⟦Sávë"));
    expectAllTranslated("form of a monitor");
    ASSERT_TRUE(desktop.user.press("Escape"));
    EXPECT_EQ(desktop.program.stop(), 0);
}

TEST_F(PseudoLanguageTest, NoTextOfTheFormAndTheSettingsIsMissed)
{
    ASSERT_TRUE(desktop.start());
    ASSERT_TRUE(desktop.user.press("ctrl+n"));
    ASSERT_TRUE(waitForName("⟦Nëw Möñïtör"));
    expectAllTranslated("form");
    ASSERT_TRUE(press("⟦Ådváñçëd"));
    ASSERT_TRUE(waitForName("⟦Mëthöd"));
    expectAllTranslated("form with all its fields");
    ASSERT_TRUE(press("⟦Pört"));
    ASSERT_TRUE(waitForName("⟦HØST"));
    expectAllTranslated("form of a port");
    ASSERT_TRUE(desktop.user.press("Escape"));
    ASSERT_TRUE(desktop.waitUntilGone(AccessibleRole::dialog, u"⟦Nëw Möñïtör···⟧"_s));
    ASSERT_TRUE(desktop.user.press("ctrl+comma"));
    ASSERT_TRUE(waitForName("⟦Láüñçh"));
    expectAllTranslated("settings");
    EXPECT_EQ(desktop.program.stop(), 0);
}

} // namespace ostrel::test

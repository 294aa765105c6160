#include "CannedDetail.h"
#include "CannedForm.h"
#include "GalleryWindow.h"
#include "Printers.h"
#include "ProductConstants.h"
#include "PseudoTranslator.h"
#include "ThemeColors.h"
#include "WaitFor.h"

#include <QLocale>
#include <QQuickItem>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

/// Searches the visual children, which include delegates and the content of a sheet.
QQuickItem *findIn(QQuickItem *item, const QString &objectName)
{
    if (item->objectName() == objectName)
        return item;
    for (QQuickItem *child : item->childItems()) {
        if (QQuickItem *found = findIn(child, objectName))
            return found;
    }
    return nullptr;
}

/// Every text that is visible in @p item, from top to bottom of the tree.
QStringList textsIn(const QQuickItem &item)
{
    QStringList texts;
    if (item.isVisible() && !item.property("text").toString().isEmpty())
        texts += item.property("text").toString();
    for (const QQuickItem *child : item.childItems())
        texts += textsIn(*child);
    return texts;
}

/// The placeholders of all fields in @p item, shown or not.
QStringList placeholdersIn(const QQuickItem &item)
{
    QStringList placeholders = {item.property("placeholderText").toString()};
    for (const QQuickItem *child : item.childItems())
        placeholders += placeholdersIn(*child);
    placeholders.removeAll(QString());
    return placeholders;
}

/// A shown page of the gallery.
class Page
{
public:
    explicit Page(const QString &name)
        : m_window(name)
    {
        m_window.show();
        m_window.awaitActive();
        m_window.grabWindow();
    }

    [[nodiscard]] QQuickWindow &window() { return m_window; }
    [[nodiscard]] QQuickItem *item(const char *objectName)
    {
        return findIn(m_window.contentItem(), QLatin1String(objectName));
    }
    [[nodiscard]] bool shows(const char *objectName)
    {
        const QQuickItem *found = item(objectName);
        return found && found->isVisible();
    }
    [[nodiscard]] QString text(const char *objectName)
    {
        const QQuickItem *found = item(objectName);
        return found ? found->property("text").toString() : u"missing"_s;
    }
    [[nodiscard]] QStringList texts() { return textsIn(*m_window.contentItem()); }
    [[nodiscard]] QStringList placeholders() { return placeholdersIn(*m_window.contentItem()); }
    [[nodiscard]] MonitorForm *form()
    {
        return m_window.rootObject()->findChild<CannedForm *>()->form();
    }
    void click(const char *objectName)
    {
        const QQuickItem *found = item(objectName);
        ASSERT_TRUE(found) << objectName;
        QTest::mouseClick(&m_window, Qt::LeftButton, {},
                          found->mapToScene(found->boundingRect().center()).toPoint());
    }
    void press(Qt::Key key) { QTest::keyClick(&m_window, key); }

private:
    GalleryWindow m_window;
};

struct PillCase
{
    const char *sample;
    const char *text;
    const char *symbol;
};

class PillTest : public testing::TestWithParam<PillCase>
{
};

} // namespace

TEST_P(PillTest, SaysTheStatusInCapitalsBesideItsSymbol)
{
    Page page(u"DetailPage-"_s + QLatin1String(GetParam().sample));
    EXPECT_EQ(page.text("pillText"), QLatin1String(GetParam().text));
    EXPECT_EQ(page.item("pillSymbol")->property("name"), QLatin1String(GetParam().symbol));
}

INSTANTIATE_TEST_SUITE_P(Statuses, PillTest,
                         testing::Values(PillCase{"up", "UP", "checkmark.circle.fill"},
                                         PillCase{"down", "DOWN", "exclamationmark.triangle.fill"},
                                         PillCase{"paused", "PAUSED", "moon.circle.fill"},
                                         PillCase{"pending", "PENDING", "circle.dotted.circle"}));

TEST(MonitorDetailViewTest, AMonitorWithoutChecksShowsThatThereAreNone)
{
    Page page(u"DetailPage-pending"_s);
    EXPECT_FALSE(page.shows("lastChecked"));
    EXPECT_FALSE(page.shows("badges"));
    EXPECT_FALSE(page.shows("percentage"));
    EXPECT_TRUE(page.shows("collecting"));
    EXPECT_EQ(page.text("age"), u"No data"_s);
    EXPECT_TRUE(page.shows("noChecks"));
    EXPECT_FALSE(page.shows("chart"));
    EXPECT_FALSE(page.shows("waiting"));
    EXPECT_FALSE(page.item("result"));
}

TEST(MonitorDetailViewTest, TheBadgesAreShownOnlyIfThereAreAny)
{
    EXPECT_TRUE(Page(u"DetailPage-up"_s).shows("badges"));
    EXPECT_FALSE(Page(u"DetailPage-paused"_s).shows("badges"));
}

TEST(MonitorDetailViewTest, OnePointWaitsForDataAndShowsItsTime)
{
    Page page(u"DetailPage-chart-1"_s);
    EXPECT_TRUE(page.shows("waiting"));
    EXPECT_FALSE(page.shows("chart"));
    EXPECT_TRUE(page.shows("newest"));
}

TEST(MonitorDetailViewTest, FailedChecksAloneWaitForDataWithoutATime)
{
    Page page(u"DetailPage-chart-0"_s);
    EXPECT_TRUE(page.shows("waiting"));
    EXPECT_FALSE(page.shows("newest"));
}

TEST(MonitorDetailViewTest, TwoPointsAreAChart)
{
    Page page(u"DetailPage-chart-2"_s);
    EXPECT_TRUE(page.shows("chart"));
    EXPECT_FALSE(page.shows("waiting"));
}

TEST(MonitorDetailViewTest, ChecksOlderThanADayLeaveNoChart)
{
    Page page(u"DetailPage-stale"_s);
    EXPECT_TRUE(page.shows("noChecks"));
    EXPECT_FALSE(page.shows("collecting"));
}

TEST(MonitorDetailViewTest, TheStripIsGreenWhereItWasUpAndRedWhereItWasDown)
{
    Page page(u"DetailPage-up"_s);
    const auto colorOf = [&](const char *property) {
        return page.item("strip")->property(property).value<QColor>().rgba();
    };
    EXPECT_EQ(colorOf("upColor"), QColor::fromRgbF(0.22F, 0.75F, 0.50F).rgba());
    EXPECT_EQ(colorOf("downColor"), ThemeColors::statusDown().rgba());
}

TEST(MonitorDetailViewTest, NoRegionMirrorsThePageOrTranslatesItsWords)
{
    Page page(u"DetailPage-up"_s);
    const auto leftOf = [&](const char *name) { return page.item(name)->mapToScene({}).x(); };
    EXPECT_LT(leftOf("name"), leftOf("checkNow"));
    EXPECT_LT(leftOf("checkNow"), leftOf("getHelp"));
    EXPECT_EQ(page.item("name")->property("effectiveHorizontalAlignment").toInt(), Qt::AlignLeft);
    EXPECT_TRUE(page.text("lastChecked").startsWith(u"Last checked "_s));
    EXPECT_TRUE(page.text("lastChecked").endsWith(u" ago"_s))
        << qPrintable(page.text("lastChecked"));
    EXPECT_TRUE(page.text("badge").startsWith(u"SSL: "_s)) << qPrintable(page.text("badge"));
}

TEST(MonitorDetailViewTest, EditMonitorAsksForTheForm)
{
    Page page(u"DetailPage-up"_s);
    const QSignalSpy asked(page.item("view"), SIGNAL(editMonitor()));
    page.click("editMonitor");
    EXPECT_EQ(asked.count(), 1);
}

TEST(AddMonitorSheetTest, TheAddressHasTheInitialFocus)
{
    Page page(u"FormPage-suggestion"_s);
    EXPECT_EQ(page.window().activeFocusItem(), page.item("address"));
    EXPECT_TRUE(page.shows("suggestion"));
}

TEST(AddMonitorSheetTest, ReturnDoesNothingWhileTheFormIsInvalid)
{
    Page page(u"FormPage-suggestion"_s);
    EXPECT_FALSE(page.item("confirm")->isEnabled());
    page.press(Qt::Key_Return);
    EXPECT_TRUE(page.shows("title"));
}

TEST(AddMonitorSheetTest, ReturnConfirmsAValidForm)
{
    Page page(u"FormPage-valid"_s);
    EXPECT_TRUE(page.item("confirm")->isEnabled());
    page.press(Qt::Key_Return);
    EXPECT_TRUE(waitFor([&] { return !page.shows("title"); }));
}

TEST(AddMonitorSheetTest, ReturnOnAChoiceSavesAndChoosesNothing)
{
    for (const char *choice : {"5m", "http", "keywordMode", "advanced"}) {
        Page page(u"FormPage-valid"_s);
        page.item(choice)->forceActiveFocus(Qt::TabFocusReason);
        page.press(Qt::Key_Return);
        EXPECT_TRUE(waitFor([&] { return !page.shows("title"); })) << choice;
        EXPECT_FALSE(page.form()->showAdvanced()) << choice;
    }
}

TEST(AddMonitorSheetTest, ArrowsMoveAmongTheChipsWhichAreOneTabStop)
{
    Page page(u"FormPage-website"_s);
    page.item("address")->forceActiveFocus(Qt::TabFocusReason);
    page.press(Qt::Key_Tab);
    EXPECT_EQ(page.window().activeFocusItem(), page.item("5m"));
    page.press(Qt::Key_Right);
    EXPECT_EQ(page.form()->interval(), 900);
    EXPECT_EQ(page.window().activeFocusItem(), page.item("15m"));
    page.press(Qt::Key_Up);
    page.press(Qt::Key_Left);
    EXPECT_EQ(page.form()->interval(), 60);
    page.press(Qt::Key_Left);
    page.press(Qt::Key_Left);
    EXPECT_EQ(page.form()->interval(), 30) << "the first is the last to the left";
    page.press(Qt::Key_Tab);
    EXPECT_EQ(page.window().activeFocusItem(), page.item("keyword"));
}

TEST(AddMonitorSheetTest, IfNoChipIsTakenAnArrowTakesTheFirst)
{
    Page page(u"FormPage-website"_s);
    page.form()->setInterval(77);
    page.item("30s")->forceActiveFocus(Qt::TabFocusReason);
    page.press(Qt::Key_Right);
    EXPECT_EQ(page.form()->interval(), 30);
}

TEST(AddMonitorSheetTest, AnArrowOnATileSwitchesTheFieldsAndStays)
{
    Page page(u"FormPage-website"_s);
    page.item("http")->forceActiveFocus(Qt::TabFocusReason);
    page.press(Qt::Key_Right);
    EXPECT_EQ(page.form()->monitorType(), u"port"_s);
    EXPECT_EQ(page.window().activeFocusItem(), page.item("port"));
}

TEST(AddMonitorSheetTest, ATimeoutThatIsEmptiedStaysWhatItWas)
{
    Page page(u"FormPage-valid"_s);
    page.form()->setShowAdvanced(true);
    page.item("timeout")->forceActiveFocus(Qt::TabFocusReason);
    page.press(Qt::Key_End);
    page.press(Qt::Key_Backspace);
    EXPECT_EQ(page.text("timeout"), QLocale().toString(3));
    page.press(Qt::Key_Backspace);
    EXPECT_EQ(page.text("timeout"), QString());
    page.press(Qt::Key_Tab);
    EXPECT_EQ(page.text("timeout"), QLocale().toString(30));
    EXPECT_EQ(page.form()->timeout(), 30);
}

TEST(AddMonitorSheetTest, EscapeAndCancelCloseIt)
{
    Page escaped(u"FormPage-valid"_s);
    escaped.press(Qt::Key_Escape);
    EXPECT_TRUE(waitFor([&] { return !escaped.shows("title"); }));

    Page cancelled(u"FormPage-valid"_s);
    cancelled.click("cancel");
    EXPECT_TRUE(waitFor([&] { return !cancelled.shows("title"); }));
}

TEST(AddMonitorSheetTest, TheTilesSwitchTheFields)
{
    Page page(u"FormPage-suggestion"_s);
    page.click("port");
    EXPECT_EQ(page.form()->monitorType(), u"port"_s);
    EXPECT_FALSE(page.shows("address"));
    EXPECT_FALSE(page.shows("keyword"));
    EXPECT_EQ(page.window().activeFocusItem(), page.item("host"));

    page.click("http");
    EXPECT_TRUE(page.shows("address"));
    EXPECT_EQ(page.window().activeFocusItem(), page.item("address"));
}

TEST(AddMonitorSheetTest, HostAndPortStandSideBySideInTheFaceOfTheOtherFields)
{
    Page page(u"FormPage-port"_s);
    QQuickItem *host = page.item("host");
    const QQuickItem *port = findIn(host->parentItem()->parentItem(), u"port"_s);
    const auto fontOf = [](const QQuickItem *field) {
        return field->property("font").value<QFont>();
    };
    EXPECT_EQ(fontOf(host), fontOf(page.item("keyword")));
    EXPECT_EQ(fontOf(port), fontOf(page.item("keyword")));
    EXPECT_NE(fontOf(host), fontOf(page.item("address"))) << "a web address has the desktop's face";
    EXPECT_EQ(host->size(), QSizeF(276, 38));
    EXPECT_EQ(port->size(), QSizeF(104, 38));
    EXPECT_EQ(port->mapToItem(host, {}), QPointF(288, 0));
}

TEST(AddMonitorSheetTest, TypingAHostAndItsPortMovesTheFocusToThePort)
{
    Page page(u"FormPage-suggestion"_s);
    for (const char key : {'d', 'b', ':', '5', '4', '3', '2'})
        QTest::keyClick(&page.window(), key);
    EXPECT_EQ(page.form()->monitorType(), u"port"_s);
    EXPECT_EQ(page.form()->url(), u"db"_s);
    EXPECT_EQ(page.form()->portText(), u"5432"_s);
}

TEST(AddMonitorSheetTest, PlaceholdersAreExamplesOrInTheUsersLanguage)
{
    PseudoTranslator translator;
    QCoreApplication::installTranslator(&translator);
    QStringList examples;
    {
        Page page(u"FormPage-website"_s);
        examples = page.placeholders().filter(QRegularExpression(u"^[^⟦]"_s));
        EXPECT_GT(page.placeholders().size(), examples.size() + 1);
    }
    QCoreApplication::removeTranslator(&translator);
    EXPECT_THAT(examples,
                testing::UnorderedElementsAre(exampleWebsite(), exampleDatabaseHost(), u"5432"_s));
}

TEST(AddMonitorSheetTest, TabStaysInTheSheet)
{
    Page page(u"FormPage-website"_s);
    const QQuickItem *sheet = page.item("title")->parentItem()->parentItem();
    for (int i = 0; i < 40; ++i) {
        page.press(Qt::Key_Tab);
        ASSERT_TRUE(page.window().activeFocusItem());
        EXPECT_TRUE(sheet->isAncestorOf(page.window().activeFocusItem())) << i;
    }
}

TEST(AddMonitorSheetTest, ASmallWindowShowsItsBeginning)
{
    Page page(u"SmallFormPage-website"_s);
    QQuickItem *middle = page.item("middle");
    ASSERT_TRUE(middle);
    EXPECT_TRUE(middle->property("isScrolling").toBool());
    const qreal margin = middle->property("topMargin").toReal();
    EXPECT_GT(margin, 0) << "the tiles don't touch the line under the title";
    EXPECT_TRUE(waitFor([&] { return middle->property("contentY").toReal() == -margin; }));
}

TEST(AddMonitorSheetTest, TheSuggestionIsTakenAndDisappears)
{
    Page page(u"FormPage-suggestion"_s);
    page.click("suggestion");
    EXPECT_EQ(page.text("address"), u"https://bakery.example/order"_s);
    EXPECT_FALSE(page.shows("suggestion"));
    EXPECT_TRUE(page.item("confirm")->isEnabled());
}

TEST(SettingsViewTest, AFreshSystemLaunchesNothingAndPlaysSounds)
{
    Page page(u"SettingsPage"_s);
    EXPECT_EQ(page.item("launchAtLogin")->property("checked"), QVariant(false));
    EXPECT_EQ(page.item("playSounds")->property("checked"), QVariant(true));
}

TEST(SettingsViewTest, ARefusedRegistrationLeavesTheToggleOnAndSaysNothing)
{
    Page page(u"SettingsPage"_s);
    const QStringList before = page.texts();
    ASSERT_TRUE(before.contains(u"Launch at Login"_s));
    page.click("launchAtLogin");
    EXPECT_EQ(page.item("launchAtLogin")->property("checked"), QVariant(true));
    EXPECT_EQ(page.texts(), before);
    for (const QWindow *window : QGuiApplication::topLevelWindows())
        EXPECT_TRUE(window == &page.window() || !window->isVisible());
}

} // namespace ostrel::test

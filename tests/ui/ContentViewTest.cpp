#include "FaviconImage.h"
#include "ForeignTexts.h"
#include "ProductConstants.h"
#include "WindowTest.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPainter>
#include <QQmlComponent>

#include <algorithm>
#include <chrono>
#include <memory>
#include <ratio>
#include <utility>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

/// For example "#ff38bf80".
QString nameOf(const QColor &color)
{
    return color.name(QColor::HexArgb);
}

QImage pictureOf(FaviconImage &icon)
{
    QImage picture(icon.size().toSize(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    icon.paint(&painter);
    return picture;
}

/// The placeholder that @p place shows for the site at @p address while it has no icon.
QImage pictureOfPlaceholder(const FaviconImage &place, const char *address)
{
    FaviconImage icon;
    icon.setSize(place.size());
    for (const char *name : {"radius", "plateColor", "letterColor", "letterSize"})
        icon.setProperty(name, place.property(name));
    icon.setUrlString(QString::fromLatin1(address));
    return pictureOf(icon);
}

/// The value of a QML expression, which can use the names of the views and of the theme.
QString evaluatedColor(QQmlEngine &views, const QByteArray &expression)
{
    QQmlComponent component(&views);
    component.setData("import QtQuick; import Ostrel; import Ostrel.Theme;"
                      "QtObject { property color value: " +
                          expression + " }",
                      QUrl());
    const std::unique_ptr<QObject> object(component.create());
    EXPECT_TRUE(object) << qPrintable(component.errorString());
    return object ? nameOf(object->property("value").value<QColor>()) : QString();
}

class ContentViewTest : public WindowTest
{
protected:
    [[nodiscard]] static QString colorOf(const QQuickItem *shown)
    {
        return nameOf(shown->property("color").value<QColor>());
    }
    [[nodiscard]] QString themeColor(const char *name)
    {
        return evaluatedColor(views.engine(), QByteArray("Theme.") + name);
    }
    /// Expects every visible text but the help texts to take one line, without characters that
    /// would begin another.
    void expectOneLineEach() const
    {
        QList<QQuickItem *> open = {window->contentItem()};
        while (!open.isEmpty()) {
            const QQuickItem *part = open.takeLast();
            open += part->childItems();
            if (!part->isVisible() || !part->inherits("QQuickText"))
                continue;
            const QString text = part->property("text").toString();
            EXPECT_EQ(part->property("lineCount"), 1) << qPrintable(text);
            EXPECT_TRUE(isFitForPeople(text));
        }
    }
    /// The entries of the open context menu, from top to bottom.
    [[nodiscard]] QStringList menuEntries() const
    {
        QStringList entries;
        const QQuickItem *rows = item("menuRows");
        const int count = rows ? rows->property("count").toInt() : 0;
        for (int i = 0; i < count; ++i) {
            QQuickItem *entry = nullptr;
            QMetaObject::invokeMethod(item("menuRows"), "itemAtIndex",
                                      Q_RETURN_ARG(QQuickItem *, entry), Q_ARG(int, i));
            if (entry && entry->isVisible())
                entries += entry->property("text").toString();
        }
        return entries;
    }
    [[nodiscard]] QStringList helpTexts() const
    {
        return textsOf(window->contentItem(), u"helpText"_s);
    }
};

Monitor paused(Monitor monitor)
{
    monitor.isEnabled = false;
    return monitor;
}

} // namespace

TEST_F(ContentViewTest, WithoutMonitorsTheInvitationIsShownAndNoBanner)
{
    show();
    EXPECT_TRUE(item("empty")->isVisible());
    EXPECT_FALSE(item("grid")->isVisible());
    EXPECT_FALSE(item("banner")->isVisible());
    samples.add(sampleMonitor());
    EXPECT_FALSE(item("empty")->isVisible());
    EXPECT_FALSE(showsDashboard()) << "the first monitor's page opens";
}

TEST_F(ContentViewTest, TheBannerFollowsTheStore)
{
    const Monitor shop = sampleMonitor();
    samples.add(shop, {upCheck(shop, sampleNow())});
    const Monitor still = sampleMonitor();
    samples.add(paused(still), {downCheck(still, sampleNow())});
    show();
    EXPECT_EQ(item("banner")->mapToScene({}).y(), 24);
    EXPECT_EQ(textOf("headline"), u"All Systems Operational"_s);
    EXPECT_EQ(textOf("countLine"), u"1 of 2 monitors up"_s);
    const QQuickItem *symbol = item("bannerSymbol");
    EXPECT_EQ(symbol->property("name"), u"checkmark.circle.fill"_s);
    EXPECT_EQ(colorOf(symbol), themeColor("statusUp"));
    samples.store.addCheck(downCheck(shop, sampleNow()));
    EXPECT_EQ(textOf("headline"), u"Issues Detected"_s);
    EXPECT_EQ(textOf("countLine"), u"0 of 2 monitors up"_s);
    EXPECT_EQ(symbol->property("name"), u"exclamationmark.triangle.fill"_s);
    EXPECT_EQ(colorOf(symbol), themeColor("statusDown"));
    samples.store.updateMonitor(paused(shop));
    EXPECT_EQ(symbol->property("name"), u"circle.dotted.circle"_s);
    EXPECT_EQ(colorOf(symbol), themeColor("statusMuted"));
}

TEST_F(ContentViewTest, ACardsUptimeIsColouredByItsThresholds)
{
    const Monitor shop = sampleMonitor();
    samples.add(shop, {downCheck(shop, sampleNow())});
    show();
    int upCount = 0;
    const std::pair<int, const char *> cases[] = {
        {18, "statusDown"}, {19, "warning"}, {98, "warning"}, {99, "statusUp"}};
    for (const auto &[count, color] : cases) {
        for (; upCount < count; ++upCount)
            samples.store.addCheck(upCheck(shop, sampleNow()));
        EXPECT_EQ(colorOf(find(item("card"), u"uptime"_s)), themeColor(color))
            << count << " of " << count + 1;
    }
}

TEST_F(ContentViewTest, APagesFiguresAreColouredByTheirThresholds)
{
    const Monitor shop = samples.add(sampleMonitor());
    show();
    press(Qt::Key_Down);
    const auto average = [&] { return find(item("detailPage"), u"value"_s); };
    EXPECT_EQ(colorOf(average()), themeColor("textSecondary"));
    samples.store.addCheck(upCheck(shop, sampleNow(), 299));
    EXPECT_EQ(colorOf(average()), themeColor("statusUp"));
    samples.store.addCheck(upCheck(shop, sampleNow(), 301));
    EXPECT_EQ(colorOf(average()), themeColor("warning"));
    samples.store.addCheck(upCheck(shop, sampleNow(), 2400));
    EXPECT_EQ(colorOf(average()), themeColor("statusDown"));
    EXPECT_EQ(colorOf(item("percentage")), themeColor("statusUp"));
    samples.store.addCheck(downCheck(shop, sampleNow()));
    EXPECT_EQ(colorOf(item("percentage")), themeColor("statusDown"));
}

TEST_F(ContentViewTest, APageListsTheNewestTwentyChecksTheNewestFirst)
{
    const Monitor shop = sampleMonitor();
    samples.add(shop, upChecks(shop, 25, sampleNow()));
    show();
    press(Qt::Key_Down);
    QStringList expected;
    for (int milliseconds = 124; milliseconds > 104; --milliseconds)
        expected += u"%1 ms"_s.arg(milliseconds);
    EXPECT_EQ(textsOf(item("detailPage"), u"result"_s), expected);
}

TEST_F(ContentViewTest, APagesCertificateIsColouredByTheDaysThatItHas)
{
    using Days = std::chrono::duration<int, std::ratio<86400>>;
    const Monitor shop = samples.add(sampleMonitor());
    show();
    press(Qt::Key_Down);
    // The page counts from now, and counts whole days: half a day is added as a margin.
    const std::pair<int, const char *> cases[] = {
        {7, "statusDown"}, {8, "warning"}, {30, "warning"}, {31, "statusUp"}};
    for (const auto &[days, color] : cases) {
        Check check = upCheck(shop, sampleNow());
        check.sslExpiresAt = systemNow() + Days(days) + std::chrono::hours(12);
        samples.store.addCheck(check);
        const QQuickItem *badge = find(item("badges"), u"badge"_s);
        EXPECT_EQ(badge->property("text"), u"SSL: %1d left"_s.arg(days));
        EXPECT_EQ(colorOf(badge), themeColor(color)) << days;
    }
}

TEST_F(ContentViewTest, ACardWhoseLatestCheckIsDownShowsNoResponseTime)
{
    const Monitor shop = sampleMonitor();
    samples.add(shop, {upCheck(shop, sampleNow()), downCheck(shop, sampleNow())});
    show();
    EXPECT_FALSE(find(item("card"), u"time"_s)->isVisible());
    EXPECT_EQ(find(item("card"), u"uptime"_s)->property("text").toString(), u"50.0%"_s);
}

TEST_F(ContentViewTest, AMonitorNeverCheckedShowsARingAndFullUptime)
{
    samples.add(sampleMonitor());
    show();
    EXPECT_TRUE(find(row(0), u"ring"_s)->isVisible());
    EXPECT_FALSE(find(row(0), u"result"_s)->isVisible());
    EXPECT_EQ(find(row(0), u"uptime"_s)->property("text").toString(), u"100%"_s);
}

TEST_F(ContentViewTest, ADownMonitorShowsDownAndItsUptimeUnlessItIsPaused)
{
    const Monitor shop = sampleMonitor();
    samples.add(shop, {upCheck(shop, sampleNow()), downCheck(shop, sampleNow())});
    samples.add(sampleMonitor());
    show();
    const auto result = [&] { return find(row(0), u"result"_s)->property("text").toString(); };
    const auto dotColor = [&](int index) { return colorOf(find(row(index), u"dot"_s)); };
    EXPECT_EQ(result(), u"DOWN"_s);
    EXPECT_NE(dotColor(0), dotColor(1));
    EXPECT_EQ(find(row(0), u"uptime"_s)->property("text").toString(), u"50.0%"_s);
    samples.store.updateMonitor(paused(shop));
    EXPECT_NE(result(), u"DOWN"_s);
    EXPECT_EQ(dotColor(0), dotColor(1)) << "as of one that was never checked";
}

TEST_F(ContentViewTest, WithoutAnIconALetterOfTheHostOrAQuestionMarkIsShown)
{
    samples.add(sampleMonitor());
    Monitor database = sampleMonitor();
    database.type = MonitorType::port;
    database.url = u"db.local"_s;
    samples.add(database);
    show();
    const auto icon = [&](int index) -> FaviconImage & {
        return dynamic_cast<FaviconImage &>(*find(row(index), u"icon"_s));
    };
    EXPECT_EQ(pictureOf(icon(0)), pictureOfPlaceholder(icon(0), "https://s.example"));
    EXPECT_EQ(pictureOf(icon(1)), pictureOfPlaceholder(icon(1), "also-without-a-scheme.local"));
}

TEST_F(ContentViewTest, NamesOfSeveralLinesTakeOneLineEverywhere)
{
    const QString lines = u"Kestrel\nShop\r\nof\u2028all"_s;
    Monitor shop = sampleMonitor(lines);
    shop.url = u"https://s.example/"_s + lines;
    samples.add(shop, {downCheck(shop, sampleNow(), lines)});
    show();
    expectOneLineEach();
    press(Qt::Key_Down);
    expectOneLineEach();
    QTest::mouseClick(window, Qt::RightButton, {}, middleOf(*row(0)));
    ASSERT_TRUE(waitFor([&] { return item("menuRows") && item("menuRows")->isVisible(); }));
    expectOneLineEach();
    QObject *menu = item("menuRows")->parentItem();
    EXPECT_TRUE(
        isFitForPeople(QAccessible::queryAccessibleInterface(menu)->text(QAccessible::Name)));
}

TEST_F(ContentViewTest, AFocusedRowsNameThatIsCutOffShowsWhole)
{
    const QString longName = u"A name that is far too long for the sidebar's row"_s;
    samples.add(sampleMonitor(longName));
    show();
    press(Qt::Key_Down);
    EXPECT_TRUE(waitFor([&] { return helpTexts() == QStringList{longName}; }));
    press(Qt::Key_Escape);
    EXPECT_TRUE(showsDashboard()) << "a help text doesn't keep the key";
}

TEST_F(ContentViewTest, AFocusedCardsNameThatIsCutOffShowsWhole)
{
    const QString longName = u"A name that is far too long for a card, "_s.repeated(3);
    samples.add(sampleMonitor(longName));
    show();
    item("grid")->forceActiveFocus(Qt::TabFocusReason);
    EXPECT_TRUE(waitFor([&] { return helpTexts() == QStringList{longName}; }));
}

TEST_F(ContentViewTest, ARowsNameThatIsCutOffShowsWholeUnderThePointer)
{
    const QString longName = u"A name that is far too long for the sidebar's row"_s;
    samples.add(sampleMonitor(longName));
    show();
    QTest::mouseMove(window, middleOf(*row(0)) - QPoint(0, 8));
    EXPECT_TRUE(waitFor([&] { return helpTexts() == QStringList{longName}; }));
    EXPECT_TRUE(row(0)->property("showsHover").toBool()) << "the row is still under the pointer";
}

TEST_F(ContentViewTest, ACardsNameThatIsCutOffShowsWholeUnderThePointer)
{
    const QString longName = u"A name that is far too long for a card, "_s.repeated(3);
    samples.add(sampleMonitor(longName));
    show();
    const auto edge = [&] { return colorOf(item("card")); };
    const QString before = edge();
    QTest::mouseMove(window, item("card")->mapToScene({80, 26}).toPoint());
    EXPECT_TRUE(waitFor([&] { return helpTexts() == QStringList{longName}; }));
    EXPECT_NE(edge(), before) << "the card is still under the pointer";
}

TEST_F(ContentViewTest, ARowUnderThePointerHasOneHelpTextThoughItHasTheFocus)
{
    const QString longName = u"A name that is far too long for the sidebar's row"_s;
    samples.add(sampleMonitor(longName));
    show();
    press(Qt::Key_Down);
    ASSERT_TRUE(waitFor([&] { return !helpTexts().isEmpty(); }));
    QTest::mouseMove(window, middleOf(*row(0)) + QPoint(60, 0));
    EXPECT_TRUE(waitFor([&] { return helpTexts().isEmpty(); }));
    EXPECT_TRUE(row(0)->property("showsHover").toBool());
    QTest::mouseMove(window, middleOf(*row(0)) - QPoint(0, 8));
    EXPECT_TRUE(waitFor([&] { return helpTexts() == QStringList{longName}; }));
}

TEST_F(ContentViewTest, ARowReadsAsOneListItem)
{
    const Monitor shop = sampleMonitor();
    samples.add(shop, {upCheck(shop, sampleNow())});
    show();
    QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(row(0));
    ASSERT_TRUE(spoken);
    EXPECT_EQ(spoken->role(), QAccessible::ListItem);
    EXPECT_EQ(spoken->text(QAccessible::Name), u"Shop, up, 245 ms, 24-hour uptime 100%"_s);
    EXPECT_EQ(spoken->childCount(), 0);
}

TEST_F(ContentViewTest, ArrowsWalkTheListAndEscapeLeavesIt)
{
    samples.add(sampleMonitor(u"First"_s));
    samples.add(sampleMonitor(u"Second"_s));
    show();
    press(Qt::Key_Down);
    EXPECT_EQ(pageName(), u"First"_s);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(pageName(), u"Second"_s);
    press(Qt::Key_Home);
    EXPECT_EQ(pageName(), u"First"_s);
    press(Qt::Key_Escape);
    EXPECT_TRUE(showsDashboard());
}

TEST_F(ContentViewTest, ClicksSelectAndDeselect)
{
    samples.add(sampleMonitor(u"First"_s));
    show();
    for (const char *elsewhere : {"home", "emptySpace"}) {
        click(*row(0));
        EXPECT_EQ(pageName(), u"First"_s);
        click(*item(elsewhere));
        EXPECT_TRUE(showsDashboard()) << elsewhere;
    }
    click(*row(0));
    click(*row(0), Qt::ControlModifier);
    EXPECT_TRUE(showsDashboard());
    click(*item("card"));
    EXPECT_EQ(pageName(), u"First"_s);
}

TEST_F(ContentViewTest, TheRowWhoseMenuIsOpenStaysMarked)
{
    samples.add(sampleMonitor(u"First"_s));
    samples.add(sampleMonitor(u"Second"_s));
    show();
    QTest::mouseClick(window, Qt::RightButton, {}, middleOf(*row(1)));
    EXPECT_TRUE(row(1)->property("hasMenu").toBool());
    EXPECT_FALSE(row(0)->property("hasMenu").toBool());
    press(Qt::Key_Escape);
    EXPECT_TRUE(waitFor([&] { return !row(1)->property("hasMenu").toBool(); }));
}

TEST_F(ContentViewTest, TheMenuPausesAndDeletesFromTheKeyboard)
{
    const Monitor first = samples.add(sampleMonitor(u"First"_s));
    const Monitor second = samples.add(sampleMonitor(u"Second"_s));
    show();
    press(Qt::Key_Down);
    press(Qt::Key_Menu);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_FALSE(samples.store.monitor(first.id)->isEnabled);

    press(Qt::Key_F10, Qt::ShiftModifier);
    for (int entry = 0; entry < 3; ++entry)
        press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_FALSE(samples.store.monitor(first.id));
    EXPECT_EQ(pageName(), u"Second"_s) << "the first that remains";
}

TEST_F(ContentViewTest, TheDeleteKeyDeletesTheSelectedMonitorAndNothingElse)
{
    const Monitor first = samples.add(sampleMonitor(u"First"_s));
    const Monitor second = samples.add(sampleMonitor(u"Second"_s));
    show();
    press(Qt::Key_Delete);
    EXPECT_EQ(samples.store.monitors().size(), 2) << "the dashboard is selected";
    press(Qt::Key_Down);
    press(Qt::Key_Delete);
    EXPECT_FALSE(samples.store.monitor(first.id));
    EXPECT_EQ(pageName(), u"Second"_s) << "the first that remains";
    press(Qt::Key_Delete);
    EXPECT_FALSE(samples.store.monitor(second.id));
    EXPECT_TRUE(showsDashboard());
    press(Qt::Key_Delete);
}

TEST_F(ContentViewTest, AHeldDeleteKeyDeletesOneMonitor)
{
    samples.add(sampleMonitor(u"First"_s));
    samples.add(sampleMonitor(u"Second"_s));
    show();
    press(Qt::Key_Down);
    QTest::keyPress(window, Qt::Key_Delete);
    for (int repetition = 0; repetition < 3; ++repetition) {
        QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Delete, {}, QString(), true);
        QCoreApplication::sendEvent(window, &repeated);
    }
    QTest::keyRelease(window, Qt::Key_Delete);
    EXPECT_EQ(samples.store.monitors().size(), 1);
}

TEST_F(ContentViewTest, AClickBetweenTwoRowsChangesNothing)
{
    samples.add(sampleMonitor(u"First"_s));
    samples.add(sampleMonitor(u"Second"_s));
    show();
    click(*row(0));
    ASSERT_EQ(pageName(), u"First"_s);
    const QPointF below = row(0)->mapToScene(QPointF(50, row(0)->height() + 1));
    QTest::mouseClick(window, Qt::LeftButton, {}, below.toPoint());
    EXPECT_EQ(pageName(), u"First"_s);
}

TEST_F(ContentViewTest, AWebsiteIsAddedFromTheKeyboard)
{
    QGuiApplication::clipboard()->setText(u"https://a.example/"_s);
    show();
    press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(sheetTitle(), u"New Monitor"_s);
    EXPECT_TRUE(item("suggestion")->isVisible());
    type("shop.example");
    press(Qt::Key_Return);
    ASSERT_EQ(samples.store.monitors().size(), 1);
    EXPECT_EQ(samples.store.monitors().first().url, u"https://shop.example"_s);
    EXPECT_TRUE(waitFor([&] { return sheetTitle().isEmpty(); }));
    EXPECT_EQ(pageName(), u"shop.example"_s);
}

TEST_F(ContentViewTest, AnAddressWithAPortAndAPathIsTypedInOneGo)
{
    show();
    press(Qt::Key_N, Qt::ControlModifier);
    type("shop.local:8080/status");
    EXPECT_EQ(textOf("address"), u"shop.local:8080/status"_s);
    press(Qt::Key_Return);
    ASSERT_EQ(samples.store.monitors().size(), 1);
    EXPECT_EQ(samples.store.monitors().first().type, MonitorType::http);
    EXPECT_EQ(samples.store.monitors().first().url, u"https://shop.local:8080/status"_s);
}

TEST_F(ContentViewTest, TheFormForANewMonitorOpensWhenItIsRequested)
{
    show();
    auto *opener = window->property("models").value<WindowModels *>()->opener();
    Q_EMIT opener->createRequested();
    EXPECT_EQ(sheetTitle(), u"New Monitor"_s);
    type("shop.example");
    Q_EMIT opener->createRequested();
    press(Qt::Key_Return);
    ASSERT_EQ(samples.store.monitors().size(), 1) << "what was typed stays";
}

TEST_F(ContentViewTest, APageOpensWhenItIsRequestedAndAnOpenFormStays)
{
    samples.add(sampleMonitor(u"Blog"_s));
    const Monitor shop = samples.add(sampleMonitor(u"Shop"_s));
    show();
    auto *models = window->property("models").value<WindowModels *>();
    Q_EMIT models->pageRequested(shop.id);
    EXPECT_EQ(pageName(), u"Shop"_s);
    press(Qt::Key_Escape);
    ASSERT_TRUE(showsDashboard());

    Q_EMIT models->opener()->createRequested();
    type("new.example");
    Q_EMIT models->pageRequested(shop.id);
    EXPECT_EQ(pageName(), u"Shop"_s);
    press(Qt::Key_Return);
    ASSERT_EQ(samples.store.monitors().size(), 3) << "what was typed stays";
}

TEST_F(ContentViewTest, AMonitorIsEditedFromTheKeyboardAndFromItsPage)
{
    const Monitor shop = samples.add(sampleMonitor());
    show();
    press(Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(sheetTitle(), QString()) << "nothing is selected";
    press(Qt::Key_Down);
    press(Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(sheetTitle(), u"Edit Monitor"_s);
    press(Qt::Key_N, Qt::ControlModifier);
    pressByAssistiveTool("addMonitor");
    EXPECT_EQ(sheetTitle(), u"Edit Monitor"_s) << "what is typed stays";
    press(Qt::Key_Escape);
    ASSERT_TRUE(waitFor([&] { return sheetTitle().isEmpty(); }));
    EXPECT_EQ(pageName(), shop.name) << "Escape was the sheet's";

    click(*item("editMonitor"));
    EXPECT_EQ(sheetTitle(), u"Edit Monitor"_s);
    QTest::keySequence(window, QKeySequence::SelectAll);
    type("other.example");
    press(Qt::Key_Return);
    EXPECT_EQ(samples.store.monitor(shop.id)->url, u"https://other.example"_s);
    EXPECT_EQ(samples.store.monitor(shop.id)->name, shop.name);
    EXPECT_TRUE(waitFor([&] { return sheetTitle().isEmpty(); }));
    click(*item("editMonitor"));
    EXPECT_EQ(sheetTitle(), u"Edit Monitor"_s) << "a second time, too";
}

TEST_F(ContentViewTest, ThePageChecksItsMonitorAndAsksForHelp)
{
    const Monitor shop = samples.add(sampleMonitor());
    show();
    press(Qt::Key_Down);
    click(*item("checkNow"));
    EXPECT_TRUE(waitFor([&] { return samples.store.checks(shop.id).size() == 1; }));
    EXPECT_TRUE(waitFor([&] { return !item("checkNow")->property("isBusy").toBool(); }));
    press(Qt::Key_R, Qt::ControlModifier);
    EXPECT_TRUE(waitFor([&] { return samples.store.checks(shop.id).size() == 2; }));
    click(*item("getHelp"));
    EXPECT_EQ(workspace.opened, QStringList{supportAddress().toString()});
}

TEST_F(ContentViewTest, ACheckOnRequestIsShownOnItsButtonItsRowAndItsMenuUntilItsResultIsThere)
{
    const Monitor shop = samples.add(sampleMonitor());
    samples.store.addCheck(upCheck(shop, samples.now));
    show();
    press(Qt::Key_Down);
    const auto isShown = [this] {
        const bool onButton = item("checkNow")->property("isBusy").toBool();
        EXPECT_EQ(find(row(0), u"ring"_s)->isVisible(), onButton);
        EXPECT_EQ(find(row(0), u"result"_s)->isVisible(), !onButton);
        return onButton;
    };
    EXPECT_FALSE(isShown());

    scripted.httpCheck.hold();
    click(*item("checkNow"));
    EXPECT_TRUE(isShown());
    click(*item("checkNow"));
    press(Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(scripted.httpCheck.runs.size(), 1u);
    QTest::mouseClick(window, Qt::RightButton, {}, middleOf(*row(0)));
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_FALSE(samples.store.monitor(shop.id)->isEnabled) << "the entry above can't be chosen";

    scripted.httpCheck.finishNext(true);
    EXPECT_TRUE(waitFor([&] { return !isShown(); }));
    EXPECT_EQ(samples.store.checks(shop.id).size(), 2u);
}

TEST_F(ContentViewTest, APagesAddressIsCopiedAndOpenedFromItsMenu)
{
    const Monitor shop = samples.add(sampleMonitor());
    show();
    press(Qt::Key_Down);
    QTest::mouseClick(window, Qt::RightButton, {}, middleOf(*item("address")));
    ASSERT_TRUE(waitFor([&] { return menuEntries().size() == 2; }));
    EXPECT_EQ(menuEntries(), QStringList({u"Copy Address"_s, u"Open in Browser"_s}));
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), shop.url);
    EXPECT_TRUE(waitFor([&] { return menuEntries().isEmpty(); }));
    EXPECT_EQ(workspace.opened, QStringList());

    QTest::mouseClick(window, Qt::RightButton, {}, middleOf(*item("address")));
    ASSERT_TRUE(waitFor([&] { return menuEntries().size() == 2; }));
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(workspace.opened, QStringList{shop.url});
}

TEST_F(ContentViewTest, APagesAddressIsATabStopWhoseMenuTheKeyboardOpens)
{
    samples.add(sampleMonitor());
    show();
    press(Qt::Key_Down);
    for (int i = 0; i < 3; ++i)
        press(Qt::Key_Tab);
    ASSERT_EQ(window->activeFocusItem(), item("grip"));
    press(Qt::Key_Tab);
    QQuickItem *address = item("address");
    ASSERT_EQ(window->activeFocusItem(), address);
    const QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(address);
    EXPECT_EQ(spoken->text(QAccessible::Name), u"shop.example/cart"_s);
    EXPECT_EQ(spoken->text(QAccessible::Description), u"Address"_s);
    for (const auto &[key, modifiers] :
         {std::pair(Qt::Key_Menu, Qt::KeyboardModifiers()),
          std::pair(Qt::Key_F10, Qt::KeyboardModifiers(Qt::ShiftModifier)),
          std::pair(Qt::Key_Return, Qt::KeyboardModifiers()),
          std::pair(Qt::Key_Space, Qt::KeyboardModifiers())}) {
        press(key, modifiers);
        EXPECT_TRUE(waitFor([&] { return menuEntries().size() == 2; })) << key;
        press(Qt::Key_Escape);
        EXPECT_TRUE(waitFor([&] { return menuEntries().isEmpty(); })) << key;
        EXPECT_EQ(window->activeFocusItem(), address) << key;
    }
}

TEST_F(ContentViewTest, AnAddressThatNoBrowserOpensIsOnlyCopied)
{
    Monitor database = sampleMonitor();
    database.type = MonitorType::port;
    database.url = u"https://db.example"_s;
    samples.add(database);
    Monitor local = sampleMonitor();
    local.url = u"httpbin.local"_s;
    samples.add(local);
    Monitor file = sampleMonitor();
    file.url = u"file:///etc/passwd"_s;
    samples.add(file);
    show();
    for (const Monitor &monitor : {database, local, file}) {
        press(Qt::Key_Down);
        QTest::mouseClick(window, Qt::RightButton, {}, middleOf(*item("address")));
        EXPECT_TRUE(waitFor([&] { return menuEntries() == QStringList{u"Copy Address"_s}; }));
        press(Qt::Key_Down);
        press(Qt::Key_Return);
        EXPECT_EQ(QGuiApplication::clipboard()->text(), monitor.url);
        EXPECT_TRUE(waitFor([&] { return menuEntries().isEmpty(); }));
    }
    EXPECT_EQ(workspace.opened, QStringList());
}

TEST_F(ContentViewTest, WithHighContrastTheBannersEdgeIsAsStrongAsItsSymbol)
{
    samples.add(sampleMonitor());
    show();
    window->setProperty("highContrast", true);
    EXPECT_EQ(item("banner")->property("edge"), item("bannerSymbol")->property("color"));
    window->setProperty("highContrast", false);
    EXPECT_NE(item("banner")->property("edge"), item("bannerSymbol")->property("color"));
}

TEST_F(ContentViewTest, TheSplitIsAppliedOnlyIfTheWindowHasRoomForIt)
{
    show();
    const auto sidebarWidth = [&] { return item("sidebar")->width() + 1; };
    item("grip")->forceActiveFocus(Qt::TabFocusReason);
    press(Qt::Key_Right);
    EXPECT_EQ(sidebarWidth(), 300);

    window->resize(820, 600);
    ASSERT_TRUE(waitFor([&] { return sidebarWidth() == 260; }));
    EXPECT_FALSE(item("grip")->isEnabled());
    press(Qt::Key_Right);
    window->resize(960, 640);
    EXPECT_TRUE(waitFor([&] { return sidebarWidth() == 300; }));
    EXPECT_TRUE(item("grip")->isEnabled());
}

TEST_F(ContentViewTest, TheSettingsHaveAWindowOfTheirOwn)
{
    show();
    const auto settingsWindow = [&]() -> QWindow * {
        for (QWindow *candidate : QGuiApplication::topLevelWindows()) {
            if (candidate != window && candidate->isVisible())
                return candidate;
        }
        return nullptr;
    };
    EXPECT_FALSE(settingsWindow());
    click(*item("settings"));
    ASSERT_TRUE(settingsWindow());
    EXPECT_EQ(settingsWindow()->title(), u"Settings"_s);
    settingsWindow()->close();
    window->requestActivate();
    ASSERT_TRUE(waitFor([&] { return window->isActive(); }));
    press(Qt::Key_Comma, Qt::ControlModifier);
    ASSERT_TRUE(settingsWindow());
    window->close();
    EXPECT_TRUE(settingsWindow()) << "it goes on without the main window";
    EXPECT_FALSE(settingsWindow()->transientParent()) << "nor is it minimised together with it";
}

TEST_F(ContentViewTest, WithoutAMailProgramTheSupportsAddressCanBeCopied)
{
    workspace.isTaking = false;
    samples.add(sampleMonitor());
    show();
    press(Qt::Key_Down);
    click(*item("getHelp"));
    ASSERT_TRUE(waitFor([&] { return item("copyAddress")->isVisible(); }));
    EXPECT_TRUE(textOf("noticeText").contains(supportAddress().path()));
    EXPECT_EQ(item("noticeText")->property("truncated"), false);
    window->grabWindow();
    click(*item("copyAddress"));
    EXPECT_EQ(QGuiApplication::clipboard()->text(), supportAddress().path());
    EXPECT_TRUE(waitFor([&] { return !item("noticeText")->isVisible(); }));
    workspace.isTaking = true;
    click(*item("getHelp"));
    EXPECT_FALSE(item("noticeText")->isVisible());
}

TEST_F(ContentViewTest, ANoticeIsShownAboveTheFooterWhileItIsNeeded)
{
    samples.add(sampleMonitor());
    show();
    const qreal height = item("list")->height();
    EXPECT_FALSE(item("noticeText")->isVisible());

    scripted.networkPresence.setPresent(false);
    const QQuickItem *row = item("noticeText")->parentItem();
    ASSERT_TRUE(waitFor([&] { return row->opacity() == 1; }));
    EXPECT_EQ(textOf("noticeText"), u"Offline. Checks wait for the network."_s);
    const QList<QQuickItem *> children = row->childItems();
    const auto symbol = std::ranges::find_if(
        children, [](const QQuickItem *child) { return child->property("name") == u"network"_s; });
    ASSERT_NE(symbol, children.end());
    EXPECT_EQ(colorOf(*symbol), themeColor("textSecondary"));
    EXPECT_EQ(item("list")->height(), height - 36);
    EXPECT_EQ(row->mapToScene({0, row->height()}).y(), window->height() - 49);
    const QAccessibleInterface *spoken =
        QAccessible::queryAccessibleInterface(item("noticeText")->parentItem());
    ASSERT_TRUE(spoken);
    EXPECT_EQ(spoken->role(), QAccessible::AlertMessage);
    EXPECT_EQ(spoken->text(QAccessible::Name), textOf("noticeText"));

    scripted.networkPresence.setPresent(true);
    EXPECT_EQ(textOf("noticeText"), u"Offline. Checks wait for the network."_s)
        << "it doesn't change while it goes";
    ASSERT_TRUE(waitFor([&] { return !row->isVisible(); }));
    EXPECT_EQ(item("list")->height(), height);
}

TEST(ToneColorsTest, EveryToneIsAColourOfTheTheme)
{
    QQmlEngine views;
    views.addImportPath(u"qrc:/qt/qml"_s);
    const std::pair<const char *, const char *> table[] = {
        {"Tone.Up", "Theme.statusUp"},     {"Tone.Warning", "Theme.warning"},
        {"Tone.Down", "Theme.statusDown"}, {"Tone.Muted", "Theme.statusMuted"},
        {"Tone.Accent", "Theme.accent"},   {"Tone.Secondary", "Theme.textSecondary"},
    };
    for (const auto &[tone, color] : table)
        EXPECT_EQ(evaluatedColor(views, QByteArray("ToneColors.of(") + tone + ")"),
                  evaluatedColor(views, color))
            << tone;
}

} // namespace ostrel::test

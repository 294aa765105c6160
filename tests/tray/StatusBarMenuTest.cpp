#include "StatusBarMenu.h"

#include "ForeignTexts.h"
#include "PresentationSamples.h"
#include "Printers.h"
#include "StatusBarHost.h"
#include "SymbolRaster.h"

#include <QApplication>
#include <QPixmap>
#include <QPointer>
#include <QSignalSpy>
#include <QTextBoundaryFinder>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

class NoHost : public StatusBarHost
{
public:
    [[nodiscard]] bool isAwaited() const override { return false; }
    [[nodiscard]] bool isSilent() const override { return false; }
    [[nodiscard]] QString menuText(const QString &) const override { return {}; }
    [[nodiscard]] bool hasOurPalette() const override { return false; }
};

QColor textColor()
{
    return QApplication::palette("QMenu").color(QPalette::WindowText);
}

/// How many characters a reader counts in @p text.
qsizetype charactersOf(const QString &text)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype count = 0;
    while (finder.toNextBoundary() != -1)
        ++count;
    return count;
}

class StatusBarMenuTest : public testing::Test
{
protected:
    Monitor add(const char *name, const std::vector<Check> &checks = {})
    {
        return samples.add(sampleMonitor(QString::fromUtf8(name)), checks);
    }
    Monitor addUp(const char *name, double milliseconds)
    {
        const Monitor monitor = sampleMonitor(QString::fromUtf8(name));
        return samples.add(monitor, {upCheck(monitor, sampleNow() - 1min, milliseconds)});
    }
    Monitor addDown(const char *name)
    {
        const Monitor monitor = sampleMonitor(QString::fromUtf8(name));
        return samples.add(monitor, {downCheck(monitor, sampleNow() - 1min)});
    }
    void pause(Monitor monitor)
    {
        monitor.isEnabled = false;
        samples.store.updateMonitor(monitor);
    }

    [[nodiscard]] QList<QAction *> shownActions()
    {
        QList<QAction *> shown;
        std::ranges::copy_if(menu.menu().actions(), std::back_inserter(shown),
                             [](const QAction *action) { return action->isVisible(); });
        return shown;
    }
    /// The entries from top to bottom as the toolkit gets them; "-" for a separator.
    [[nodiscard]] QStringList lines()
    {
        QStringList lines;
        for (const QAction *action : shownActions())
            lines += action->isSeparator() ? u"-"_s : action->text();
        return lines;
    }
    [[nodiscard]] QStringList monitorLines() { return lines().first(lines().size() - 5); }
    /// Whether the entry in @p row shows @p symbol, in the colour of the menu's text.
    [[nodiscard]] bool showsSymbol(int row, const char *symbol)
    {
        const QImage shown = shownActions()[row]->icon().pixmap(16).toImage();
        const QImage expected = SymbolRaster::image(QString::fromUtf8(symbol), 16, textColor());
        return shown.convertToFormat(expected.format()) == expected;
    }
    /// Counts the changes that @p action announces.
    [[nodiscard]] static std::unique_ptr<QSignalSpy> changesOf(const QAction *action)
    {
        return std::make_unique<QSignalSpy>(action, &QAction::changed);
    }

    SampleStore samples;
    NoHost host;
    StatusBarMenu menu{samples.store, host};
};

const QStringList commands = {u"-"_s, u"Help && Support"_s, u"Open Ostrel"_s, u"-"_s, u"Quit"_s};

} // namespace

TEST_F(StatusBarMenuTest, WithoutMonitorsItShowsNoMonitorsAboveTheThreeCommands)
{
    EXPECT_EQ(lines(), QStringList(u"No monitors"_s) + commands);
    EXPECT_FALSE(shownActions()[0]->isEnabled());
}

TEST_F(StatusBarMenuTest, OneEntryPerMonitorInTheStoresOrder)
{
    addUp("Zebra", 142.4);
    addDown("Apple");
    add("Mango");
    EXPECT_EQ(lines(), QStringList({u"Zebra\t142ms"_s, u"Apple\tDOWN"_s, u"Mango"_s}) + commands);
}

TEST_F(StatusBarMenuTest, EveryStatusHasItsSymbol)
{
    addUp("Up", 142);
    addDown("Down");
    pause(addUp("Paused", 233));
    add("Pending");
    EXPECT_TRUE(showsSymbol(0, "checkmark.circle.fill"));
    EXPECT_TRUE(showsSymbol(1, "xmark.circle.fill"));
    EXPECT_TRUE(showsSymbol(2, "circle.dotted"));
    EXPECT_TRUE(showsSymbol(3, "circle.dotted"));
    EXPECT_FALSE(showsSymbol(3, "checkmark.circle.fill"));
}

TEST_F(StatusBarMenuTest, AMonitorNeverCheckedHasADottedSymbolAndNoTrailingText)
{
    add("Fresh");
    EXPECT_EQ(monitorLines(), QStringList(u"Fresh"_s));
    EXPECT_TRUE(showsSymbol(0, "circle.dotted"));
}

TEST_F(StatusBarMenuTest, APausedMonitorShowsTheTimeOfACheckThatWasUpOnly)
{
    pause(addUp("Asleep", 233));
    pause(addDown("Given up"));
    EXPECT_EQ(monitorLines(), QStringList({u"Asleep\t233ms"_s, u"Given up"_s}));
    EXPECT_TRUE(showsSymbol(1, "circle.dotted"));
}

TEST_F(StatusBarMenuTest, EntriesOfMonitorsAreEnabledButDoNothing)
{
    addDown("Shop");
    QSignalSpy help(&menu, &StatusBarMenu::helpRequested);
    QSignalSpy open(&menu, &StatusBarMenu::openRequested);
    QSignalSpy quit(&menu, &StatusBarMenu::quitRequested);
    EXPECT_TRUE(shownActions()[0]->isEnabled());
    const QStringList before = lines();
    shownActions()[0]->trigger();
    EXPECT_EQ(help.count() + open.count() + quit.count(), 0);
    EXPECT_EQ(lines(), before);
}

TEST_F(StatusBarMenuTest, NamesAreShownLiterallyOnOneLine)
{
    add("Tom & Jerry_x");
    add("Two\tcolumns\nand lines");
    EXPECT_EQ(monitorLines(), QStringList({u"Tom && Jerry_x"_s, u"Two columns and lines"_s}));
}

TEST_F(StatusBarMenuTest, ForeignNamesTakeOneEntryEach)
{
    for (const ForeignText &foreign : foreignTexts())
        samples.add(sampleMonitor(foreign.text));
    ASSERT_EQ(monitorLines().size(), foreignTexts().size());
    for (const QString &line : monitorLines())
        EXPECT_TRUE(isFitForPeople(line)) << qPrintable(line);
}

TEST_F(StatusBarMenuTest, ANameIsCutAtSixtyCharactersAndItsFigureStays)
{
    addUp(QByteArray(60, 'x').constData(), 142);
    addUp(QByteArray(61, 'x').constData(), 142);
    EXPECT_EQ(monitorLines().value(0), QString(60, u'x') + u"\t142ms"_s);
    EXPECT_EQ(monitorLines().value(1), QString(59, u'x') + u"…\t142ms"_s);
}

TEST_F(StatusBarMenuTest, ANameIsNotCutWithinACharacter)
{
    for (const char *character : {"e\u0301", "👩‍👩‍👧", "🇪🇪", "&"}) {
        add(QByteArray(character).repeated(61).constData());
        const QString shown = monitorLines().last().replace(u"&&"_s, u"&"_s);
        EXPECT_EQ(shown, QString::fromUtf8(character).repeated(59) + u'…') << character;
        EXPECT_EQ(charactersOf(shown), 60) << character;
    }
}

TEST_F(StatusBarMenuTest, AMonitorWithoutANameShowsItsHost)
{
    add("");
    EXPECT_EQ(monitorLines(), QStringList(u"shop.example"_s));
}

TEST_F(StatusBarMenuTest, ACheckChangesItsMonitorsEntryInPlaceAndNoOther)
{
    const Monitor first = addUp("First", 100);
    addUp("Second", 200);
    const QPointer<QAction> firstAction(shownActions()[0]);
    const auto firstChanges = changesOf(shownActions()[0]);
    const auto secondChanges = changesOf(shownActions()[1]);
    const auto quitChanges = changesOf(shownActions().last());

    samples.store.addCheck(upCheck(first, sampleNow(), 321));
    EXPECT_EQ(monitorLines(), QStringList({u"First\t321ms"_s, u"Second\t200ms"_s}));
    EXPECT_EQ(firstAction, shownActions()[0]);
    EXPECT_EQ(firstChanges->count(), 1) << "the text alone";
    EXPECT_EQ(secondChanges->count(), 0);
    EXPECT_EQ(quitChanges->count(), 0);
}

TEST_F(StatusBarMenuTest, ACheckWithTheSameTextChangesNothing)
{
    const Monitor shop = addUp("Shop", 100);
    const auto changes = changesOf(shownActions()[0]);
    samples.store.addCheck(upCheck(shop, sampleNow(), 100.2));
    EXPECT_EQ(changes->count(), 0);
}

TEST_F(StatusBarMenuTest, AFailureChangesSymbolAndText)
{
    const Monitor shop = addUp("Shop", 100);
    samples.store.addCheck(downCheck(shop, sampleNow()));
    EXPECT_EQ(monitorLines(), QStringList(u"Shop\tDOWN"_s));
    EXPECT_TRUE(showsSymbol(0, "xmark.circle.fill"));
}

TEST_F(StatusBarMenuTest, APauseAndANewNameShowAtOnce)
{
    Monitor shop = addUp("Shop", 100);
    const QPointer<QAction> action(shownActions()[0]);
    shop.name = u"Store"_s;
    shop.isEnabled = false;
    samples.store.updateMonitor(shop);
    EXPECT_EQ(monitorLines(), QStringList(u"Store\t100ms"_s));
    EXPECT_TRUE(showsSymbol(0, "circle.dotted"));
    EXPECT_EQ(action, shownActions()[0]);
}

TEST_F(StatusBarMenuTest, AddingAndDeletingLeavesTheOthersEntriesInPlace)
{
    add("First");
    const Monitor second = add("Second");
    add("Third");
    const QPointer<QAction> firstAction(shownActions()[0]);
    const QPointer<QAction> thirdAction(shownActions()[2]);
    samples.store.deleteMonitor(second.id);
    EXPECT_EQ(monitorLines(), QStringList({u"First"_s, u"Third"_s}));
    EXPECT_EQ(firstAction, shownActions()[0]);
    EXPECT_EQ(thirdAction, shownActions()[1]);

    add("Fourth");
    EXPECT_EQ(monitorLines(), QStringList({u"First"_s, u"Third"_s, u"Fourth"_s}));
    EXPECT_EQ(thirdAction, shownActions()[1]);
}

TEST_F(StatusBarMenuTest, DeletingTheLastMonitorShowsNoMonitors)
{
    const Monitor shop = add("Shop");
    samples.store.deleteMonitor(shop.id);
    EXPECT_EQ(lines(), QStringList(u"No monitors"_s) + commands);
}

TEST_F(StatusBarMenuTest, TwoMonitorsOfOneIdAreTwoEntries)
{
    const Monitor shop = add("Shop");
    Monitor twin = shop;
    twin.name = u"Twin"_s;
    samples.store.addMonitor(twin);
    EXPECT_EQ(monitorLines(), QStringList({u"Shop"_s, u"Twin"_s}));
    samples.store.deleteMonitor(shop.id);
    EXPECT_EQ(lines(), QStringList(u"No monitors"_s) + commands);
}

TEST_F(StatusBarMenuTest, CommandsRequestTheirActions)
{
    QSignalSpy help(&menu, &StatusBarMenu::helpRequested);
    QSignalSpy open(&menu, &StatusBarMenu::openRequested);
    QSignalSpy quit(&menu, &StatusBarMenu::quitRequested);
    const QList<QAction *> shown = shownActions();
    shown[2]->trigger();
    EXPECT_EQ(help.count(), 1);
    shown[3]->trigger();
    EXPECT_EQ(open.count(), 1);
    shown[5]->trigger();
    EXPECT_EQ(quit.count(), 1);
}

TEST_F(StatusBarMenuTest, OpenAndQuitHaveShortcuts)
{
    const QList<QAction *> shown = shownActions();
    EXPECT_TRUE(shown[2]->shortcut().isEmpty());
    EXPECT_EQ(shown[3]->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_O));
    EXPECT_EQ(shown[5]->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Q));
}

} // namespace ostrel::test

#include "Printers.h"
#include "ThemeView.h"
#include "WaitFor.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

struct ControlCase
{
    const char *name;
    const char *qml; ///< Without its closing brace.
    QAccessible::Role role;
    const char *spokenName;
    double height;
};

class PressableTest : public testing::TestWithParam<ControlCase>
{
protected:
    ThemeView view{QByteArray(GetParam().qml) + "; objectName: 'subject' }"};
};

const ControlCase pressables[] = {
    {"IconButton", "IconButton { symbol: 'gearshape'; helpText: 'Edit monitor'",
     QAccessible::Button, "Edit monitor", 32},
    {"TextButton", "TextButton { text: 'Cancel'", QAccessible::Button, "Cancel", 34},
    {"QuietButton", "QuietButton { text: 'Reveal in Finder'", QAccessible::Button,
     "Reveal in Finder", 28},
    {"Pill", "PillButtonStyle { text: 'Add Monitor'; symbol: 'plus'", QAccessible::Button,
     "Add Monitor", 44},
    {"Confirm", "ConfirmButton { text: 'Save'", QAccessible::Button, "Save", 34},
    {"Tile", "Tile { text: 'Website'; symbol: 'globe'", QAccessible::RadioButton, "Website", 32},
    {"Chip", "Chip { text: '5m'", QAccessible::RadioButton, "5m", 26},
    {"Toggle", "Toggle { spokenName: 'Launch at Login'", QAccessible::CheckBox, "Launch at Login",
     20},
};

std::string nameOf(const testing::TestParamInfo<ControlCase> &info)
{
    return info.param.name;
}

} // namespace

TEST_P(PressableTest, HasRoleNameAndHeight)
{
    ASSERT_EQ(view.error(), QString());
    QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(view.item());
    ASSERT_TRUE(spoken);

    EXPECT_EQ(spoken->role(), GetParam().role);
    EXPECT_EQ(spoken->text(QAccessible::Name), QLatin1String(GetParam().spokenName));
    EXPECT_TRUE(spoken->state().focusable);
    EXPECT_EQ(view.item()->height(), GetParam().height);
}

TEST_P(PressableTest, IsPressedByMouseAndSpaceAndUnlessItIsAChoiceByReturnAndEnter)
{
    ASSERT_EQ(view.error(), QString());
    QSignalSpy clicked(view.item(), SIGNAL(clicked()));
    view.item()->forceActiveFocus(Qt::TabFocusReason);

    QTest::mouseClick(&view.window(), Qt::LeftButton, {}, ThemeView::middleOf(*view.item()));
    EXPECT_EQ(clicked.count(), 1);
    QTest::keyClick(&view.window(), Qt::Key_Space);
    EXPECT_EQ(clicked.count(), 2);
    const int ofReturn = GetParam().role == QAccessible::RadioButton ? 0 : 1;
    QTest::keyClick(&view.window(), Qt::Key_Return);
    EXPECT_EQ(clicked.count(), 2 + ofReturn);
    QTest::keyClick(&view.window(), Qt::Key_Enter);
    EXPECT_EQ(clicked.count(), 2 + 2 * ofReturn);
}

TEST_P(PressableTest, IsPressedByAnAssistiveTool)
{
    ASSERT_EQ(view.error(), QString());
    QSignalSpy clicked(view.item(), SIGNAL(clicked()));
    QAccessibleActionInterface *actions =
        QAccessible::queryAccessibleInterface(view.item())->actionInterface();
    ASSERT_TRUE(actions);
    const QString press = GetParam().role == QAccessible::CheckBox
                              ? QAccessibleActionInterface::toggleAction()
                              : QAccessibleActionInterface::pressAction();
    QStringList offered = actions->actionNames();
    offered.sort();
    QStringList expected = {QAccessibleActionInterface::pressAction(),
                            QAccessibleActionInterface::setFocusAction()};
    if (GetParam().role != QAccessible::Button)
        expected += QAccessibleActionInterface::toggleAction();
    EXPECT_EQ(offered, expected);

    actions->doAction(press);

    EXPECT_EQ(clicked.count(), 1);
}

TEST_P(PressableTest, DisabledItIgnoresPressesAndIsPale)
{
    ASSERT_EQ(view.error(), QString());
    QSignalSpy clicked(view.item(), SIGNAL(clicked()));

    view.setProperty("enabled", false);
    QTest::mouseClick(&view.window(), Qt::LeftButton, {}, ThemeView::middleOf(*view.item()));
    QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(view.item());
    spoken->actionInterface()->doAction(QAccessibleActionInterface::pressAction());

    EXPECT_EQ(clicked.count(), 0);
    EXPECT_EQ(spoken->text(QAccessible::Description), u"Unavailable"_s);
    const bool pales = QByteArray(GetParam().name) == "Confirm";
    EXPECT_DOUBLE_EQ(view.item()->opacity(), pales ? 1.0 : 0.4);
}

TEST_P(PressableTest, ShowsItsFocusRingToTheKeyboardOnly)
{
    ASSERT_EQ(view.error(), QString());
    view.item()->forceActiveFocus(Qt::MouseFocusReason);
    EXPECT_EQ(view.property("showsFocus"), QVariant(false));

    view.item()->setFocus(false);
    view.item()->forceActiveFocus(Qt::TabFocusReason);

    EXPECT_EQ(view.property("showsFocus"), QVariant(true));
    const QColor ring = laidOver(view.themeColor("background"), view.themeColor("accent"), 0.6);
    EXPECT_TRUE(looksLike(view.colorAt({view.item()->width() / 2, -3}), ring));
    EXPECT_TRUE(
        looksLike(view.colorAt({view.item()->width() / 2, -1}), view.themeColor("background")));
}

INSTANTIATE_TEST_SUITE_P(Controls, PressableTest, testing::ValuesIn(pressables), nameOf);

TEST(BaseButtonTest, IsPressedIfThePointerIsReleasedInside)
{
    ThemeView view("BaseButton { objectName: 'subject'; width: 80; height: 32 }");
    ASSERT_EQ(view.error(), QString());
    QSignalSpy clicked(view.item(), SIGNAL(clicked()));
    const QPoint inside = ThemeView::middleOf(*view.item());
    const QPoint outside = inside + QPoint(0, 40);

    QTest::mousePress(&view.window(), Qt::LeftButton, {}, inside);
    EXPECT_EQ(view.property("down"), QVariant(true));
    QTest::mouseMove(&view.window(), outside);
    EXPECT_EQ(view.property("down"), QVariant(false));
    QTest::mouseRelease(&view.window(), Qt::LeftButton, {}, outside);
    EXPECT_EQ(clicked.count(), 0);

    QTest::mousePress(&view.window(), Qt::LeftButton, {}, inside);
    QTest::mouseMove(&view.window(), outside);
    QTest::mouseMove(&view.window(), inside);
    EXPECT_EQ(view.property("down"), QVariant(true));
    QTest::mouseRelease(&view.window(), Qt::LeftButton, {}, inside);
    EXPECT_EQ(clicked.count(), 1);
    EXPECT_EQ(view.property("down"), QVariant(false));
    EXPECT_FALSE(view.item()->hasActiveFocus()) << "a click doesn't take the keyboard";
}

TEST(BaseButtonTest, ADoubleClickIsTwoPressesAndOtherButtonsAreIgnored)
{
    ThemeView view("BaseButton { objectName: 'subject'; width: 80; height: 32 }");
    QSignalSpy clicked(view.item(), SIGNAL(clicked()));
    const QPoint middle = ThemeView::middleOf(*view.item());

    QTest::mouseClick(&view.window(), Qt::RightButton, {}, middle);
    EXPECT_EQ(clicked.count(), 0);
    QTest::mouseDClick(&view.window(), Qt::LeftButton, {}, middle);
    EXPECT_EQ(clicked.count(), 2);
}

TEST(BaseButtonTest, AHeldKeyPressesOnce)
{
    ThemeView view("BaseButton { objectName: 'subject'; width: 80; height: 32 }");
    QSignalSpy clicked(view.item(), SIGNAL(clicked()));
    view.item()->forceActiveFocus(Qt::TabFocusReason);

    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space}) {
        clicked.clear();
        QTest::keyPress(&view.window(), key);
        for (int repeat = 0; repeat < 3; ++repeat) {
            QKeyEvent release(QEvent::KeyRelease, key, {}, QString(), true);
            QCoreApplication::sendEvent(&view.window(), &release);
            QKeyEvent press(QEvent::KeyPress, key, {}, QString(), true);
            QCoreApplication::sendEvent(&view.window(), &press);
        }
        QTest::keyRelease(&view.window(), key);
        EXPECT_EQ(clicked.count(), 1) << key;
    }
}

TEST(BaseButtonTest, LosingThePointerOrTheFocusCancelsThePress)
{
    ThemeView view("BaseButton { objectName: 'subject'; width: 80; height: 32 }");
    QSignalSpy clicked(view.item(), SIGNAL(clicked()));
    const QPoint middle = ThemeView::middleOf(*view.item());

    view.item()->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyPress(&view.window(), Qt::Key_Space);
    EXPECT_EQ(view.property("down"), QVariant(true));
    view.item()->setFocus(false);
    EXPECT_EQ(view.property("down"), QVariant(false));
    QTest::keyRelease(&view.window(), Qt::Key_Space);

    QTest::mousePress(&view.window(), Qt::LeftButton, {}, middle);
    view.item()->ungrabMouse();
    EXPECT_EQ(view.property("down"), QVariant(false));
    QTest::mouseRelease(&view.window(), Qt::LeftButton, {}, middle);

    QTest::mousePress(&view.window(), Qt::LeftButton, {}, middle);
    view.setProperty("enabled", false);
    EXPECT_EQ(view.property("down"), QVariant(false));
    QTest::mouseRelease(&view.window(), Qt::LeftButton, {}, middle);
    EXPECT_EQ(clicked.count(), 0);
}

TEST(BaseButtonTest, ShowsHoverUntilItIsDisabled)
{
    ThemeView view("BaseButton { objectName: 'subject'; width: 80; height: 32 }");
    QTest::mouseMove(&view.window(), ThemeView::middleOf(*view.item()) + QPoint(0, 60));
    EXPECT_EQ(view.property("showsHover"), QVariant(false));
    QTest::mouseMove(&view.window(), ThemeView::middleOf(*view.item()));
    EXPECT_TRUE(waitFor([&] { return view.property("showsHover").toBool(); }));

    view.setProperty("enabled", false);

    EXPECT_EQ(view.property("showsHover"), QVariant(false));
}

TEST(BaseButtonTest, LaysItsContentsOutBetweenItsPaddings)
{
    ThemeView view("BaseButton { objectName: 'subject'; width: 80; height: 32\n"
                   "horizontalPadding: 12; verticalPadding: 4\n"
                   "contentItem: Item {} background: Item {} }");
    ASSERT_EQ(view.error(), QString());
    const auto *content = view.property("contentItem").value<QQuickItem *>();
    const auto *background = view.property("background").value<QQuickItem *>();
    const auto boxOf = [](const QQuickItem &item) { return QRectF(item.position(), item.size()); };
    EXPECT_EQ(boxOf(*content), QRectF(12, 4, 56, 24));
    EXPECT_EQ(boxOf(*background), QRectF(0, 0, 80, 32));

    view.setProperty("width", 20);

    EXPECT_EQ(boxOf(*content), QRectF(12, 4, 0, 24));
    EXPECT_EQ(boxOf(*background), QRectF(0, 0, 20, 32));
}

TEST(ToggleTest, SwitchesAndReportsItsState)
{
    ThemeView view("Toggle { objectName: 'subject'; spokenName: 'Launch at Login' }");
    view.item()->forceActiveFocus(Qt::TabFocusReason);
    const auto isChecked = [&] {
        return QAccessible::queryAccessibleInterface(view.item())->state().checked;
    };
    EXPECT_FALSE(isChecked());

    QTest::keyClick(&view.window(), Qt::Key_Space);
    EXPECT_TRUE(isChecked());
    QTest::keyClick(&view.window(), Qt::Key_Return);
    EXPECT_FALSE(isChecked());
    QTest::mouseClick(&view.window(), Qt::LeftButton, {}, ThemeView::middleOf(*view.item()));
    EXPECT_TRUE(isChecked());
    EXPECT_TRUE(waitFor([&] {
        return looksLike(view.colorAt({6, 10}), view.themeColor("accent"));
    }));
}

class ChoiceMotionTest : public testing::TestWithParam<const char *>
{
protected:
    /// The colours of the fill, the edge and the label.
    [[nodiscard]] std::array<QColor, 3> colors() const
    {
        const auto *box = view.property("background").value<QQuickItem *>();
        const auto *label = view.property("contentItem").value<QQuickItem *>();
        return {box->property("color").value<QColor>(), box->property("edge").value<QColor>(),
                label->property("color").value<QColor>()};
    }
    [[nodiscard]] static bool looksLike(const std::array<QColor, 3> &left,
                                        const std::array<QColor, 3> &right)
    {
        return std::equal(left.begin(), left.end(), right.begin(), test::looksLike);
    }
    [[nodiscard]] std::array<QColor, 3> selectedColors()
    {
        return {view.themeColor("accent"), view.themeColor("none"), view.themeColor("accentText")};
    }

    ThemeView view{QByteArray(GetParam()) + " { objectName: 'subject'; text: '5m' }"};
};

TEST_P(ChoiceMotionTest, FillEdgeAndLabelReachTheirColoursTogether)
{
    ASSERT_EQ(view.error(), QString());
    const auto before = colors();
    view.setProperty("isSelected", true);
    EXPECT_TRUE(looksLike(colors(), before)) << "nothing jumps";
    EXPECT_TRUE(waitFor([&] { return looksLike(colors(), selectedColors()); }));
}

TEST_P(ChoiceMotionTest, WithReducedMotionTheColoursChangeAtOnce)
{
    view.reduceMotion();
    view.setProperty("isSelected", true);
    EXPECT_TRUE(looksLike(colors(), selectedColors()));
}

INSTANTIATE_TEST_SUITE_P(Choices, ChoiceMotionTest, testing::Values("Tile", "Chip"),
                         [](const auto &test) { return std::string(test.param); });

TEST(ColorMotionTest, EasesInAndOutIn150MillisecondsOrNotAtAll)
{
    ThemeView view("property ColorAnimation motion: ColorMotion {}");
    ASSERT_EQ(view.error(), QString());
    EXPECT_EQ(view.evaluate(u"motion.duration"_s), 150);
    EXPECT_EQ(view.evaluate(u"motion.easing.type === Easing.InOutQuad"_s), true);
    view.reduceMotion();
    EXPECT_EQ(view.evaluate(u"motion.duration"_s), 0);
}

TEST(ChipTest, ASelectedChipIsFilledAndReportsItsState)
{
    ThemeView view("Chip { objectName: 'subject'; text: '5m' }");
    EXPECT_FALSE(QAccessible::queryAccessibleInterface(view.item())->state().checked);

    view.setProperty("isSelected", true);

    EXPECT_TRUE(QAccessible::queryAccessibleInterface(view.item())->state().checked);
    EXPECT_TRUE(waitFor([&] {
        return looksLike(view.colorAt({6, 13}), view.themeColor("accent"));
    }));
}

TEST(FieldTest, ReportsItsNameAndAcceptsText)
{
    ThemeView view("Field { objectName: 'subject'; spokenName: 'Address'; "
                   "placeholderText: 'https://yoursite.example' }");
    ASSERT_EQ(view.error(), QString());
    view.item()->forceActiveFocus(Qt::TabFocusReason);

    QTest::keyClick(&view.window(), Qt::Key_A);

    EXPECT_EQ(view.property("text"), QVariant(u"a"_s));
    QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(view.item());
    EXPECT_EQ(spoken->role(), QAccessible::EditableText);
    EXPECT_EQ(spoken->text(QAccessible::Name), u"Address"_s);
}

TEST(FieldTest, FocusIsAnEdgeOfTwoPixelsInside)
{
    ThemeView view("Field { objectName: 'subject'; spokenName: 'Address' }");
    const QColor surface = view.themeColor("surface");
    const QColor accent = view.themeColor("accent");
    EXPECT_TRUE(looksLike(view.colorAt({60, 0.5}), laidOver(surface, accent, 0.14)));
    EXPECT_TRUE(looksLike(view.colorAt({60, 1.5}), surface));

    view.item()->forceActiveFocus(Qt::TabFocusReason);

    EXPECT_TRUE(looksLike(view.colorAt({60, 0.5}), laidOver(surface, accent, 0.6)));
    EXPECT_TRUE(looksLike(view.colorAt({60, 1.5}), laidOver(surface, accent, 0.6)));
    EXPECT_TRUE(looksLike(view.colorAt({60, -1}), view.themeColor("background")));
}

TEST(FieldTest, ALongTextShowsItsBeginningOutOfFocus)
{
    ThemeView view("Field { objectName: 'subject'; spokenName: 'Address'; width: 80; "
                   "text: 'https://bakery.example/order' }");

    EXPECT_GE(view.evaluate(u"children[0].positionToRectangle(0).x"_s).toDouble(), 0);
}

TEST(PickerTest, ShowsItsChoiceAndChangesItFromTheKeyboard)
{
    ThemeView view("Picker { objectName: 'subject'; spokenName: 'Keyword'; "
                   "model: ['Must exist', 'Must not exist'] }");
    ASSERT_EQ(view.error(), QString());
    EXPECT_EQ(view.property("displayText"), QVariant(u"Must exist"_s));
    QSignalSpy activated(view.item(), SIGNAL(activated(int)));
    view.item()->forceActiveFocus(Qt::TabFocusReason);

    QTest::keyClick(&view.window(), Qt::Key_Down);

    EXPECT_EQ(view.property("displayText"), QVariant(u"Must not exist"_s));
    EXPECT_EQ(activated.count(), 1);
    QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(view.item());
    EXPECT_EQ(spoken->role(), QAccessible::ComboBox);
    EXPECT_EQ(spoken->text(QAccessible::Name), u"Keyword"_s);
}

TEST(PickerTest, AClickedRowIsTheChoice)
{
    ThemeView view("Picker { objectName: 'subject'; spokenName: 'Keyword'; "
                   "model: ['Must exist', 'Must not exist'] }");
    QSignalSpy activated(view.item(), SIGNAL(activated(int)));
    QTest::mouseClick(&view.window(), Qt::LeftButton, {}, ThemeView::middleOf(*view.item()));
    ASSERT_TRUE(waitFor([&] { return view.evaluate(u"children[0].popup.opened"_s).toBool(); }));

    const QPointF secondRow = view.item()->mapToScene({40, 34 + 4 + 4 + 28 + 14});
    QTest::mouseClick(&view.window(), Qt::LeftButton, {}, secondRow.toPoint());

    EXPECT_EQ(view.property("currentIndex"), QVariant(1));
    EXPECT_EQ(activated.count(), 1);
    EXPECT_TRUE(waitFor([&] { return !view.evaluate(u"children[0].popup.visible"_s).toBool(); }));
}

TEST(SegmentedPickerTest, IsChosenByMouseAndArrows)
{
    ThemeView view("SegmentedPicker { objectName: 'subject'; spokenName: 'Method'; "
                   "choices: ['GET', 'HEAD', 'POST'] }");
    ASSERT_EQ(view.error(), QString());
    QSignalSpy activated(view.item(), SIGNAL(activated(int)));
    EXPECT_EQ(view.item()->height(), 28);

    const QPoint last = view.item()->mapToScene({view.item()->width() - 12, 14}).toPoint();
    QTest::mouseClick(&view.window(), Qt::LeftButton, {}, last);
    EXPECT_EQ(view.property("currentIndex"), QVariant(2));

    QTest::keyClick(&view.window(), Qt::Key_Tab);
    QTest::keyClick(&view.window(), Qt::Key_Left);
    EXPECT_EQ(view.property("currentIndex"), QVariant(1));
    QTest::keyClick(&view.window(), Qt::Key_Left);
    QTest::keyClick(&view.window(), Qt::Key_Left);
    EXPECT_EQ(view.property("currentIndex"), QVariant(0));
    EXPECT_EQ(activated.count(), 3);
}

TEST(ContextMenuTest, OpensWithItsRowsAndRunsThem)
{
    ThemeView view("ContextMenu { id: menu; title: 'Shop'\n"
                   "ContextMenuItem { text: 'Check Now'; symbol: 'arrow.trianglehead.clockwise'\n"
                   "onTriggered: root.objectName = 'checked' }\n"
                   "ContextMenuItem { text: 'Delete'; symbol: 'trash'; isDestructive: true }\n"
                   "}\n"
                   "Item { objectName: 'subject'; function open() { menu.popup(root, 0, 0) } }");
    ASSERT_EQ(view.error(), QString());
    QMetaObject::invokeMethod(view.item(), "open");
    ASSERT_TRUE(waitFor([&] { return view.evaluate(u"menu.opened"_s).toBool(); }));
    EXPECT_EQ(view.evaluate(u"menu.height"_s), QVariant(2 * 28.0 + 8));
    EXPECT_EQ(view.evaluate(u"menu.itemAt(1).labelColor"_s).value<QColor>(),
              view.themeColor("statusDown"));

    QTest::keyClick(&view.window(), Qt::Key_Down);
    QTest::keyClick(&view.window(), Qt::Key_Return);

    EXPECT_EQ(view.evaluate(u"root.objectName"_s), QVariant(u"checked"_s));
}

TEST(QuietTextTest, ANameFromRightToLeftBeginsAtTheLeft)
{
    ThemeView view(QByteArray("QuietText { objectName: 'subject'; width: 200; text: '") +
                   QByteArray("\xd9\x85\xd8\xaa\xd8\xac\xd8\xb1") + "' }");
    ASSERT_EQ(view.error(), QString());
    EXPECT_EQ(view.property("effectiveHorizontalAlignment").toInt(), int(Qt::AlignLeft));
}

TEST(FieldTest, TabSelectsItsTextAndAClickDoesNot)
{
    ThemeView view("Field { objectName: 'subject'; width: 200; spokenName: 'Name'; text: 'Shop' }\n"
                   "Field { id: other; y: 40; width: 200; spokenName: 'Other'; text: 'Bakery' }");
    ASSERT_EQ(view.error(), QString());
    view.item()->forceActiveFocus(Qt::OtherFocusReason);
    QTest::keyClick(&view.window(), Qt::Key_Tab);
    EXPECT_EQ(view.evaluate(u"other.selectedText"_s), QVariant(u"Bakery"_s));
    QTest::keyClick(&view.window(), Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(view.evaluate(u"other.selectedText"_s), QVariant(QString()));
    EXPECT_EQ(view.property("selectedText"), QVariant(u"Shop"_s));

    QTest::keyClick(&view.window(), Qt::Key_Tab);
    QTest::mouseClick(&view.window(), Qt::LeftButton, {}, ThemeView::middleOf(*view.item()));
    EXPECT_EQ(view.property("selectedText"), QVariant(QString()));
}

TEST(FieldTest, ItsMenuWorksOnTheSelection)
{
    ThemeView view("Field { objectName: 'subject'; width: 200; height: 34; spokenName: 'Name'\n"
                   "text: 'Shop'; property int edits: 0; onTextEdited: ++edits }");
    ASSERT_EQ(view.error(), QString());
    const auto menuIsOpen = [&] {
        return view.evaluate(u"root.children[0].menu.opened"_s).toBool();
    };
    const auto choose = [&](int place) {
        (void)view.evaluate(u"root.children[0].menu.itemAt(%1).clicked()"_s.arg(place));
        EXPECT_TRUE(waitFor([&] { return !menuIsOpen(); }));
    };
    view.item()->forceActiveFocus(Qt::TabFocusReason);
    ASSERT_EQ(view.property("selectedText"), QVariant(u"Shop"_s));

    QTest::mouseClick(&view.window(), Qt::RightButton, {}, ThemeView::middleOf(*view.item()));
    ASSERT_TRUE(waitFor(menuIsOpen));
    EXPECT_EQ(view.property("selectedText"), QVariant(u"Shop"_s)) << "the menu works on it";
    choose(4); // Delete
    EXPECT_EQ(view.property("text").toString(), QString());
    EXPECT_EQ(view.property("edits").toInt(), 1) << "the form hears of it";

    EXPECT_TRUE(view.item()->hasActiveFocus());
    QTest::keyClick(&view.window(), Qt::Key_F10, Qt::ShiftModifier);
    ASSERT_TRUE(waitFor(menuIsOpen));
    choose(0); // Undo
    EXPECT_EQ(view.property("text").toString(), u"Shop"_s);
}

TEST(KeyboardItemTest, HasTheRoleThatItIsGiven)
{
    ThemeView view("KeyboardItem { objectName: 'subject'; Accessible.role: Accessible.Splitter; "
                   "Accessible.name: 'Sidebar width' }");
    ASSERT_EQ(view.error(), QString());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(view.item())->role(), QAccessible::Splitter);
}

TEST(KeyboardItemTest, ShowsFocusThatCameByKeysEvenAfterAPopup)
{
    ThemeView view("KeyboardItem { objectName: 'subject' }");
    const struct
    {
        Qt::FocusReason reason;
        bool isShown;
    } ways[] = {{Qt::MouseFocusReason, false}, {Qt::PopupFocusReason, false},
                {Qt::TabFocusReason, true},    {Qt::PopupFocusReason, true},
                {Qt::MouseFocusReason, false}, {Qt::BacktabFocusReason, true}};
    for (const auto &[reason, isShown] : ways) {
        view.item()->forceActiveFocus(reason);
        EXPECT_EQ(view.property("visualFocus"), QVariant(isShown)) << reason;
        view.item()->setFocus(false);
        EXPECT_EQ(view.property("visualFocus"), QVariant(false)) << reason;
    }
}

TEST(HelpTextTest, AppearsOnlyAfterADelay)
{
    ThemeView view("Item { objectName: 'subject'; property int delay: help.delay; "
                   "HelpText { id: help; text: 'Edit monitor' } }");

    EXPECT_EQ(view.property("delay"), QVariant(600));
}

TEST(PendingRingTest, TurnsOnlyWhileItCanBeSeen)
{
    ThemeView view("PendingRing { objectName: 'subject' }");
    ASSERT_EQ(view.error(), QString());
    EXPECT_EQ(view.item()->width(), 14);
    EXPECT_TRUE(waitFor([&] { return view.property("isTurning").toBool(); }));
    EXPECT_TRUE(waitFor([&] { return view.property("angle").toDouble() > 0; }));

    view.window().hide();
    EXPECT_TRUE(waitFor([&] { return !view.property("isTurning").toBool(); }));

    view.window().show();
    EXPECT_TRUE(waitFor([&] { return view.property("isTurning").toBool(); }));
    view.reduceMotion();
    EXPECT_EQ(view.property("isTurning"), QVariant(false));
}

TEST(PageScrollBarTest, DisappearsAWhileAfterTheLastScroll)
{
    ThemeView view("Flickable { id: page; width: 100; height: 200; contentHeight: 400 }\n"
                   "PageScrollBar { objectName: 'subject'; page: page; height: 200 }");
    ASSERT_EQ(view.error(), QString());
    EXPECT_TRUE(waitFor([&] { return view.item()->opacity() == 0; }));

    (void)view.evaluate(u"page.contentY = 40"_s);

    EXPECT_TRUE(waitFor([&] { return view.item()->opacity() == 1; }));
    EXPECT_TRUE(waitFor([&] { return view.item()->opacity() == 0; }));
}

TEST(PageScrollBarTest, DraggingItToItsEndsShowsThePageWithItsMargins)
{
    ThemeView view("Flickable { id: page; width: 100; height: 200; contentHeight: 400\n"
                   "topMargin: 20; bottomMargin: 30; contentY: -20 }\n"
                   "PageScrollBar { objectName: 'subject'; page: page }");
    (void)view.evaluate(u"page.contentY = 0"_s);
    const QPoint bar = view.item()->mapToScene({view.item()->width() / 2, 20}).toPoint();

    QTest::mousePress(&view.window(), Qt::LeftButton, {}, bar);
    QTest::mouseMove(&view.window(), bar + QPoint(0, 20));
    QTest::mouseMove(&view.window(), bar + QPoint(0, 180));
    EXPECT_EQ(view.evaluate(u"page.contentY"_s), QVariant(400.0 + 30 - 200));
    QTest::mouseMove(&view.window(), bar - QPoint(0, 40));
    EXPECT_EQ(view.evaluate(u"page.contentY"_s), QVariant(-20.0));
    QTest::mouseRelease(&view.window(), Qt::LeftButton, {}, bar);
}

} // namespace ostrel::test

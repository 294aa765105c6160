#include "Printers.h"
#include "ThemeView.h"
#include "WaitFor.h"

#include <QElapsedTimer>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

/// The help text that @p part or anything in it shows; empty if there is none.
QString helpIn(const QQuickItem &part)
{
    if (part.objectName() == u"helpText"_s && part.isVisible())
        return part.property("text").toString();
    QString help;
    for (const QQuickItem *child : part.childItems())
        help += helpIn(*child);
    return help;
}

class CutOffTest : public testing::Test
{
protected:
    void show(const QByteArray &body)
    {
        m_view = std::make_unique<ThemeView>(body);
        ASSERT_EQ(m_view->error(), QString());
    }
    [[nodiscard]] ThemeView &view() { return *m_view; }
    [[nodiscard]] QString help() { return helpIn(*view().window().contentItem()); }
    [[nodiscard]] bool comesToHelp(const QString &text)
    {
        return waitFor([&] { return help() == text; });
    }
    void pointAt(const char *name)
    {
        const QQuickItem *target = view().item(QString::fromLatin1(name));
        QTest::mouseMove(&view().window(), ThemeView::middleOf(*target));
    }
    /// By the Tab key.
    void focus(const char *name)
    {
        view().item(QString::fromLatin1(name))->forceActiveFocus(Qt::TabFocusReason);
    }

private:
    std::unique_ptr<ThemeView> m_view;
};

} // namespace

TEST_F(CutOffTest, ATextOfSeveralLinesTakesTheRoomOfOne)
{
    show(R"(ThemeText { objectName: 'subject'; width: 200; text: 'A\nB\r\nC\u2028D' })");
    EXPECT_EQ(view().property("lineCount"), 1);
    EXPECT_EQ(view().item()->height(), view().evaluate(u"ThemeFonts.lineBox(13)"_s));
    EXPECT_EQ(view().property("truncated"), true) << "it says that there is more";
}

TEST_F(CutOffTest, WhatIsCutOffShowsWholeUnderThePointer)
{
    show("ThemeText { objectName: 'long'; width: 60; text: 'A name that is too long' }"
         "ThemeText { objectName: 'short'; y: 100; width: 60; text: 'Shop' }");
    pointAt("long");
    EXPECT_TRUE(comesToHelp(u"A name that is too long"_s));
    pointAt("short");
    EXPECT_TRUE(comesToHelp({}));
}

TEST_F(CutOffTest, ALongHelpTextTakesSeveralLines)
{
    show("ThemeText { objectName: 'long'; width: 60; text: 'long '.repeat(40) }");
    pointAt("long");
    ASSERT_TRUE(waitFor([&] { return !help().isEmpty(); }));
    const auto *text = view().item(u"long"_s)->findChild<QQuickItem *>(u"helpText"_s);
    ASSERT_TRUE(text);
    EXPECT_GT(text->property("lineCount").toInt(), 1);
    EXPECT_EQ(text->property("truncated"), false);
}

TEST_F(CutOffTest, AControlWithTheKeyboardFocusSaysWholeWhatIsCutOffInIt)
{
    show("QuietButton { objectName: 'long'; width: 60; text: 'A name that is too long' }"
         "QuietButton { objectName: 'short'; y: 100; text: 'Shop' }");
    focus("long");
    EXPECT_TRUE(comesToHelp(u"A name that is too long"_s));
    focus("short");
    EXPECT_TRUE(comesToHelp({}));
}

TEST_F(CutOffTest, TheTextsOfOneControlAreOneHelpText)
{
    show("Item { ThemeText { width: 60; text: 'A name that is too long' }"
         "  ThemeText { width: 60; text: 'Shop' }"
         "  ThemeText { width: 60; visible: false; text: 'A text that is hidden' }"
         "  ThemeText { width: 60; text: 'an address that is too long' }"
         "  FocusRing {} }");
    EXPECT_TRUE(comesToHelp(u"A name that is too long\nan address that is too long"_s));
}

TEST_F(CutOffTest, ASymbolButtonExplainsItselfToTheKeyboard)
{
    show("IconButton { objectName: 'edit'; symbol: 'gearshape'; helpText: 'Edit monitor' }"
         "IconButton { objectName: 'other'; y: 100; symbol: 'plus'; helpText: 'Add' }");
    QElapsedTimer rest;
    rest.start();
    focus("edit");
    EXPECT_TRUE(comesToHelp(u"Edit monitor"_s));
    EXPECT_GE(rest.elapsed(), 500) << "not at once";
    focus("other");
    EXPECT_TRUE(comesToHelp(u"Add"_s));
}

TEST_F(CutOffTest, AClickExplainsNothingOnceThePointerHasGone)
{
    show("IconButton { objectName: 'edit'; symbol: 'gearshape'; helpText: 'Edit monitor' }");
    pointAt("edit");
    QTest::mouseClick(&view().window(), Qt::LeftButton, {},
                      ThemeView::middleOf(*view().item(u"edit"_s)));
    QTest::mouseMove(&view().window(), {1, 1});
    EXPECT_TRUE(waitFor([&] { return !view().item(u"edit"_s)->property("hovered").toBool(); }));
    EXPECT_EQ(view().item(u"edit"_s)->property("wantsHelp"), false);
}

TEST_F(CutOffTest, EscapeStillReachesTheControlUnderAHelpText)
{
    show("property int escapes: 0\n"
         "IconButton { objectName: 'edit'; symbol: 'gearshape'; helpText: 'Edit monitor'; "
         "Keys.onEscapePressed: root.escapes += 1 }");
    focus("edit");
    ASSERT_TRUE(comesToHelp(u"Edit monitor"_s));
    QTest::keyClick(&view().window(), Qt::Key_Escape);
    EXPECT_EQ(view().evaluate(u"escapes"_s), 1);
}

} // namespace ostrel::test

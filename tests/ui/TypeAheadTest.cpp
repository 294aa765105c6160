#include "TypeAhead.h"

#include "WindowTest.h"

namespace ostrel::test {

namespace {

/// The user types while the sidebar's list has the keyboard.
class TypeAheadTest : public WindowTest
{
protected:
    void showNames(const QStringList &names)
    {
        for (const QString &name : names)
            samples.add(sampleMonitor(name));
        show();
    }
    void typeText(const QString &text, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::sendKeyEvent(QTest::Click, window, Qt::Key_unknown, text, modifiers);
    }
    void pause() { QTest::qWait(std::chrono::milliseconds(TypeAhead::pause).count() + 100); }
    [[nodiscard]] QString selected() const
    {
        return showsDashboard() ? u"(dashboard)"_s : pageName();
    }

    const QStringList towns = {u"Ghent"_s, u"Berlin"_s, u"Évora"_s, u"Bergen"_s, u"My Bruges"_s};
};

} // namespace

TEST_F(TypeAheadTest, ALetterSelectsTheNextMonitorThatBeginsWithIt)
{
    showNames(towns);
    type("b");
    EXPECT_EQ(selected(), u"Berlin"_s);
    pause();
    type("b");
    EXPECT_EQ(selected(), u"Bergen"_s);
    EXPECT_TRUE(row(3)->property("showsFocus").toBool());
}

TEST_F(TypeAheadTest, NeitherCaseNorAccentsMatter)
{
    showNames(towns);
    typeText(u"e"_s);
    EXPECT_EQ(selected(), u"Évora"_s);
    pause();
    typeText(u"Ğ"_s);
    EXPECT_EQ(selected(), u"Ghent"_s);
}

TEST_F(TypeAheadTest, FurtherLettersExtendTheBeginning)
{
    showNames(towns);
    type("berg");
    EXPECT_EQ(selected(), u"Bergen"_s);
    pause();
    type("berl");
    EXPECT_EQ(selected(), u"Berlin"_s);
    type("g");
    EXPECT_EQ(selected(), u"Berlin"_s) << "no name begins so";
    pause();
    type("g");
    EXPECT_EQ(selected(), u"Ghent"_s) << "after a pause, another beginning";
}

TEST_F(TypeAheadTest, ALetterRepeatedGoesOnAndAround)
{
    showNames(towns);
    for (const char *expected : {"Berlin", "Bergen", "Berlin"}) {
        type("b");
        EXPECT_EQ(selected(), QLatin1String(expected));
    }
    type("e");
    EXPECT_EQ(selected(), u"Berlin"_s) << "no name begins with bbbe";
}

TEST_F(TypeAheadTest, TheOnlyMatchStaysSelected)
{
    showNames(towns);
    type("gg");
    EXPECT_EQ(selected(), u"Ghent"_s);
}

TEST_F(TypeAheadTest, ASpaceIsPartOfANameButBeginsNone)
{
    showNames(towns);
    type(" ");
    EXPECT_EQ(selected(), u"(dashboard)"_s);
    type("my b");
    EXPECT_EQ(selected(), u"My Bruges"_s);
}

TEST_F(TypeAheadTest, KeysWithControlOrAltAndOtherKeysSelectNothing)
{
    showNames(towns);
    for (const Qt::KeyboardModifier modifier :
         {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier})
        typeText(u"g"_s, modifier);
    press(Qt::Key_Tab);
    EXPECT_EQ(selected(), u"(dashboard)"_s);
}

TEST_F(TypeAheadTest, LettersElsewhereSelectNothing)
{
    showNames(towns);
    item("addMonitor")->forceActiveFocus(Qt::TabFocusReason);
    type("g");
    EXPECT_EQ(selected(), u"(dashboard)"_s);
}

TEST_F(TypeAheadTest, WithoutMonitorsNothingIsFound)
{
    show();
    type("g");
    EXPECT_TRUE(showsDashboard());
}

} // namespace ostrel::test

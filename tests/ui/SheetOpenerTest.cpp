#include "SheetOpener.h"

#include "Printers.h"
#include "ScriptedEngine.h"

#include <QClipboard>
#include <QGuiApplication>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

class SheetOpenerTest : public testing::Test, protected FolderStore
{
protected:
    SheetOpenerTest() { QGuiApplication::clipboard()->setText(u" https://a.example/path\n"_s); }

    MonitorForm form{store};
    SheetOpener opener{store, form};
};

} // namespace

TEST_F(SheetOpenerTest, ANewMonitorIsOfferedTheClipboardsAddress)
{
    opener.beginCreate();
    EXPECT_EQ(form.title(), u"New Monitor"_s);
    EXPECT_EQ(form.clipboardURL(), u"https://a.example/path"_s);
}

TEST_F(SheetOpenerTest, AnEditedMonitorIsShownAsStored)
{
    const Monitor monitor = makeMonitor();
    store.addMonitor(monitor);
    EXPECT_TRUE(opener.beginEdit(monitor.id));
    EXPECT_EQ(form.title(), u"Edit Monitor"_s);
    EXPECT_EQ(form.url(), monitor.url);
}

TEST_F(SheetOpenerTest, AnUnknownMonitorIsNotEdited)
{
    EXPECT_FALSE(opener.beginEdit(QUuid::createUuid()));
    EXPECT_EQ(form.title(), u"New Monitor"_s);
}

} // namespace ostrel::test

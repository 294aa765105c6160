#include "SheetOpener.h"

#include "Printers.h"
#include "ScriptedEngine.h"

#include <QClipboard>
#include <QGuiApplication>

#include <gtest/gtest.h>

namespace ostrel::test {

namespace {

class SheetOpenerTest : public testing::Test, protected FolderStore
{
protected:
    SheetOpenerTest()
    {
        QGuiApplication::clipboard()->setText(QStringLiteral(" https://a.example/path\n"));
    }

    MonitorForm form{store};
    SheetOpener opener{store, form};
};

} // namespace

TEST_F(SheetOpenerTest, ANewMonitorIsOfferedTheClipboardsAddress)
{
    opener.beginCreate();
    EXPECT_EQ(form.title(), QStringLiteral("New Monitor"));
    EXPECT_EQ(form.clipboardURL(), QStringLiteral("https://a.example/path"));
}

TEST_F(SheetOpenerTest, AnEditedMonitorIsShownAsItIsStored)
{
    const Monitor monitor = makeMonitor();
    store.addMonitor(monitor);
    EXPECT_TRUE(opener.beginEdit(monitor.id));
    EXPECT_EQ(form.title(), QStringLiteral("Edit Monitor"));
    EXPECT_EQ(form.url(), monitor.url);
}

TEST_F(SheetOpenerTest, AnUnknownMonitorIsNotEdited)
{
    EXPECT_FALSE(opener.beginEdit(QUuid::createUuid()));
    EXPECT_EQ(form.title(), QStringLiteral("New Monitor"));
}

} // namespace ostrel::test

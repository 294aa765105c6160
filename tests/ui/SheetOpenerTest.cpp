#include "SheetOpener.h"

#include "EngineFakes.h"
#include "MonitorStore.h"
#include "MonitoringEngine.h"
#include "NotificationManager.h"
#include "Printers.h"
#include "WakeSignal.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace ostrel::test {

namespace {

class SheetOpenerTest : public testing::Test
{
protected:
    SheetOpenerTest()
    {
        QGuiApplication::clipboard()->setText(QStringLiteral(" https://a.example/path\n"));
    }

    QTemporaryDir folder;
    MonitorStore store{folder.filePath(QStringLiteral("data"))};
    ScriptedCheck check;
    RecordingNotificationCenter center;
    NotificationManager notifications{center};
    WakeSignal wakeSignal;
    ManualSleeper sleeper;
    MonitoringEngine engine{{store, check, check, notifications, wakeSignal, sleeper}};
    MonitorForm form{store, engine};
    SheetOpener opener{store, form};
};

} // namespace

TEST_F(SheetOpenerTest, ANewMonitorIsOfferedTheClipboardsAddress)
{
    opener.beginCreate();
    EXPECT_FALSE(form.isEditing());
    EXPECT_EQ(form.clipboardURL(), QStringLiteral("https://a.example/path"));
}

TEST_F(SheetOpenerTest, AnEditedMonitorIsShownAsItIsStored)
{
    const Monitor monitor = makeMonitor();
    store.addMonitor(monitor);
    EXPECT_TRUE(opener.beginEdit(monitor.id));
    EXPECT_TRUE(form.isEditing());
    EXPECT_EQ(form.url(), monitor.url);
}

TEST_F(SheetOpenerTest, AnUnknownMonitorIsNotEdited)
{
    EXPECT_FALSE(opener.beginEdit(QUuid::createUuid()));
    EXPECT_FALSE(form.isEditing());
}

} // namespace ostrel::test

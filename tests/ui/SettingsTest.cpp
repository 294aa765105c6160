#include "Settings.h"

#include "DesktopFakes.h"
#include "Printers.h"
#include "PrivatePreferences.h"
#include "WaitFor.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {
namespace {

class SettingsTest : public testing::Test
{
protected:
    /// The settings on disk.
    [[nodiscard]] QString stored() const
    {
        QFile file(preferences.folder.filePath(u"Ostrel/Ostrel.conf"_s));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    const PrivatePreferences preferences;
    RecordingLoginItem loginItem;
};

TEST_F(SettingsTest, AFreshSystemLaunchesNothingAndPlaysSounds)
{
    const Settings settings(loginItem);
    EXPECT_FALSE(settings.launchAtLogin());
    EXPECT_TRUE(settings.playSounds());
    EXPECT_EQ(stored(), QString());
}

TEST_F(SettingsTest, TheFirstDisplayDoesNotTouchTheLoginItem)
{
    {
        Settings settings(loginItem);
        settings.setLaunchAtLogin(true);
    }
    loginItem.calls.clear();
    const Settings reopened(loginItem);
    EXPECT_TRUE(reopened.launchAtLogin());
    EXPECT_EQ(loginItem.calls, QStringList());
}

TEST_F(SettingsTest, LaunchAtLoginPassesEveryChangeToTheDesktop)
{
    Settings settings(loginItem);
    for (const bool isOn : {false, true, true, false, false, true})
        settings.setLaunchAtLogin(isOn);
    EXPECT_EQ(loginItem.calls.join(u' '), u"unregister register unregister unregister register"_s);
}

TEST_F(SettingsTest, ARefusedRegistrationKeepsTheChoice)
{
    loginItem.isRefusing = true;
    Settings settings(loginItem);
    int changes = 0;
    QObject::connect(&settings, &Settings::launchAtLoginChanged, [&] { ++changes; });

    settings.setLaunchAtLogin(true);
    EXPECT_TRUE(settings.launchAtLogin());
    settings.setLaunchAtLogin(false);
    EXPECT_FALSE(settings.launchAtLogin());
    EXPECT_EQ(changes, 2);
}

TEST_F(SettingsTest, AChangeIsWrittenAtOnce)
{
    Settings settings(loginItem);
    settings.setLaunchAtLogin(true);
    EXPECT_TRUE(waitFor([this] { return stored().contains(u"launchAtLogin=true\n"_s); }));
    settings.setPlaySounds(false);
    EXPECT_TRUE(waitFor([this] { return stored().contains(u"playSounds=false\n"_s); }));
}

TEST_F(SettingsTest, PlaySoundsIsStoredAndNothingElse)
{
    Settings settings(loginItem);
    int changes = 0;
    QObject::connect(&settings, &Settings::playSoundsChanged, [&] { ++changes; });
    settings.setPlaySounds(true);
    settings.setPlaySounds(false);
    settings.setPlaySounds(false);

    EXPECT_EQ(changes, 1);
    EXPECT_FALSE(Settings(loginItem).playSounds());
    EXPECT_FALSE(settings.launchAtLogin());
    EXPECT_EQ(loginItem.calls, QStringList());
}

} // namespace
} // namespace ostrel::test

#include "FreedesktopPreferences.h"

#include "PrivateBus.h"
#include "WaitFor.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QMap>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using SettingGroups = QMap<QString, QVariantMap>;

namespace ostrel::test {

/// A desktop's portal with the settings that the test gives it.
class StubSettingsPortal : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    StubSettingsPortal(PrivateBus &bus, const SettingGroups &settings)
        : m_connection(bus.connect())
        , m_settings(settings)
    {
        qDBusRegisterMetaType<SettingGroups>();
        m_connection.registerObject(u"/org/freedesktop/portal/desktop"_s, this,
                                    QDBusConnection::ExportAllSlots);
        m_connection.registerService(u"org.freedesktop.portal.Desktop"_s);
    }
    ~StubSettingsPortal() override { QDBusConnection::disconnectFromBus(m_connection.name()); }

    void change(const QString &group, const QString &key, const QVariant &value)
    {
        tell(m_connection, {group, key, QVariant::fromValue(QDBusVariant(value))});
    }
    /// Tells of a change with other arguments than the protocol's.
    void changeBadly(const QVariantList &arguments) { tell(m_connection, arguments); }
    /// Sends the signal of a change from @p sender, which may be anyone.
    static void tell(const QDBusConnection &sender, const QVariantList &arguments)
    {
        QDBusMessage signal =
            QDBusMessage::createSignal(u"/org/freedesktop/portal/desktop"_s,
                                       u"org.freedesktop.portal.Settings"_s, u"SettingChanged"_s);
        signal.setArguments(arguments);
        sender.send(signal);
    }

    /// Returns when the bus has received everything that was sent.
    void awaitBus() { (void)m_connection.interface()->registeredServiceNames(); }

    QStringList asked;

public Q_SLOTS:
    // The protocol's name and arguments.
    QMap<QString, QVariantMap> ReadAll(const QStringList &groups)
    {
        asked = groups;
        return m_settings;
    }

private:
    QDBusConnection m_connection;
    SettingGroups m_settings;
};

namespace {

const QString gnome = u"org.gnome.desktop.interface"_s;
const QString enableAnimations = u"enable-animations"_s;
const QString kde = u"org.kde.kdeglobals.KDE"_s;
const QString durationFactor = u"AnimationDurationFactor"_s;
const QString appearance = u"org.freedesktop.appearance"_s;
const QString reducedMotion = u"reduced-motion"_s;

using Values = DesktopPreferences::Values;

struct SettingCase
{
    QString group;
    QString key;
    QVariant value;
    Values expected;
};

class SettingTest : public testing::TestWithParam<SettingCase>
{
};

} // namespace

TEST_P(SettingTest, IsReadAtTheStart)
{
    PrivateBus bus;
    const SettingCase &setting = GetParam();
    StubSettingsPortal portal(bus, {{setting.group, {{setting.key, setting.value}}}});
    QDBusConnection connection = bus.connect();
    FreedesktopPreferences preferences;
    preferences.follow(connection);
    ASSERT_TRUE(waitFor([&] { return !portal.asked.isEmpty(); }));
    EXPECT_TRUE(portal.asked.contains(setting.group));
    portal.awaitBus();
    // The bus delivers in order: the portal's answer comes before this one.
    (void)connection.interface()->registeredServiceNames();
    QCoreApplication::processEvents();
    EXPECT_EQ(preferences.values(), setting.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Motion, SettingTest,
    testing::Values(SettingCase{gnome, enableAnimations, false, {.isMotionReduced = true}},
                    SettingCase{gnome, enableAnimations, true, {}},
                    SettingCase{appearance, reducedMotion, 1U, {.isMotionReduced = true}},
                    SettingCase{appearance, reducedMotion, 0U, {}},
                    SettingCase{kde, durationFactor, u"0"_s, {.isMotionReduced = true}},
                    SettingCase{kde, durationFactor, u"0.5"_s, {}},
                    SettingCase{kde, durationFactor, u"quick"_s, {}},
                    SettingCase{kde, u"enable-animations"_s, false, {}}));

INSTANTIATE_TEST_SUITE_P(
    Contrast, SettingTest,
    testing::Values(SettingCase{appearance, u"contrast"_s, 1U, {.isContrastHigh = true}},
                    SettingCase{appearance, u"contrast"_s, 0U, {}},
                    SettingCase{appearance, u"contrast"_s, u"1"_s, {}},
                    SettingCase{u"org.gnome.desktop.a11y.interface"_s,
                                u"high-contrast"_s,
                                true,
                                {.isContrastHigh = true}}));

INSTANTIATE_TEST_SUITE_P(
    Clock, SettingTest,
    testing::Values(SettingCase{gnome, u"clock-format"_s, u"12h"_s, {.countsToTwelve = true}},
                    SettingCase{gnome, u"clock-format"_s, u"24h"_s, {.countsToTwelve = false}},
                    SettingCase{gnome, u"clock-format"_s, u"decimal"_s, {}},
                    SettingCase{gnome, u"clock-format"_s, 24, {}}));

TEST(FreedesktopPreferencesTest, FollowsTheDesktop)
{
    PrivateBus bus;
    StubSettingsPortal portal(bus, {{gnome, {{enableAnimations, false}}}});
    FreedesktopPreferences preferences;
    preferences.follow(bus.connect());
    int changes = 0;
    QObject::connect(&preferences, &DesktopPreferences::valuesChanged, [&] { ++changes; });
    ASSERT_TRUE(waitFor([&] { return preferences.values().isMotionReduced; }));
    portal.change(gnome, enableAnimations, true);
    EXPECT_TRUE(waitFor([&] { return !preferences.values().isMotionReduced; }));
    portal.change(appearance, reducedMotion, 1U);
    EXPECT_TRUE(waitFor([&] { return preferences.values().isMotionReduced; }));
    EXPECT_EQ(changes, 3);
}

TEST(FreedesktopPreferencesTest, FollowsNoOneElseAndNoOtherKindOfSignal)
{
    PrivateBus bus;
    StubSettingsPortal portal(bus, {{gnome, {{enableAnimations, false}}}});
    FreedesktopPreferences preferences;
    preferences.follow(bus.connect());
    ASSERT_TRUE(waitFor([&] { return preferences.values().isMotionReduced; }));
    int changes = 0;
    QObject::connect(&preferences, &DesktopPreferences::valuesChanged, [&] { ++changes; });
    const QVariant moves = QVariant::fromValue(QDBusVariant(true));
    QDBusConnection stranger = bus.connect();
    StubSettingsPortal::tell(stranger, {gnome, enableAnimations, moves});
    (void)stranger.interface()->registeredServiceNames();
    portal.changeBadly({gnome, enableAnimations, true});
    portal.changeBadly({gnome});
    portal.changeBadly({});
    portal.change(appearance, u"contrast"_s, 1U);
    EXPECT_TRUE(waitFor([&] { return preferences.values().isContrastHigh; }));
    EXPECT_TRUE(preferences.values().isMotionReduced);
    EXPECT_EQ(changes, 1);
}

TEST(FreedesktopPreferencesTest, HasTheDefaultsWithoutAPortalOrABus)
{
    PrivateBus bus;
    QDBusConnection connection = bus.connect();
    FreedesktopPreferences alone;
    alone.follow(connection);
    const FreedesktopPreferences busless;
    (void)connection.interface()->registeredServiceNames();
    QCoreApplication::processEvents();
    EXPECT_EQ(alone.values(), DesktopPreferences::Values());
    EXPECT_EQ(busless.values(), DesktopPreferences::Values());
}

} // namespace ostrel::test

#include "FreedesktopPreferencesTest.moc"

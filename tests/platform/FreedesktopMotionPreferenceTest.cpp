#include "FreedesktopMotionPreference.h"

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
        QDBusMessage signal =
            QDBusMessage::createSignal(u"/org/freedesktop/portal/desktop"_s,
                                       u"org.freedesktop.portal.Settings"_s, u"SettingChanged"_s);
        signal.setArguments({group, key, QVariant::fromValue(QDBusVariant(value))});
        m_connection.send(signal);
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

struct SettingCase
{
    QString group;
    QString key;
    QVariant value;
    bool isReduced;
};

class MotionSettingTest : public testing::TestWithParam<SettingCase>
{
};

} // namespace

TEST_P(MotionSettingTest, IsReadAtTheStart)
{
    PrivateBus bus;
    const SettingCase &setting = GetParam();
    StubSettingsPortal portal(bus, {{setting.group, {{setting.key, setting.value}}}});
    QDBusConnection connection = bus.connect();
    FreedesktopMotionPreference preference;
    preference.follow(connection);
    ASSERT_TRUE(waitFor([&] { return !portal.asked.isEmpty(); }));
    EXPECT_TRUE(portal.asked.contains(setting.group));
    portal.awaitBus();
    // The bus delivers in order: the portal's answer comes before this one.
    (void)connection.interface()->registeredServiceNames();
    QCoreApplication::processEvents();
    EXPECT_EQ(preference.isReduced(), setting.isReduced);
}

INSTANTIATE_TEST_SUITE_P(Desktops, MotionSettingTest,
                         testing::Values(SettingCase{gnome, enableAnimations, false, true},
                                         SettingCase{gnome, enableAnimations, true, false},
                                         SettingCase{appearance, reducedMotion, 1U, true},
                                         SettingCase{appearance, reducedMotion, 0U, false},
                                         SettingCase{kde, durationFactor, u"0"_s, true},
                                         SettingCase{kde, durationFactor, u"0.5"_s, false},
                                         SettingCase{kde, durationFactor, u"quick"_s, false},
                                         SettingCase{kde, u"enable-animations"_s, false, false}));

TEST(FreedesktopMotionPreferenceTest, FollowsTheDesktop)
{
    PrivateBus bus;
    StubSettingsPortal portal(bus, {{gnome, {{enableAnimations, false}}}});
    FreedesktopMotionPreference preference;
    preference.follow(bus.connect());
    int changes = 0;
    QObject::connect(&preference, &MotionPreference::isReducedChanged, [&] { ++changes; });
    ASSERT_TRUE(waitFor([&] { return preference.isReduced(); }));
    portal.change(gnome, enableAnimations, true);
    EXPECT_TRUE(waitFor([&] { return !preference.isReduced(); }));
    portal.change(appearance, reducedMotion, 1U);
    EXPECT_TRUE(waitFor([&] { return preference.isReduced(); }));
    EXPECT_EQ(changes, 3);
}

TEST(FreedesktopMotionPreferenceTest, IsNotReducedWithoutAPortalOrABus)
{
    PrivateBus bus;
    QDBusConnection connection = bus.connect();
    FreedesktopMotionPreference alone;
    alone.follow(connection);
    const FreedesktopMotionPreference busless;
    (void)connection.interface()->registeredServiceNames();
    QCoreApplication::processEvents();
    EXPECT_FALSE(alone.isReduced());
    EXPECT_FALSE(busless.isReduced());
}

} // namespace ostrel::test

#include "FreedesktopMotionPreferenceTest.moc"

#include "StatusBarItem.h"

#include "NotificationCenter.h"
#include "PresentationSamples.h"
#include "Printers.h"
#include "StatusBarHost.h"
#include "ThemeColors.h"
#include "WaitFor.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QPalette>
#include <QPixmap>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

class FakeHost : public StatusBarHost
{
public:
    [[nodiscard]] bool isAwaited() const override { return isComing; }
    [[nodiscard]] bool isSilent() const override { return isHanging; }
    [[nodiscard]] QString menuText(const QString &text) const override { return text; }
    [[nodiscard]] bool hasOurPalette() const override { return isOfOurToolkit; }

    bool isComing = false;
    bool isHanging = false;
    bool isOfOurToolkit = true;
};

QImage pictureOf(const QIcon &icon, int pixels)
{
    return icon.pixmap(pixels).toImage().convertToFormat(QImage::Format_ARGB32);
}

/// The colour at a point inside the bird's body.
QColor bodyColor(const QIcon &icon)
{
    const QImage picture = pictureOf(icon, 64);
    return picture.pixelColor(38, 46);
}

QColor red()
{
    return {ThemeColors::statusDown().rgb()};
}

QColor textColor()
{
    return QApplication::palette().color(QPalette::WindowText);
}

class StatusBarItemTest : public testing::Test
{
protected:
    ~StatusBarItemTest() override { QApplication::setPalette(QPalette()); }

    Monitor addDown()
    {
        const Monitor monitor = sampleMonitor();
        return samples.add(monitor, {downCheck(monitor, sampleNow() - 1min)});
    }

    SampleStore samples;
    FakeHost host;
    StatusBarItem item{samples.store, host};
};

} // namespace

TEST_F(StatusBarItemTest, WithoutMonitorsTheBirdIsPlain)
{
    EXPECT_EQ(bodyColor(item.icon()), textColor());
}

TEST_F(StatusBarItemTest, OneEnabledMonitorDownTurnsItRed)
{
    const Monitor up = sampleMonitor();
    samples.add(up, {upCheck(up, sampleNow())});
    EXPECT_EQ(bodyColor(item.icon()), textColor());
    const Monitor down = addDown();
    EXPECT_EQ(bodyColor(item.icon()), red());
    samples.store.addCheck(upCheck(down, sampleNow()));
    EXPECT_EQ(bodyColor(item.icon()), textColor());
}

TEST_F(StatusBarItemTest, APausedMonitorWhoseLastCheckWasDownDoesNotTurnItRed)
{
    Monitor monitor = addDown();
    monitor.isEnabled = false;
    samples.store.updateMonitor(monitor);
    EXPECT_EQ(bodyColor(item.icon()), textColor());
    monitor.isEnabled = true;
    samples.store.updateMonitor(monitor);
    EXPECT_EQ(bodyColor(item.icon()), red());
}

TEST_F(StatusBarItemTest, DeletingTheMonitorThatIsDownMakesItPlain)
{
    samples.store.deleteMonitor(addDown().id);
    EXPECT_EQ(bodyColor(item.icon()), textColor());
}

TEST_F(StatusBarItemTest, ItIsRedFromTheStartIfAMonitorIsDown)
{
    addDown();
    const StatusBarItem second(samples.store, host);
    EXPECT_EQ(bodyColor(second.icon()), red());
}

TEST_F(StatusBarItemTest, TheRedBirdHasThePlainOnesShape)
{
    QList<QImage> plain;
    const QList<int> sizes = {16, 22, 24, 32, 48, 64};
    for (const int size : sizes)
        plain += pictureOf(item.icon(), size).convertToFormat(QImage::Format_Alpha8);
    addDown();
    ASSERT_EQ(bodyColor(item.icon()), red());
    for (qsizetype i = 0; i < sizes.size(); ++i)
        EXPECT_EQ(pictureOf(item.icon(), sizes[i]).convertToFormat(QImage::Format_Alpha8), plain[i])
            << sizes[i];
}

TEST_F(StatusBarItemTest, ItComesInTheSizesOfStatusBars)
{
    QList<int> sizes;
    for (const QSize &size : item.icon().availableSizes()) {
        EXPECT_EQ(size.width(), size.height());
        sizes += size.width();
    }
    EXPECT_EQ(sizes, QList<int>({16, 22, 24, 32, 48, 64}));
}

TEST_F(StatusBarItemTest, TheBirdIsOnePixelFromTheEdgeAtEverySize)
{
    for (const int size : {16, 22, 24, 32, 48, 64}) {
        const QImage picture = pictureOf(item.icon(), size);
        ASSERT_EQ(picture.size(), QSize(size, size));
        int left = size;
        int right = -1;
        for (int y = 0; y < size; ++y) {
            for (int x = 0; x < size; ++x) {
                if (qAlpha(picture.pixel(x, y)) == 0)
                    continue;
                left = std::min(left, x);
                right = std::max(right, x);
                EXPECT_TRUE(y >= 1 && y < size - 1) << size;
            }
        }
        EXPECT_EQ(left, 1) << size;
        EXPECT_EQ(right, size - 2) << size;
    }
}

TEST_F(StatusBarItemTest, ThePlainBirdFollowsThePalette)
{
    QPalette dark;
    dark.setColor(QPalette::WindowText, QColor(0xf2, 0xf2, 0xf2));
    QApplication::setPalette(dark);
    QCoreApplication::processEvents();
    EXPECT_EQ(bodyColor(item.icon()), QColor(0xf2, 0xf2, 0xf2));
    addDown();
    EXPECT_EQ(bodyColor(item.icon()), red());
}

TEST_F(StatusBarItemTest, IfTheBarsColorIsUnknownADarkBirdIsReplacedByOneLegibleOnAnyGround)
{
    host.isOfOurToolkit = false;
    QPalette light;
    light.setColor(QPalette::WindowText, QColor(0x20, 0x20, 0x20));
    QApplication::setPalette(light);
    QCoreApplication::processEvents();
    EXPECT_EQ(bodyColor(item.icon()), QColor(ThemeColors::onAnyGround().rgb()));

    QPalette dark;
    dark.setColor(QPalette::WindowText, QColor(0xf2, 0xf2, 0xf2));
    QApplication::setPalette(dark);
    QCoreApplication::processEvents();
    EXPECT_EQ(bodyColor(item.icon()), QColor(0xf2, 0xf2, 0xf2)) << "bars beside dark windows";
}

TEST_F(StatusBarItemTest, JoinsAtOnceIfNoHostIsAwaited)
{
    item.show();
    EXPECT_TRUE(item.hasJoined());
}

TEST_F(StatusBarItemTest, ANotificationIsDroppedUntilItHasJoined)
{
    host.isComing = true;
    item.show();
    item.present({.identifier = u"down"_s, .title = u"Shop is Down"_s, .body = u"HTTP 503"_s});
    EXPECT_FALSE(item.hasJoined());
}

TEST_F(StatusBarItemTest, WaitsForAHostThatMayAppear)
{
    host.isComing = true;
    item.show();
    EXPECT_FALSE(item.hasJoined());
    Q_EMIT host.appeared();
    EXPECT_TRUE(item.hasJoined());
}

TEST_F(StatusBarItemTest, ToBeShownAgainChangesNothing)
{
    host.isComing = true;
    item.show();
    host.isComing = false;
    item.show();
    EXPECT_FALSE(item.hasJoined()) << "it still waits for the host to appear";
}

TEST_F(StatusBarItemTest, JoinsAfterAWhileIfNoHostAppears)
{
    host.isComing = true;
    StatusBarItem impatient(samples.store, host, 1ms);
    impatient.show();
    EXPECT_FALSE(impatient.hasJoined());
    EXPECT_TRUE(waitFor([&] { return impatient.hasJoined(); }));
}

TEST_F(StatusBarItemTest, WaitsForAHungHostWithoutATimeLimit)
{
    host.isComing = true;
    host.isHanging = true;
    StatusBarItem impatient(samples.store, host, 1ms);
    impatient.show();
    EXPECT_FALSE(waitFor([&] { return impatient.hasJoined(); }, 50ms));
    Q_EMIT host.appeared();
    EXPECT_TRUE(impatient.hasJoined());
}

TEST_F(StatusBarItemTest, IfAHungHostDisappearsTheTimeLimitAppliesAgain)
{
    host.isComing = true;
    host.isHanging = true;
    StatusBarItem impatient(samples.store, host, 1ms);
    impatient.show();
    ASSERT_FALSE(waitFor([&] { return impatient.hasJoined(); }, 50ms));
    host.isHanging = false;
    Q_EMIT host.disappeared();
    EXPECT_TRUE(waitFor([&] { return impatient.hasJoined(); }));
}

TEST_F(StatusBarItemTest, DoesNotJoinAHostThatAppearsBeforeItIsShown)
{
    Q_EMIT host.appeared();
    EXPECT_FALSE(item.hasJoined());
}

TEST_F(StatusBarItemTest, TheMenusSymbolsFollowThePalette)
{
    addDown();
    const auto symbolColor = [this] {
        // The left edge of the disc's middle.
        return pictureOf(item.menu().menu().actions().first()->icon(), 64).pixelColor(10, 32);
    };
    EXPECT_EQ(symbolColor(), textColor());
    QPalette dark;
    dark.setColor(QPalette::WindowText, QColor(0xf2, 0xf2, 0xf2));
    QApplication::setPalette(dark);
    QCoreApplication::processEvents();
    EXPECT_EQ(symbolColor(), QColor(0xf2, 0xf2, 0xf2));
}

TEST_F(StatusBarItemTest, OnlyAnInstalledPlainBirdHasItsSymbolicName)
{
    EXPECT_EQ(item.icon().name(), QString());

    const QTemporaryDir icons;
    const QString folder = icons.filePath(u"hicolor/scalable/apps"_s);
    ASSERT_TRUE(QDir().mkpath(folder));
    QFile theme(icons.filePath(u"hicolor/index.theme"_s));
    ASSERT_TRUE(theme.open(QIODevice::WriteOnly));
    theme.write("[Icon Theme]\nName=Hicolor\nDirectories=scalable/apps\n"
                "[scalable/apps]\nSize=16\nType=Scalable\nMinSize=8\nMaxSize=512\n");
    theme.close();
    ASSERT_TRUE(QFile::copy(u":/qt/qml/Ostrel/Theme/symbols/bird.fill.svg"_s,
                            folder + u"/ostrel-symbolic.svg"_s));
    const QStringList paths = QIcon::themeSearchPaths();
    QIcon::setThemeSearchPaths({icons.path()});
    QIcon::setThemeName(u"hicolor"_s);

    EXPECT_EQ(StatusBarItem(samples.store, host).icon().name(), u"ostrel-symbolic"_s);
    addDown();
    EXPECT_EQ(StatusBarItem(samples.store, host).icon().name(), QString());
    QIcon::setThemeSearchPaths(paths);
}

} // namespace ostrel::test

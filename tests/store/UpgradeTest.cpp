#include "MonitorStore.h"
#include "Printers.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

const auto samples = u"" OSTREL_UPGRADE_SAMPLES ""_s;
const QUuid shopId(u"01234567-89ab-cdef-0123-456789abcdef"_s);
const QUuid databaseId(u"fedcba98-7654-3210-fedc-ba9876543210"_s);

Monitor shop()
{
    Monitor monitor{.id = shopId, .name = u"Café"_s, .url = u"https://shop.example/"_s};
    monitor.notifyOnRecovery = false;
    monitor.createdAt = *parseTimestamp("2025-03-09T07:30:00Z");
    return monitor;
}

Monitor shopWithKeyword()
{
    Monitor monitor = shop();
    monitor.keyword = u"Welcome"_s;
    monitor.keywordShouldExist = false;
    return monitor;
}

Monitor shopWithEverything()
{
    Monitor monitor = shopWithKeyword();
    monitor.responseTimeThreshold = Milliseconds(1500);
    monitor.sslExpiryWarningDays = 30;
    return monitor;
}

Monitor database()
{
    Monitor monitor = shop();
    monitor.id = databaseId;
    monitor.name = u"Database"_s;
    monitor.url = u"db.example"_s;
    monitor.type = MonitorType::port;
    monitor.port = 5432;
    return monitor;
}

struct Version
{
    const char *folder;
    QList<Monitor> monitors;
    bool hasCertificates;
};

void PrintTo(const Version &version, std::ostream *out)
{
    *out << version.folder;
}

/// A folder as an earlier version left it.
class UpgradeTest : public testing::TestWithParam<Version>
{
protected:
    void SetUp() override
    {
        for (const auto &name : {u"/monitors.json"_s, u"/checks.json"_s}) {
            ASSERT_TRUE(QFile::copy(samples + u'/' + QString::fromLatin1(GetParam().folder) + name,
                                    folder() + name));
        }
    }
    [[nodiscard]] QString folder() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
};

void expectHistory(std::span<const Check> history, bool hasCertificates)
{
    ASSERT_EQ(history.size(), 2);
    const Check &up = history[0];
    EXPECT_EQ(up.timestamp, *parseTimestamp("2025-03-09T07:30:00Z"));
    EXPECT_TRUE(up.isUp);
    EXPECT_EQ(up.statusCode, CompactOptional<qint32>(200));
    EXPECT_EQ(up.responseTime, 245.123);
    EXPECT_EQ(up.error, OptionalText());
    EXPECT_EQ(bool(up.sslExpiresAt), hasCertificates);
    EXPECT_EQ(up.keywordFound, hasCertificates ? std::optional(false) : std::nullopt);
    const Check &down = history[1];
    EXPECT_FALSE(down.isUp);
    EXPECT_FALSE(down.statusCode);
    EXPECT_EQ(down.error, OptionalText(u"The request timed out."_s));
}

TEST_P(UpgradeTest, AllThatAnEarlierVersionStoredLoads)
{
    const MonitorStore store(folder());
    EXPECT_EQ(store.monitors(), GetParam().monitors);
    expectHistory(store.checks(shopId), GetParam().hasCertificates);
    EXPECT_EQ(store.checks(databaseId).size(), GetParam().monitors.size() - 1);
}

TEST_P(UpgradeTest, NothingIsLostWhenItIsStoredAgain)
{
    {
        MonitorStore store(folder());
        Monitor renamed = shop();
        renamed.id = QUuid::createUuid();
        store.addMonitor(renamed);
        store.addCheck({.id = QUuid::createUuid(),
                        .monitorId = renamed.id,
                        .timestamp = renamed.createdAt,
                        .isUp = true});
        store.deleteMonitor(renamed.id);
    }
    const MonitorStore store(folder());
    EXPECT_EQ(store.monitors(), GetParam().monitors);
    expectHistory(store.checks(shopId), GetParam().hasCertificates);
    EXPECT_EQ(QDir(folder()).entryList({u"*unreadable*"_s}), QStringList());
}

INSTANTIATE_TEST_SUITE_P(
    Versions, UpgradeTest,
    testing::Values(Version{"required-members", {shop()}, false},
                    Version{"keywords", {shopWithKeyword()}, true},
                    Version{"null-members", {shop()}, false},
                    Version{"all-members", {shopWithEverything(), database()}, true}),
    [](const auto &test) {
        return QString::fromLatin1(test.param.folder).remove(u'-').toStdString();
    });

} // namespace
} // namespace ostrel

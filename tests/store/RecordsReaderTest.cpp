#include "RecordsReader.h"

#include "MonitorStore.h"
#include "Printers.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>

namespace ostrel {
namespace {

class RecordsReaderTest : public testing::Test
{
protected:
    [[nodiscard]] QString folder() const { return m_folder.path(); }

    /// Adds a monitor and a check of it, as another program.
    void add() const
    {
        MonitorStore other(folder());
        Monitor monitor;
        monitor.id = QUuid::createUuid();
        other.addMonitor(monitor);
        addCheck(other, monitor.id);
    }
    void addCheckOnly() const
    {
        MonitorStore other(folder());
        addCheck(other, other.monitors().first().id);
    }
    void addMonitorOnly() const
    {
        MonitorStore other(folder());
        other.addMonitor({.id = QUuid::createUuid()});
    }

    void expectCurrent(const StoredRecords &records) const
    {
        const StoredRecords now = StoredRecords::read(folder());
        EXPECT_EQ(records.monitors, now.monitors);
        ASSERT_EQ(records.checks.size(), now.checks.size());
        for (const auto &[id, history] : now.checks) {
            const auto found = records.checks.find(id);
            ASSERT_NE(found, records.checks.end());
            EXPECT_TRUE(std::ranges::equal(found->second.checks(), history.checks()));
        }
        EXPECT_EQ(records.areMonitorsUnreadable, now.areMonitorsUnreadable);
        EXPECT_EQ(records.areChecksUnreadable, now.areChecksUnreadable);
    }

private:
    static void addCheck(MonitorStore &store, const QUuid &monitorId)
    {
        Check check;
        check.id = QUuid::createUuid();
        check.monitorId = monitorId;
        store.addCheck(check);
    }

    QTemporaryDir m_folder;
};

TEST_F(RecordsReaderTest, GivesWhatTheFolderHolds)
{
    expectCurrent(RecordsReader(folder()).take());
    add();
    add();
    RecordsReader reader(folder());
    EXPECT_EQ(reader.storageDir(), folder());
    const StoredRecords records = reader.take();
    EXPECT_EQ(records.monitors.size(), 2);
    expectCurrent(records);
}

TEST_F(RecordsReaderTest, WhatOthersHaveChangedSinceIsReadAgain)
{
    const std::function<void()> changes[] = {
        [this] { add(); },
        [this] { addCheckOnly(); },
        [this] { addMonitorOnly(); },
        [this] { QFile::remove(StoredRecords::checksPath(folder())); },
        [this] { QFile::remove(StoredRecords::monitorsPath(folder())); },
        [this] {
            QFile file(StoredRecords::monitorsPath(folder()));
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
            file.write("[");
        },
    };
    add();
    for (const auto &change : changes) {
        const StoredRecords before = StoredRecords::read(folder());
        EXPECT_TRUE(before.areCurrent(folder()));
        RecordsReader reader(folder());
        change();
        EXPECT_FALSE(before.areCurrent(folder()));
        expectCurrent(reader.take());
    }
}

TEST_F(RecordsReaderTest, AFolderThatCameSinceIsRead)
{
    const StoredRecords before = StoredRecords::read(folder());
    EXPECT_TRUE(before.areCurrent(folder()));
    add();
    EXPECT_FALSE(before.areCurrent(folder()));
}

TEST_F(RecordsReaderTest, NeedsNobodyWhoTakes)
{
    add();
    const RecordsReader reader(folder());
}

} // namespace
} // namespace ostrel

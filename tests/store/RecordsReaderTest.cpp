#include "RecordsReader.h"

#include "MonitorStore.h"
#include "Printers.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <sys/resource.h>

namespace ostrel {
namespace {

class RecordsReaderTest : public testing::Test
{
protected:
    [[nodiscard]] QString folder() const { return m_folder.path(); }

    /// Adds a monitor and a check of it, as another program would.
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

TEST_F(RecordsReaderTest, ReturnsWhatTheFolderHolds)
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

TEST_F(RecordsReaderTest, FilesThatOthersHaveChangedSinceAreReadAgain)
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

TEST_F(RecordsReaderTest, AFolderThatWasMadeSinceIsNoticed)
{
    const StoredRecords before = StoredRecords::read(folder());
    EXPECT_TRUE(before.areCurrent(folder()));
    add();
    EXPECT_FALSE(before.areCurrent(folder()));
}

// AddressSanitizer reserves more address space than any limit leaves.
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
TEST_F(RecordsReaderTest, LackOfMemoryMakesAFileUnreadable)
{
    for (const char *name : {"monitors.json", "checks.json"}) {
        QFile file(QDir(folder()).filePath(QString::fromLatin1(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_TRUE(file.resize(qint64(maxStoredFileSize)));
    }
    const auto readWithLittleMemory = [this] {
        constexpr rlim_t room = rlim_t(512) << 20;
        const rlimit limit{room, room};
        ::setrlimit(RLIMIT_AS, &limit);
        const StoredRecords records = StoredRecords::read(folder());
        const bool isUnreadable = records.areMonitorsUnreadable && records.areChecksUnreadable;
        std::_Exit(isUnreadable ? 0 : 1);
    };
    EXPECT_EXIT(readWithLittleMemory(), testing::ExitedWithCode(0), "");
}
#endif

} // namespace
} // namespace ostrel

#include "MonitorStore.h"
#include "WaitFor.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>

using namespace Qt::StringLiterals;

// When a store flushes what it has saved to the disk.

namespace ostrel {
namespace {

using namespace std::chrono_literals;

using test::waitFor;

/// A disk that records what was flushed to it, and can be made to hang.
class WatchedDisk
{
public:
    AtomicFile::Sync sync()
    {
        return [state = m_state](const FileDescriptor &file) { return state->take(file); };
    }
    ~WatchedDisk() { goOn(); }

    void hang() { m_state->hangs = true; }
    void goOn()
    {
        const std::lock_guard lock(m_state->mutex);
        m_state->hangs = false;
        m_state->changed.notify_all();
    }
    [[nodiscard]] bool tookNothing()
    {
        const std::lock_guard lock(m_state->mutex);
        return m_state->taken.isEmpty();
    }
    [[nodiscard]] qsizetype countOf(const char *name)
    {
        const std::lock_guard lock(m_state->mutex);
        return m_state->taken.count(QString::fromLatin1(name));
    }

private:
    struct State
    {
        bool take(const FileDescriptor &file)
        {
            const QString link = u"/proc/self/fd/%1"_s.arg(file.number());
            std::unique_lock lock(mutex);
            changed.wait_for(lock, 30s, [this] { return !hangs; });
            taken += QFileInfo(QFile::symLinkTarget(link)).fileName();
            return true;
        }

        std::mutex mutex;
        std::condition_variable changed;
        std::atomic<bool> hangs = false;
        QStringList taken;
    };
    std::shared_ptr<State> m_state = std::make_shared<State>();
};

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void setContent(const QString &path, const QByteArray &content)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

class StoreFlushTest : public testing::Test
{
protected:
    void open(std::chrono::milliseconds flushInterval)
    {
        m_store = std::make_unique<MonitorStore>(
            folder(), StoredRecords(),
            MonitorStore::Options{.sync = m_disk.sync(), .flushInterval = flushInterval});
    }
    [[nodiscard]] QString folder() const { return m_root.filePath(u"store"_s); }
    void record()
    {
        Check check;
        check.id = QUuid::createUuid();
        check.monitorId = check.id;
        m_store->addCheck(check);
    }

    QTemporaryDir m_root;
    WatchedDisk m_disk;
    std::unique_ptr<MonitorStore> m_store;
};

TEST_F(StoreFlushTest, HistoryIsFlushedOnceTheTimeIsUp)
{
    open(1ms);
    record();
    EXPECT_TRUE(waitFor([this] { return m_disk.countOf("store") == 1; })) << "its name, last";
    EXPECT_EQ(m_disk.countOf("checks.json.flushed"), 1);
    record();
    EXPECT_TRUE(waitFor([this] { return m_disk.countOf("store") == 2; }));
}

TEST_F(StoreFlushTest, HistoryIsNotFlushedMoreOften)
{
    open(10min);
    for (int i = 0; i < 10; ++i)
        record();
    m_store->addMonitor({.id = QUuid::createUuid()}); // is flushed after everything before it
    EXPECT_TRUE(waitFor([this] { return m_disk.countOf("store") == 1; }));
    EXPECT_EQ(m_disk.countOf("checks.json.flushed"), 0);
}

TEST_F(StoreFlushTest, HistoryIsFlushedAtDestruction)
{
    open(10min);
    record();
    m_store.reset();
    EXPECT_EQ(m_disk.countOf("checks.json.flushed"), 1);
    EXPECT_EQ(m_disk.countOf("store"), 1);
}

TEST_F(StoreFlushTest, IfAPowerCutDamagesTheHistoryTheLastFlushedOneIsRead)
{
    open(10min);
    record();
    m_store.reset();
    const QString path = StoredRecords::checksPath(folder());
    const QByteArray taken = contentOf(path);
    const QByteArray unfinished[] = {"", QByteArray(4096, '\0'),
                                     taken.chopped(8) + QByteArray(8, '\0')};
    for (const QByteArray &left : unfinished) {
        setContent(path, left);
        EXPECT_EQ(StoredRecords::read(folder()).checks.size(), 1U) << left.size();
    }
}

TEST_F(StoreFlushTest, ChecksAfterAPowerCutAreAddedToTheLastFlushedHistory)
{
    open(10min);
    record();
    m_store.reset();
    setContent(StoredRecords::checksPath(folder()), "");
    m_store = std::make_unique<MonitorStore>(folder());
    record();
    EXPECT_EQ(StoredRecords::read(folder()).checks.size(), 2U);
}

TEST_F(StoreFlushTest, AHistoryThatIsUnreadableForAnotherReasonCountsAsEmpty)
{
    open(10min);
    record();
    m_store.reset();
    setContent(StoredRecords::checksPath(folder()), "not a history");
    EXPECT_TRUE(StoredRecords::read(folder()).checks.empty());
    QFile::remove(StoredRecords::checksPath(folder()));
    EXPECT_TRUE(StoredRecords::read(folder()).checks.empty());
}

TEST_F(StoreFlushTest, WithoutANewCheckNothingIsFlushedAtDestruction)
{
    open(10min);
    m_store.reset();
    EXPECT_EQ(m_disk.countOf("store"), 0);
}

TEST_F(StoreFlushTest, MonitorsAreOnTheDiskBeforeTheyReplaceTheOldOnes)
{
    open(10min);
    m_store->addMonitor({.id = QUuid::createUuid()});
    EXPECT_EQ(m_disk.countOf("monitors.json.tmp"), 1);
}

TEST_F(StoreFlushTest, ADiskThatHangsDelaysNeitherAnEditNorDestruction)
{
    m_disk.hang();
    open(1ms);
    m_store->addMonitor({.id = QUuid::createUuid()});
    record();
    EXPECT_EQ(StoredRecords::read(folder()).monitors.size(), 1);
    EXPECT_EQ(StoredRecords::read(folder()).checks.size(), 2U);
    m_store.reset();
    EXPECT_TRUE(m_disk.tookNothing()) << "it hangs still";
}

} // namespace
} // namespace ostrel

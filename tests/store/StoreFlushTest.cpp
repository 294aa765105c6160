#include "MonitorStore.h"
#include "RemovedNames.h"
#include "WaitFor.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <span>

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
    void fail() { m_state->fails = true; }
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
            errno = EIO;
            return !fails;
        }

        std::mutex mutex;
        std::condition_variable changed;
        std::atomic<bool> hangs = false;
        std::atomic<bool> fails = false;
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
    static Check newCheck()
    {
        Check check;
        check.id = QUuid::createUuid();
        check.monitorId = check.id;
        return check;
    }
    void record() { m_store->addCheck(newCheck()); }
    /// Whether the next save of the history makes no file system flush it.
    [[nodiscard]] bool avoidsFlush()
    {
        const test::RemovedNames removed(folder());
        record();
        return removed.take().contains(u"checks.json.tmp"_s);
    }
    /// Records, with a flushed copy of the history.
    void openWithCopy()
    {
        open(10min);
        record();
        EXPECT_TRUE(waitFor([this] { return avoidsFlush(); }));
    }
    /// Leaves a history of several sectors that has been flushed, and returns its text.
    QByteArray closeWithHistory()
    {
        open(10min);
        for (int i = 0; i < 20; ++i)
            record();
        m_store.reset();
        return contentOf(StoredRecords::checksPath(folder()));
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

TEST_F(StoreFlushTest, HistoryIsFlushedWithTheFirstCheck)
{
    open(10min);
    record();
    EXPECT_TRUE(waitFor([this] { return m_disk.countOf("checks.json.flushed") == 1; }));
}

TEST_F(StoreFlushTest, HistoryIsNotFlushedMoreOften)
{
    open(10min);
    record();
    EXPECT_TRUE(waitFor([this] { return m_disk.countOf("store") == 1; }));
    for (int i = 0; i < 10; ++i)
        record();
    m_store->addMonitor({.id = QUuid::createUuid()}); // is flushed after everything before it
    EXPECT_TRUE(waitFor([this] { return m_disk.countOf("store") == 2; }));
    EXPECT_EQ(m_disk.countOf("checks.json.flushed"), 1);
}

TEST_F(StoreFlushTest, AFlushOfTheHistoryIsOnlyAvoidedOnceThereIsAFlushedCopy)
{
    m_disk.hang();
    open(10min);
    for (int i = 0; i < 10; ++i)
        EXPECT_FALSE(avoidsFlush());
    m_disk.goOn();
    EXPECT_TRUE(waitFor([this] { return avoidsFlush(); }));
}

TEST_F(StoreFlushTest, WhileTheDiskTakesNoCopyNoFlushIsAvoided)
{
    m_disk.fail();
    open(10min);
    record();
    EXPECT_TRUE(waitFor([this] { return m_disk.countOf("checks.json.flushed.tmp") == 1; }));
    EXPECT_FALSE(waitFor([this] { return avoidsFlush(); }, 50ms));
}

TEST_F(StoreFlushTest, WithoutTheFlushedCopyNoFlushIsAvoided)
{
    openWithCopy();
    ASSERT_TRUE(QFile::remove(StoredRecords::flushedChecksPath(folder())));
    EXPECT_FALSE(avoidsFlush());
}

TEST_F(StoreFlushTest, AHistoryThatComesWithAMonitorIsFlushedAtOnce)
{
    openWithCopy();
    const Check check = newCheck();
    m_store->addMonitor({.id = check.monitorId}, std::span(&check, 1));
    EXPECT_FALSE(avoidsFlush());
    EXPECT_TRUE(waitFor([this] { return avoidsFlush(); }));
    const QByteArray copy = contentOf(StoredRecords::flushedChecksPath(folder()));
    EXPECT_TRUE(copy.contains(check.id.toByteArray(QUuid::WithoutBraces).toUpper()));
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

TEST_F(StoreFlushTest, AHistoryThatAPowerCutHasCutOffIsReadFromTheCopy)
{
    const QByteArray whole = closeWithHistory();
    ASSERT_GT(whole.size(), 4 * 512);
    for (qsizetype size = 0; size < whole.size(); size += 512) {
        setContent(StoredRecords::checksPath(folder()), whole.first(size));
        EXPECT_EQ(StoredRecords::read(folder()).checks.size(), 20U) << size;
    }
}

TEST_F(StoreFlushTest, AHistoryInWhichAPowerCutHasLeftZerosIsReadFromTheCopy)
{
    const QByteArray whole = closeWithHistory();
    for (qsizetype at = 0; at < whole.size(); at += 512) {
        QByteArray left = whole;
        const qsizetype length = std::min<qsizetype>(512, whole.size() - at);
        setContent(StoredRecords::checksPath(folder()),
                   left.replace(at, length, QByteArray(length, '\0')));
        EXPECT_EQ(StoredRecords::read(folder()).checks.size(), 20U) << at;
    }
}

TEST_F(StoreFlushTest, AWholeHistoryIsReadWhateverTheCopyHolds)
{
    closeWithHistory();
    setContent(StoredRecords::checksPath(folder()), "[]");
    const StoredRecords records = StoredRecords::read(folder());
    EXPECT_TRUE(records.checks.empty());
    EXPECT_FALSE(records.areChecksUnreadable);
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
    const QByteArray whole = closeWithHistory();
    const QByteArray atSectorsEnd(512 - 7, ' ');
    for (const QByteArray &other :
         {QByteArray("not a history"), whole.chopped(1), whole.first(511), whole.first(513),
          QByteArray("x\0y", 3), atSectorsEnd + "[[bad]]"}) {
        setContent(StoredRecords::checksPath(folder()), other);
        EXPECT_TRUE(StoredRecords::read(folder()).checks.empty()) << other.size();
    }
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

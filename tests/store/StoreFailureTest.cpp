#include "FolderOwnership.h"
#include "MonitorJson.h"
#include "MonitorStore.h"
#include "PlainUser.h"
#include "Printers.h"
#include "WaitFor.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>
#include <memory>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

// What a store does while its folder can't be written: it continues from memory, reports the
// failure, and saves as soon as it can.

namespace ostrel {
namespace {

using namespace std::chrono;
using namespace std::chrono_literals;

using test::PlainUser;
using test::waitFor;

constexpr Timestamp start = sys_days(2026y / 11 / 20) + 19h + 15min;

class FakeOwnership : public FolderOwnership
{
public:
    [[nodiscard]] bool renew() override
    {
        ++asked;
        return isOurs;
    }

    bool isOurs = true;
    int asked = 0;
};

/// Simulates a full disk: while it lives, no file of this process grows beyond @p size bytes.
class FullDisk
{
public:
    explicit FullDisk(rlim_t size = 10)
        : m_handler(::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{size, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    Q_DISABLE_COPY(FullDisk)
    ~FullDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        ::signal(SIGXFSZ, m_handler);
    }

private:
    sighandler_t m_handler;
    rlimit m_before{};
};

class StoreFailureTest : public testing::Test
{
protected:
    void open(MonitorStore::Options options = {})
    {
        m_store.reset();
        options.now = [] { return start; };
        m_store = std::make_unique<MonitorStore>(folder(), StoredRecords::read(folder()), options);
        m_changes = 0;
        QObject::connect(m_store.get(), &MonitorStore::canSaveChanged, [this] { ++m_changes; });
    }
    /// Opens a store that retries all the time.
    void openImpatiently() { open({.retryInterval = 1ms}); }

    [[nodiscard]] QString folder() const { return m_root.filePath(u"parent/store"_s); }
    [[nodiscard]] QString pathOf(const char *name) const
    {
        return folder() + QLatin1Char('/') + QString::fromUtf8(name);
    }
    [[nodiscard]] QByteArray contentOf(const char *name) const
    {
        QFile file(pathOf(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArrayLiteral("(none)");
    }
    static void fill(const QString &path, const QByteArray &content)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    /// Without the flushed copy, which comes when the disk has it.
    [[nodiscard]] QString names() const
    {
        QStringList names = QDir(folder()).entryList(
            QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
        names.removeIf([](const QString &name) { return name.startsWith(u"checks.json.flushed"); });
        return names.join(u' ');
    }
    void removeFolder() const { ASSERT_TRUE(QDir(folder()).removeRecursively()); }
    void putAFileInItsPlace() const
    {
        ASSERT_TRUE(QDir().mkpath(m_root.filePath(u"parent"_s)));
        fill(folder(), "in the way");
    }
    void removeTheFileInItsPlace() const { ASSERT_TRUE(QFile::remove(folder())); }

    Monitor add(const char *name = "a")
    {
        Monitor monitor;
        monitor.id = QUuid::createUuid();
        monitor.name = QString::fromUtf8(name);
        m_store->addMonitor(monitor);
        return monitor;
    }
    Check record(const Monitor &monitor)
    {
        Check check;
        check.id = QUuid::createUuid();
        check.monitorId = monitor.id;
        check.timestamp = start;
        m_store->addCheck(check);
        return check;
    }

    /// What another start would load.
    [[nodiscard]] QList<Monitor> storedMonitors() const
    {
        return StoredRecords::read(folder()).monitors;
    }
    [[nodiscard]] std::size_t storedCheckCount() const
    {
        std::size_t count = 0;
        for (const auto &[id, history] : StoredRecords::read(folder()).checks)
            count += history.checks().size();
        return count;
    }
    void expectAllIsStored() const
    {
        const MonitorStore other(folder(), MonitorStore::Access::readOnly);
        EXPECT_EQ(other.monitors(), m_store->monitors());
        for (const Monitor &monitor : m_store->monitors())
            EXPECT_TRUE(std::ranges::equal(other.checks(monitor.id), m_store->checks(monitor.id)));
        for (const auto &[id, history] : StoredRecords::read(folder()).checks)
            EXPECT_TRUE(std::ranges::equal(history.checks(), m_store->checks(id)));
        EXPECT_TRUE(m_store->canSave());
        EXPECT_EQ(m_store->saveFailure(), QString());
    }

    QTemporaryDir m_root;
    std::unique_ptr<MonitorStore> m_store;
    int m_changes = 0;
};

TEST_F(StoreFailureTest, AFolderThatIsGoneIsMadeAgainWithBothFiles)
{
    open();
    const Monitor monitor = add();
    record(monitor);
    for (int i = 0; i < 2; ++i) {
        removeFolder();
        record(monitor);
        expectAllIsStored();
        EXPECT_EQ(names(), u"checks.json monitors.json"_s);
        struct stat status
        {
        };
        ASSERT_EQ(::stat(QFile::encodeName(folder()).constData(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777U, 0700U);
    }
    EXPECT_EQ(m_changes, 0);
}

TEST_F(StoreFailureTest, AFolderThatIsGoneIsMadeAgainEvenIfNothingHappens)
{
    openImpatiently();
    record(add());
    removeFolder();
    EXPECT_TRUE(waitFor([this] { return QFile::exists(pathOf("checks.json")); }));
    expectAllIsStored();
}

TEST_F(StoreFailureTest, AFolderThatWasReplacedGetsBothFiles)
{
    open();
    const Monitor monitor = add();
    record(monitor);
    ASSERT_TRUE(QDir().rename(folder(), folder() + u"-away"_s));
    ASSERT_TRUE(QDir().mkdir(folder()));
    record(monitor);
    expectAllIsStored();
}

TEST_F(StoreFailureTest, EachFileThatIsGoneComesBackWithAnySave)
{
    open();
    const Monitor monitor = add();
    record(monitor);
    ASSERT_TRUE(QFile::remove(pathOf("monitors.json")));
    record(monitor);
    expectAllIsStored();
    ASSERT_TRUE(QFile::remove(pathOf("checks.json")));
    m_store->updateMonitor(monitor);
    expectAllIsStored();
}

TEST_F(StoreFailureTest, AFileThatNeverExistedIsNotMade)
{
    open();
    const Monitor monitor = add();
    removeFolder();
    m_store->updateMonitor(monitor);
    EXPECT_EQ(names(), u"monitors.json"_s);
}

TEST_F(StoreFailureTest, WithAFileInTheFoldersPlaceItRunsFromMemoryAndSavesOnceItCan)
{
    putAFileInItsPlace();
    openImpatiently();
    EXPECT_FALSE(m_store->canSave()) << "before there is anything to save";
    EXPECT_EQ(m_store->saveFailure(), qt_error_string(ENOTDIR));
    const Monitor monitor = add();
    const Check check = record(monitor);
    EXPECT_EQ(m_store->monitors(), QList<Monitor>{monitor});
    EXPECT_EQ(m_store->latestCheck(monitor), check);
    EXPECT_EQ(m_changes, 0);

    removeTheFileInItsPlace();
    EXPECT_TRUE(waitFor([this] { return m_store->canSave(); }));
    EXPECT_EQ(m_changes, 1);
    expectAllIsStored();
    EXPECT_EQ(names(), u"checks.json monitors.json"_s);
}

TEST_F(StoreFailureTest, SavingIsRetriedOnceAMinute)
{
    EXPECT_EQ(MonitorStore::Options().retryInterval, 1min);
}

TEST_F(StoreFailureTest, AReadOnlyFolderIsReadAndSavedToOnceItIsWritable)
{
    open();
    const Monitor before = add("before");
    record(before);
    ASSERT_EQ(::chmod(QFile::encodeName(m_root.path()).constData(), 0755), 0);
    for (const char *name : {"..", ".", "monitors.json", "checks.json"})
        ASSERT_EQ(::chmod(QFile::encodeName(pathOf(name)).constData(), 0755), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(folder()).constData(), 0555), 0);
    Monitor after;
    {
        const PlainUser plain;
        open();
        EXPECT_FALSE(m_store->canSave());
        EXPECT_EQ(m_store->saveFailure(), qt_error_string(EACCES));
        after = add("after");
        record(before);
        EXPECT_EQ(m_store->monitors(), (QList<Monitor>{before, after}));
        EXPECT_EQ(m_store->checks(before.id).size(), 2U);
    }
    ASSERT_EQ(::chmod(QFile::encodeName(folder()).constData(), 0700), 0);
    record(after);
    EXPECT_EQ(m_changes, 1);
    expectAllIsStored();
}

TEST_F(StoreFailureTest, FilesOfAFolderThatWasUnreadableAtTheStartAreKept)
{
    open();
    add("precious");
    const QByteArray precious = contentOf("monitors.json");
    m_store.reset();
    ASSERT_EQ(::chmod(QFile::encodeName(folder()).constData(), 0), 0);
    {
        const PlainUser plain;
        open();
        EXPECT_FALSE(m_store->canSave());
        add("new");
    }
    ASSERT_EQ(::chmod(QFile::encodeName(folder()).constData(), 0700), 0);
    record(add("newer"));
    expectAllIsStored();
    EXPECT_EQ(contentOf("monitors.json.unreadable-20261120T191500Z"), precious);
}

TEST_F(StoreFailureTest, FilesOfAFolderThatWasMissingAtTheStartAreKept)
{
    const QString disk = m_root.filePath(u"disk"_s);
    ASSERT_TRUE(QDir().mkpath(m_root.filePath(u"parent"_s)));
    ASSERT_TRUE(QFile::link(disk, folder()));
    open();
    add("new");
    EXPECT_EQ(m_store->saveFailure(), qt_error_string(ENOENT));
    ASSERT_TRUE(QDir().mkdir(disk));
    fill(pathOf("monitors.json"), "as it was mounted");
    fill(pathOf("checks.json"), "the same");
    record(add("newer"));
    expectAllIsStored();
    EXPECT_EQ(contentOf("monitors.json.replaced-20261120T191500Z"),
              QByteArray("as it was mounted"));
    EXPECT_EQ(contentOf("checks.json.replaced-20261120T191500Z"), QByteArray("the same"));
}

TEST_F(StoreFailureTest, AMonitorAddedOnAFullDiskIsSavedWithTheNextCheck)
{
    open();
    const Monitor first = add("first");
    record(first);
    const QByteArray monitors = contentOf("monitors.json");
    const QByteArray checks = contentOf("checks.json");
    {
        const FullDisk disk;
        add("second");
        record(first);
        EXPECT_FALSE(m_store->canSave());
        EXPECT_EQ(m_store->saveFailure(), qt_error_string(EFBIG));
        EXPECT_EQ(m_changes, 1);
        EXPECT_EQ(contentOf("monitors.json"), monitors);
        EXPECT_EQ(contentOf("checks.json"), checks);
        EXPECT_EQ(names(), u"checks.json monitors.json"_s);
    }
    record(first);
    EXPECT_EQ(m_changes, 2);
    expectAllIsStored();
    EXPECT_EQ(m_store->checks(first.id).size(), 3U);
}

TEST_F(StoreFailureTest, TheFileThatFitsIsSavedEvenIfTheOtherDoesNot)
{
    open();
    const Monitor monitor = add();
    Monitor edited = monitor;
    edited.name = QString(2000, u'x');
    {
        const FullDisk disk(2000);
        m_store->updateMonitor(edited);
        EXPECT_FALSE(m_store->canSave());
        record(monitor);
        EXPECT_EQ(storedCheckCount(), 1U);
        EXPECT_FALSE(m_store->canSave()) << "as long as one of them is behind";
        EXPECT_EQ(storedMonitors(), QList<Monitor>{monitor});
    }
    record(monitor);
    expectAllIsStored();
}

TEST_F(StoreFailureTest, OnAFullDiskTheOldHistoryStaysWholeWhereverTheWriteEnds)
{
    open();
    const Monitor monitor = add();
    for (int i = 0; i < 20; ++i)
        record(monitor);
    const QByteArray before = contentOf("checks.json");
    for (rlim_t size = 0; size <= rlim_t(before.size()); size += 97) {
        const FullDisk disk(size);
        record(monitor);
        ASSERT_EQ(contentOf("checks.json"), before) << size;
        ASSERT_EQ(names(), u"checks.json monitors.json"_s) << size;
    }
    record(monitor);
    expectAllIsStored();
}

TEST_F(StoreFailureTest, OnARealFullDiskNothingIsLost)
{
    ASSERT_TRUE(QDir().mkpath(folder()));
    const QByteArray path = QFile::encodeName(folder());
    if (::mount("tmpfs", path.constData(), "tmpfs", 0, "size=256k,mode=0755") != 0)
        GTEST_SKIP() << "nothing may be mounted here";
    open();
    const Monitor first = add("first");
    record(first);
    {
        QFile rest(pathOf("rest"));
        ASSERT_TRUE(rest.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        while (rest.write(QByteArray(512, 'x')) == 512) {
        }
    }
    add("second");
    record(first);
    EXPECT_FALSE(m_store->canSave());
    EXPECT_EQ(m_store->saveFailure(), qt_error_string(ENOSPC));
    EXPECT_EQ(storedMonitors(), QList<Monitor>{first});
    EXPECT_EQ(storedCheckCount(), 1U);
    EXPECT_EQ(names(), u"checks.json monitors.json rest"_s);

    ASSERT_TRUE(QFile::remove(pathOf("rest")));
    record(first);
    expectAllIsStored();

    const auto makeReadOnly = [&] {
        return ::mount(nullptr, path.constData(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) == 0;
    };
    ASSERT_TRUE(waitFor(makeReadOnly)) << "a file is open for as long as it is flushed";
    add("third");
    EXPECT_EQ(m_store->saveFailure(), qt_error_string(EROFS));
    ASSERT_EQ(::mount(nullptr, path.constData(), nullptr, MS_REMOUNT, nullptr), 0);
    record(first);
    expectAllIsStored();
    m_store.reset();
    EXPECT_EQ(::umount2(path.constData(), MNT_DETACH), 0);
}

TEST_F(StoreFailureTest, UnsavedRecordsAreTriedOnceMoreAtDestruction)
{
    putAFileInItsPlace();
    open();
    const Monitor monitor = add();
    record(monitor);
    removeTheFileInItsPlace();
    m_store.reset();
    EXPECT_EQ(storedMonitors(), QList<Monitor>{monitor});
    EXPECT_EQ(storedCheckCount(), 1U);
}

TEST_F(StoreFailureTest, AFolderThatIsGoneAtDestructionStaysGone)
{
    open();
    record(add());
    removeFolder();
    m_store.reset();
    EXPECT_FALSE(QFile::exists(folder()));
}

TEST_F(StoreFailureTest, AReadOnlyStoreNeverReportsThatItCannotSave)
{
    putAFileInItsPlace();
    open({.access = MonitorStore::Access::readOnly, .retryInterval = 1ms});
    add();
    EXPECT_TRUE(m_store->canSave());
    EXPECT_EQ(m_changes, 0);
}

TEST_F(StoreFailureTest, AFolderThatAnotherProgramOwnsIsNotTouched)
{
    open();
    const Monitor first = add("first");
    m_store.reset();
    fill(pathOf("checks.json.tmp"), "the other's");
    FakeOwnership ownership;
    ownership.isOurs = false;
    open({.ownership = &ownership});
    const QString before = names();
    record(first);
    add("second");
    EXPECT_FALSE(m_store->canSave());
    EXPECT_FALSE(m_store->saveFailure().isEmpty());
    EXPECT_EQ(names(), before);
    EXPECT_EQ(storedMonitors(), QList<Monitor>{first});
    m_store.reset();
    EXPECT_EQ(names(), before);
    EXPECT_EQ(storedMonitors(), QList<Monitor>{first});
}

TEST_F(StoreFailureTest, OwnershipIsRenewedBeforeEverySave)
{
    FakeOwnership ownership;
    open({.ownership = &ownership});
    for (int saves = 1; saves < 4; ++saves) {
        EXPECT_EQ(ownership.asked, saves);
        add();
    }
}

TEST_F(StoreFailureTest, AFileThatAnotherOwnerHasWrittenIsKept)
{
    FakeOwnership ownership;
    open({.ownership = &ownership});
    const Monitor first = add("first");
    record(first);
    ownership.isOurs = false;
    add("second");
    QByteArray othersMonitors;
    {
        MonitorStore other(folder());
        other.addMonitor({.id = QUuid::createUuid()});
        othersMonitors = contentOf("monitors.json");
    }
    ownership.isOurs = true;
    record(first);
    expectAllIsStored();
    EXPECT_EQ(contentOf("monitors.json.replaced-20261120T191500Z"), othersMonitors);
    EXPECT_EQ(names(), u"checks.json monitors.json "
                       "monitors.json.replaced-20261120T191500Z"_s)
        << "what the other hasn't touched isn't kept";
}

TEST_F(StoreFailureTest, AFileThatWasWrittenWhileTheFolderWasAwayIsKept)
{
    open();
    const Monitor first = add("first");
    record(first);
    const QString away = folder() + u"-away"_s;
    ASSERT_TRUE(QDir().rename(folder(), away));
    putAFileInItsPlace();
    add("second");
    MonitorStore(away).addMonitor({.id = QUuid::createUuid()});
    removeTheFileInItsPlace();
    ASSERT_TRUE(QDir().rename(away, folder()));
    const QByteArray others = contentOf("monitors.json");
    record(first);
    expectAllIsStored();
    EXPECT_EQ(contentOf("monitors.json.replaced-20261120T191500Z"), others);
}

TEST_F(StoreFailureTest, WithTheTemporaryNamesTakenBothAreSaved)
{
    ASSERT_TRUE(QDir().mkpath(pathOf("checks.json.tmp/inside")));
    ASSERT_EQ(::mkdir(QFile::encodeName(pathOf("monitors.json.tmp")).constData(), 0700), 0);
    open();
    record(add());
    expectAllIsStored();
    EXPECT_EQ(names(), u"checks.json checks.json.tmp monitors.json monitors.json.tmp"_s);
}

} // namespace
} // namespace ostrel

#include "HistoriesReader.h"

#include "AtomicFile.h"
#include "Printers.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <random>
#include <string>

using namespace Qt::StringLiterals;

namespace ostrel {
namespace {

const std::string idText = "01234567-89AB-CDEF-0123-456789ABCDEF";

/// A map as text, and its content.
struct StoredMap
{
    void open(const QUuid &id)
    {
        text += text.ends_with('[') || text.ends_with(',') ? "" : ",";
        CheckHistory history(id);
        text += history.opening();
        m_open = &expected.insert_or_assign(id, std::vector<Check>()).first->second;
        m_isFirst = true;
    }
    void add(const Check &check, const std::string &separator = ",")
    {
        text += std::exchange(m_isFirst, false) ? "" : separator;
        appendCheck(text, check);
        m_open->push_back(check);
    }
    void close() { text += ']'; }

    std::string text = "[";
    std::map<QUuid, std::vector<Check>> expected;

private:
    std::vector<Check> *m_open = nullptr;
    bool m_isFirst = true;
};

class HistoriesReaderTest : public testing::Test
{
protected:
    Check nextCheck(const QUuid &id)
    {
        Check check;
        check.id = QUuid(++m_number, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
        check.monitorId = id;
        check.isUp = m_number % 3 == 0;
        if (!check.isUp)
            check.error = m_errors[m_number % std::size(m_errors)];
        return check;
    }
    void addHistory(StoredMap &map, const QUuid &id, int count, const std::string &separator = ",")
    {
        map.open(id);
        for (int i = 0; i < count; ++i)
            map.add(nextCheck(id), separator);
        map.close();
    }
    /// Histories of many lengths, some of them empty; about @p bytes in all.
    StoredMap mapOf(std::size_t bytes, int longest)
    {
        StoredMap map;
        for (uint i = 1; map.text.size() < bytes; ++i) {
            const QUuid id(i * 2654435761U, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);
            addHistory(map, id, std::uniform_int_distribution(0, longest)(m_random));
        }
        map.text += ']';
        return map;
    }
    [[nodiscard]] FileSnapshot written(const std::string &text) const
    {
        const AtomicFile file(m_folder.filePath(u"checks.json"_s));
        FileSnapshot content;
        const auto fill = [&](ContentWriter &writer) {
            writer.append(text);
            return true;
        };
        EXPECT_TRUE(file.write(fill, AtomicFile::Flush::none, &content));
        return content;
    }
    [[nodiscard]] std::optional<CheckHistories> read(const std::string &text) const
    {
        return readHistories(written(text));
    }
    /// The bytes that this process has read from files so far.
    static quint64 bytesRead()
    {
        QFile file(u"/proc/self/io"_s);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray first = file.readLine();
        EXPECT_TRUE(first.startsWith("rchar: ")) << first.constData();
        return first.mid(QByteArrayView("rchar: ").size()).trimmed().toULongLong();
    }
    static void expectHolds(const std::optional<CheckHistories> &histories, const StoredMap &map)
    {
        ASSERT_TRUE(histories);
        ASSERT_EQ(histories->size(), map.expected.size());
        for (const auto &[id, checks] : map.expected) {
            const CheckHistory &history = histories->at(id);
            ASSERT_TRUE(std::ranges::equal(history.checks(), checks));
        }
    }
    /// Also expects the position of all stored text to be known.
    static void expectKnows(const std::optional<CheckHistories> &histories, const StoredMap &map)
    {
        expectHolds(histories, map);
        for (const auto &[id, history] : *histories) {
            ASSERT_TRUE(history.unstoredChecks().empty());
            std::string expected;
            for (const Check &check : history.checks()) {
                expected += expected.empty() ? "" : ",";
                appendCheck(expected, check);
            }
            const TextRange stored = history.storedText();
            ASSERT_EQ(map.text.substr(stored.offset, stored.length), expected);
        }
    }

    [[nodiscard]] const QTemporaryDir &folder() const { return m_folder; }

private:
    static inline const QString m_errors[] = {
        u"Could not connect to [::1]"_s,
        u"}],\"01234567-89AB-CDEF-0123-456789ABCDEF\",[{\"id\":"_s,
        u"caf\u00e9 \U0001F426 ]}],"_s,
        u"\\"_s,
        u"}],"_s,
    };

    QTemporaryDir m_folder;
    std::mt19937 m_random{20261121};
    uint m_number = 0;
};

TEST_F(HistoriesReaderTest, AllPartsAreReadWithTheirPositions)
{
    for (const int longest : {0, 3, 2000, 9000}) {
        const StoredMap map = mapOf(longest == 0 ? 3000 : 5'000'000, longest);
        expectKnows(read(map.text), map);
    }
}

TEST_F(HistoriesReaderTest, AHistoryLargerThanAPartIsRead)
{
    const QUuid id(1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);
    StoredMap map;
    addHistory(map, id, 30'000);
    map.text += ']';
    expectKnows(read(map.text), map);
}

TEST_F(HistoriesReaderTest, PartsOfEverySizeAreReadAlike)
{
    const StoredMap map = mapOf(4000, 4);
    const FileSnapshot content = written(map.text);
    for (std::size_t partSize = 0; partSize <= map.text.size() + 1; ++partSize) {
        SCOPED_TRACE(partSize);
        expectKnows(readHistories(content, partSize), map);
        if (HasFatalFailure())
            return;
    }
}

TEST_F(HistoriesReaderTest, APartMayEndAnywhereAfterAHistory)
{
    constexpr std::size_t partSize = 50'000;
    const StoredMap map = mapOf(2 * partSize, 100);
    const std::string end = "}],\"";
    const std::size_t border = map.text.find(end, partSize);
    ASSERT_NE(border, std::string::npos);
    const FileSnapshot content = written(map.text);
    for (std::size_t behind = 0; behind < 60; ++behind) {
        SCOPED_TRACE(behind);
        expectHolds(readHistories(content, border + behind), map);
    }
}

TEST_F(HistoriesReaderTest, AnOversizedFileIsUnreadable)
{
    QFile file(folder().filePath(u"checks.json"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    for (const qint64 size : {qint64(maxStoredFileSize) + 1, qint64(1) << 40}) {
        ASSERT_TRUE(file.resize(size));
        const AtomicFile stored(file.fileName());
        EXPECT_EQ(stored.snapshot().size(), quint64(size));
        EXPECT_FALSE(readHistories(stored.snapshot()));
        EXPECT_FALSE(stored.read());
    }
}

TEST_F(HistoriesReaderTest, AFileThatTheProgramWroteIsReadOnlyOnce)
{
    const QUuid id(1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 2);
    StoredMap map = mapOf(3'000'000, 3000);
    map.text.back() = ',';
    addHistory(map, id, 10'000);
    map.text += ']';
    const quint64 before = bytesRead();
    expectKnows(read(map.text), map);
    EXPECT_LT(bytesRead() - before, map.text.size() * 11 / 10);
}

TEST_F(HistoriesReaderTest, OtherLayoutsAreReadAsAWhole)
{
    const QUuid id(1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);
    StoredMap map;
    map.text = "\n[";
    addHistory(map, id, 10'000, ",\n  ");
    map.text += " ]\n";
    expectHolds(read(map.text), map);
}

TEST_F(HistoriesReaderTest, AnApparentEndInsideAnUnknownValueIsIgnored)
{
    const QUuid id(1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);
    const std::string trap = ",\"later\":[[{}],\"" + idText + "\",[{}],\"" + idText + "\",[{}]]}";
    StoredMap map;
    map.open(id);
    for (int i = 0; i < 10'000; ++i) {
        map.add(nextCheck(id));
        map.text.replace(map.text.size() - 1, 1, trap);
    }
    map.close();
    map.text += ']';
    expectHolds(read(map.text), map);
}

TEST_F(HistoriesReaderTest, OneErrorAnywhereMakesTheFileUnreadable)
{
    const StoredMap map = mapOf(2'500'000, 1000);
    for (const std::size_t place : {std::size_t(0), std::size_t(20), map.text.size() / 3,
                                    map.text.size() / 2, map.text.size() - 1}) {
        std::string bad = map.text;
        bad[place] = '\x01';
        EXPECT_FALSE(read(bad)) << place;
        EXPECT_FALSE(read(map.text.substr(0, place))) << place;
    }
    EXPECT_FALSE(read(map.text + "x"));
    EXPECT_FALSE(read(map.text + map.text));
    EXPECT_FALSE(read(map.text.substr(1)));
}

TEST_F(HistoriesReaderTest, PartsThatAlternateWronglyMakeTheFileUnreadable)
{
    const QUuid id(1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);
    StoredMap map;
    addHistory(map, id, 10'000);
    const std::string pair = map.text.substr(1);
    EXPECT_TRUE(read("[" + pair + "," + pair + "]"));
    EXPECT_FALSE(read("[" + pair + "," + pair + ",\"" + idText + "\"]"));
    EXPECT_FALSE(read("[" + pair + ",\"" + idText + "\"," + pair + "]"));
    EXPECT_FALSE(read("[" + pair + ",[]," + pair + "]"));
    EXPECT_FALSE(read("[" + pair + ",," + pair + "]"));
    EXPECT_FALSE(read("{" + pair + "," + pair + "]"));
    EXPECT_FALSE(read("[[" + pair + "," + pair + "]]"));
}

TEST_F(HistoriesReaderTest, AnEmptyFileIsUnreadable)
{
    EXPECT_FALSE(readHistories(FileSnapshot()));
    EXPECT_FALSE(read(""));
    EXPECT_FALSE(read(" "));
    EXPECT_TRUE(read("[]"));
}

} // namespace
} // namespace ostrel

#include "StoredPreferences.h"

#include "PrivatePreferences.h"
#include "WaitFor.h"

#include <QDir>
#include <QLockFile>
#include <QPoint>

#include <gtest/gtest.h>

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace ostrel::test {
namespace {

class StoredPreferencesTest : public testing::Test
{
protected:
    StoredPreferencesTest() { QDir(folder).mkpath(u"."_s); }

    /// The file as the next start reads it.
    [[nodiscard]] QVariant stored(const QString &key) const
    {
        return QSettings(file, QSettings::IniFormat).value(key);
    }

    const PrivatePreferences preferences;
    const QString folder = preferences.folder.filePath(u"Ostrel"_s);
    const QString file = folder + u"/Ostrel.conf"_s;
    /// As long as it is held, nobody writes the file.
    QLockFile lock{file + u".lock"_s};
};

TEST_F(StoredPreferencesTest, AreSharedByAllObjects)
{
    StoredPreferences first;
    const StoredPreferences second;
    first.setValue(u"place"_s, QPoint(3, 4));
    EXPECT_EQ(second.value(u"place"_s), QPoint(3, 4));
    EXPECT_EQ(second.value(u"width"_s, 7), 7);
}

TEST_F(StoredPreferencesTest, AreWrittenWhenTheLastObjectEnds)
{
    {
        StoredPreferences values;
        for (int width = 1; width <= 100; ++width)
            values.setValue(u"width"_s, width);
        values.setValue(u"place"_s, QPoint(3, 4));
    }
    EXPECT_EQ(stored(u"width"_s), 100);
    EXPECT_EQ(StoredPreferences().value(u"place"_s), QPoint(3, 4));
}

TEST_F(StoredPreferencesTest, NobodyWaitsForTheDisk)
{
    StoredPreferences values;
    ASSERT_TRUE(lock.lock());
    values.setValue(u"width"_s, 5);
    values.setValue(u"width"_s, 6);
    EXPECT_EQ(values.value(u"width"_s), 6);
    EXPECT_FALSE(QFile::exists(file));
    lock.unlock();
    EXPECT_TRUE(waitFor([this] { return stored(u"width"_s) == 6; }));
}

TEST_F(StoredPreferencesTest, TheEndWaitsForSomeSecondsAtMost)
{
    std::optional<StoredPreferences> values(std::in_place);
    ASSERT_TRUE(lock.lock());
    values->setValue(u"width"_s, 5);
    values.reset();
    EXPECT_FALSE(QFile::exists(file));
    lock.unlock();
    EXPECT_TRUE(waitFor([this] { return stored(u"width"_s) == 5; }));
}

TEST_F(StoredPreferencesTest, WhatOthersWriteMeanwhileIsKept)
{
    {
        StoredPreferences values;
        QSettings others(file, QSettings::IniFormat);
        others.setValue(u"theirs"_s, 1);
        others.sync();
        values.setValue(u"ours"_s, 2);
    }
    EXPECT_EQ(stored(u"theirs"_s), 1);
    EXPECT_EQ(stored(u"ours"_s), 2);
}

} // namespace
} // namespace ostrel::test

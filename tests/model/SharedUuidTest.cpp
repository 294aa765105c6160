#include "SharedUuid.h"

#include "Printers.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace ostrel::test {

TEST(SharedUuidTest, IsTheIdThatItWasMadeOf)
{
    const QUuid id = QUuid::createUuid();
    const SharedUuid shared = id;
    EXPECT_EQ(shared, id);
    EXPECT_EQ(QUuid(shared), id);
    EXPECT_EQ(shared, SharedUuid(QUuid(id)));
    EXPECT_NE(shared, SharedUuid(QUuid::createUuid()));
    EXPECT_NE(shared, QUuid::createUuid());
}

TEST(SharedUuidTest, EqualOnesShareOneId)
{
    const QUuid id = QUuid::createUuid();
    const SharedUuid first = id;
    const SharedUuid second = QUuid(id);
    EXPECT_EQ(&static_cast<const QUuid &>(first), &static_cast<const QUuid &>(second));
    EXPECT_EQ(sizeof(SharedUuid), sizeof(void *));
}

TEST(SharedUuidTest, WithoutAnIdItIsNull)
{
    EXPECT_EQ(SharedUuid(), QUuid());
    EXPECT_EQ(SharedUuid(), SharedUuid(QUuid()));
    EXPECT_TRUE(QUuid(SharedUuid()).isNull());
}

TEST(SharedUuidTest, ThreadsThatMakeTheSameShareItToo)
{
    std::vector<QUuid> ids(50);
    for (QUuid &id : ids)
        id = QUuid::createUuid();
    std::vector<std::vector<SharedUuid>> made(4);
    std::vector<std::thread> threads;
    threads.reserve(made.size());
    for (auto &ofThread : made)
        threads.emplace_back([&] { ofThread.assign(ids.begin(), ids.end()); });
    for (std::thread &thread : threads)
        thread.join();
    for (const auto &ofThread : made)
        EXPECT_EQ(ofThread, made.front());
}

} // namespace ostrel::test

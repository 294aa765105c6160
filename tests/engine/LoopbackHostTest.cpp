#include "LoopbackHost.h"

#include <gtest/gtest.h>

namespace ostrel {
namespace {

TEST(LoopbackHostTest, IsThisComputerByItsText)
{
    for (const char *host :
         {"localhost", "LOCALHOST", "localhost.", "api.localhost", "127.0.0.1", "127.255.255.254",
          "127.1", "::1", "0:0:0:0:0:0:0:1", "::ffff:127.0.0.1"})
        EXPECT_TRUE(isLoopbackHost(QString::fromLatin1(host))) << host;
    for (const char *host : {"", "localhost.example.org", "mylocalhost", "128.0.0.1", "10.0.0.1",
                             "127.example.org", "1270.0.0.1", "::2", "example.org"})
        EXPECT_FALSE(isLoopbackHost(QString::fromLatin1(host))) << host;
}

} // namespace
} // namespace ostrel

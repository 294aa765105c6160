#include "AddressScope.h"

#include "Printers.h"

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <netinet/in.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

bool isPublicText(const char *text)
{
    sockaddr_in address4{};
    address4.sin_family = AF_INET;
    if (inet_pton(AF_INET, text, &address4.sin_addr) == 1)
        return isPublicAddress(reinterpret_cast<const sockaddr &>(address4));
    sockaddr_in6 address6{};
    address6.sin6_family = AF_INET6;
    EXPECT_EQ(inet_pton(AF_INET6, text, &address6.sin6_addr), 1) << text;
    return isPublicAddress(reinterpret_cast<const sockaddr &>(address6));
}

/// The last address before, and the first after, each block that isn't public.
const char *const publicAddresses[] = {
    "1.0.0.0",          "8.8.8.8",         "9.255.255.255",   "11.0.0.0",        "93.184.216.34",
    "100.63.255.255",   "100.128.0.0",     "126.255.255.255", "128.0.0.0",       "169.253.255.255",
    "169.255.0.0",      "172.15.255.255",  "172.32.0.0",      "191.255.255.255", "192.0.1.0",
    "192.167.255.255",  "192.169.0.0",     "198.17.255.255",  "198.20.0.0",      "223.255.255.255",
    "2606:4700::1111",  "2001:db8::1",     "::1:0:0:0",       "fbff::1",         "::ffff:8.8.8.8",
    "64:ff9b::8.8.8.8", "2002:808:808::1", "fe00::1",
};

const char *const otherAddresses[] = {
    "0.0.0.0",
    "0.255.255.255",
    "10.0.0.0",
    "10.255.255.255",
    "100.64.0.0",
    "100.127.255.255",
    "127.0.0.0",
    "127.0.0.1",
    "127.255.255.255",
    "169.254.0.0",
    "169.254.169.254",
    "169.254.255.255",
    "172.16.0.0",
    "172.31.255.255",
    "192.0.0.1",
    "192.168.0.0",
    "192.168.255.255",
    "198.18.0.1",
    "198.19.255.255",
    "224.0.0.1",
    "240.0.0.1",
    "255.255.255.255",
    "::",
    "::1",
    "::7f00:1",
    "fc00::1",
    "fdff:ffff::1",
    "fe80::1",
    "febf::1",
    "fec0::1",
    "feff::1",
    "ff02::1",
    "::ffff:127.0.0.1",
    "::ffff:10.1.2.3",
    "::ffff:0.0.0.0",
    "64:ff9b::192.168.0.1",
    "2002:7f00:1::1",
    "2002:c0a8:101::",
};

TEST(AddressScopeTest, AddressesOfTheInternetArePublic)
{
    for (const char *address : publicAddresses)
        EXPECT_TRUE(isPublicText(address)) << address;
}

TEST(AddressScopeTest, LoopbackPrivateAndLinkLocalAddressesArent)
{
    for (const char *address : otherAddresses)
        EXPECT_FALSE(isPublicText(address)) << address;
}

TEST(AddressScopeTest, AnAddressOfAnotherFamilyIsntPublic)
{
    sockaddr address{};
    address.sa_family = AF_UNIX;
    EXPECT_FALSE(isPublicAddress(address));
}

TEST(AddressScopeTest, ALiteralHostIsJudgedAsItsAddress)
{
    for (const char *address : publicAddresses)
        EXPECT_FALSE(isPrivateHost(QString::fromLatin1(address))) << address;
    for (const char *address : otherAddresses)
        EXPECT_TRUE(isPrivateHost(QString::fromLatin1(address))) << address;
}

TEST(AddressScopeTest, AnAddressIsPrivateHoweverItIsSpelt)
{
    for (const QString &host :
         {u"127.1"_s, u"127.0.1"_s, u"2130706433"_s, u"0x7f000001"_s, u"0X7F.0.0.1"_s,
          u"0177.0.0.1"_s, u"017700000001"_s, u"0"_s, u"0300.0250.0.1"_s, u"192.168.257"_s,
          u"127.0.0.1."_s, u"[::1]"_s, u"[::FFFF:127.0.0.1]"_s, u"0:0:0:0:0:0:0:1"_s,
          u"fe80::1%eth0"_s, u"[fe80::1%25eth0]"_s, u"１２７.０.０.１"_s, u"127。0。0。1"_s})
        EXPECT_TRUE(isPrivateHost(host)) << host.toStdString();
}

TEST(AddressScopeTest, APublicAddressIsPublicHoweverItIsSpelt)
{
    for (const QString &host :
         {u"134744072"_s, u"0x08080808"_s, u"010.8.8.8"_s, u"8.8.8.8."_s, u"[2606:4700::1111]"_s})
        EXPECT_FALSE(isPrivateHost(host)) << host.toStdString();
}

TEST(AddressScopeTest, NamesWithOnlyLocalMeaningArePrivate)
{
    for (const QString &host :
         {u"localhost"_s, u"LOCALHOST"_s, u"localhost."_s, u"app.localhost"_s, u"a.b.LocalHost."_s,
          u"ｌｏｃａｌｈｏｓｔ"_s, u"nas"_s, u"nas."_s, u"büro"_s, u"my_nas"_s, u"com"_s,
          u"printer.local"_s, u"db.internal"_s, u"nas.home.arpa."_s, QString(), u"."_s})
        EXPECT_TRUE(isPrivateHost(host)) << host.toStdString();
}

TEST(AddressScopeTest, NamesOfTheInternetArentPrivate)
{
    for (const QString &host :
         {u"example.com"_s, u"example.com."_s, u"WWW.Example.COM"_s, u"bücher.example"_s,
          u"my_shop.example.com"_s, u"notlocalhost.com"_s, u"localhost.com"_s, u"arpa.home"_s,
          u"mylocal.de"_s, u"127.0.0.1.example.com"_s, u"10.example"_s})
        EXPECT_FALSE(isPrivateHost(host)) << host.toStdString();
}

} // namespace

} // namespace ostrel::test

#include "AddressScope.h"

#include <QByteArray>
#include <QStringList>
#include <QUrl>

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <cstring>
#include <netinet/in.h>
#include <optional>
#include <span>
#include <sys/socket.h>

namespace ostrel {

namespace {

using Bytes = std::span<const quint8>;

template<std::size_t size>
struct Block
{
    std::array<quint8, size> prefix;
    int length; ///< In bits.
};

/// IPv4 address blocks that aren't public.
constexpr std::array<Block<4>, 10> privateBlocks4{{
    {{0, 0, 0, 0}, 8},
    {{10, 0, 0, 0}, 8},
    {{100, 64, 0, 0}, 10},
    {{127, 0, 0, 0}, 8},
    {{169, 254, 0, 0}, 16},
    {{172, 16, 0, 0}, 12},
    {{192, 0, 0, 0}, 24},
    {{192, 168, 0, 0}, 16},
    {{198, 18, 0, 0}, 15},
    {{224, 0, 0, 0}, 3},
}};

/// Loopback, unspecified and the former IPv4-compatible ones; unique local; link-local and
/// site-local; multicast.
constexpr std::array<Block<16>, 5> privateBlocks6{{
    {{}, 96},
    {{0xfc}, 7},
    {{0xfe, 0x80}, 10},
    {{0xfe, 0xc0}, 10},
    {{0xff}, 8},
}};

constexpr Block<16> mapped{{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff}, 96};
constexpr Block<16> nat64{{0, 0x64, 0xff, 0x9b}, 96};
constexpr Block<16> sixToFour{{0x20, 0x02}, 16};

template<std::size_t size>
bool isWithin(Bytes address, const Block<size> &block)
{
    const auto whole = static_cast<std::size_t>(block.length / 8);
    const int rest = block.length % 8;
    if (!std::equal(address.begin(), address.begin() + static_cast<std::ptrdiff_t>(whole),
                    block.prefix.begin()))
        return false;
    return rest == 0 || (address[whole] ^ block.prefix.at(whole)) >> (8 - rest) == 0;
}

template<typename Blocks>
bool isWithinAny(Bytes address, const Blocks &blocks)
{
    return std::ranges::any_of(blocks, [&](const auto &block) { return isWithin(address, block); });
}

bool isPublic4(Bytes address)
{
    return !isWithinAny(address, privateBlocks4);
}

bool isPublic6(Bytes address)
{
    if (isWithin(address, mapped) || isWithin(address, nat64))
        return isPublic4(address.subspan(12, 4));
    if (isWithin(address, sixToFour))
        return isPublic4(address.subspan(2, 4));
    return !isWithinAny(address, privateBlocks6);
}

template<typename Address>
std::array<quint8, sizeof(Address)> bytesOf(const Address &address)
{
    std::array<quint8, sizeof(Address)> bytes{};
    std::memcpy(bytes.data(), &address, sizeof(Address));
    return bytes;
}

/// Nullopt if @p host isn't a literal address.
std::optional<bool> isPublicLiteral(const QByteArray &host)
{
    in6_addr address6{};
    const QByteArray withoutZone = host.split('%').constFirst();
    if (inet_pton(AF_INET6, withoutZone.constData(), &address6) == 1)
        return isPublic6(bytesOf(address6));
    in_addr address4{};
    // Unlike inet_pton(), this accepts the spellings with fewer parts, octal and hexadecimal ones.
    if (inet_aton(host.constData(), &address4) != 0)
        return isPublic4(bytesOf(address4));
    return std::nullopt;
}

QByteArray withoutBrackets(const QByteArray &host)
{
    return host.startsWith('[') && host.endsWith(']') ? host.sliced(1, host.size() - 2) : host;
}

/// In small ASCII letters, as a resolver would get it, without the root's dot.
QByteArray plainHost(const QString &host)
{
    const QByteArray ascii = host.contains(u':') ? QByteArray() : QUrl::toAce(host);
    QByteArray plain = withoutBrackets((ascii.isEmpty() ? host.toUtf8() : ascii).toLower());
    if (plain.endsWith('.'))
        plain.chop(1);
    return plain;
}

bool isPrivateName(const QByteArray &name)
{
    if (!name.contains('.'))
        return true;
    const std::array<const char *, 4> zones{".localhost", ".local", ".internal", ".home.arpa"};
    return std::ranges::any_of(zones, [&](const char *zone) { return name.endsWith(zone); });
}

} // namespace

bool isPublicAddress(const sockaddr &address)
{
    if (address.sa_family == AF_INET) {
        sockaddr_in address4{};
        std::memcpy(&address4, &address, sizeof(address4));
        return isPublic4(bytesOf(address4.sin_addr));
    }
    if (address.sa_family == AF_INET6) {
        sockaddr_in6 address6{};
        std::memcpy(&address6, &address, sizeof(address6));
        return isPublic6(bytesOf(address6.sin6_addr));
    }
    return false;
}

bool isPrivateHost(const QString &host)
{
    const QByteArray plain = plainHost(host);
    const std::optional<bool> isPublic = isPublicLiteral(plain);
    return isPublic ? !*isPublic : isPrivateName(plain);
}

} // namespace ostrel

#pragma once

#include <QString>

struct sockaddr;

namespace ostrel {

/// Whether @p address is one that the whole internet could reach: neither loopback, private (RFC
/// 1918, fc00::/7), link-local, shared (100.64.0.0/10), unspecified nor multicast or reserved. One
/// that holds an IPv4 address (mapped, NAT64, 6to4) is judged by that. False for what is neither
/// IPv4 nor IPv6.
[[nodiscard]] bool isPublicAddress(const sockaddr &address);

/// Whether @p host, as it is written, means something to this computer or its own network alone: an
/// address that isn't public in any spelling that a URL allows ("127.1", "0x7f000001", "[::1]"),
/// localhost or a name below it, a name of one label, or one of a zone for private use (local,
/// internal, home.arpa). Names aren't looked up. True for what is no host.
[[nodiscard]] bool isPrivateHost(const QString &host);

} // namespace ostrel

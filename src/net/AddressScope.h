#pragma once

#include <QString>

struct sockaddr;

namespace ostrel {

/// Whether @p address is reachable from the whole internet: neither loopback, private (RFC 1918,
/// fc00::/7), link-local, shared (100.64.0.0/10), unspecified, multicast nor reserved. An address
/// that embeds an IPv4 address (mapped, NAT64, 6to4) is judged by that one. False if it is neither
/// IPv4 nor IPv6.
[[nodiscard]] bool isPublicAddress(const sockaddr &address);

/// Whether @p host, as written, means something only to this computer or its own network: an
/// address that isn't public, in any spelling that a URL allows ("127.1", "0x7f000001", "[::1]"),
/// localhost or a name below it, a name with a single label, or a name in a zone for private use
/// (local, internal, home.arpa). Names aren't resolved. True if @p host isn't a host at all.
[[nodiscard]] bool isPrivateHost(const QString &host);

} // namespace ostrel

#pragma once

#include "HostileServer.h"
#include "TestCertificates.h"

namespace ostrel::test {

// What a HostileServer may do on a connection that a TLS client opens. All are without Greeting.

/// Reads a request, sends @p response over TLS, and closes the connection without the close_notify
/// that marks a complete response.
[[nodiscard]] HostileServer::Behaviour closeWithoutNotify(const TestLeaf &leaf,
                                                          const QByteArray &response);

/// Terminates the client's TLS, and relays the plain bytes to @p port of 127.0.0.1.
[[nodiscard]] HostileServer::Behaviour terminateTls(const TestLeaf &leaf, quint16 port);

} // namespace ostrel::test

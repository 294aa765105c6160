#pragma once

#include "HostileServer.h"
#include "TestCertificates.h"

namespace ostrel::test {

// What a HostileServer may do on a connection that a TLS client opens. Without Greeting.

/// Reads a request, sends @p response over TLS, and closes the connection without the close_notify
/// that says that nothing is missing.
[[nodiscard]] HostileServer::Behaviour closeWithoutNotify(const TestLeaf &leaf,
                                                          const QByteArray &response);

/// Speaks TLS with the client, and hands what it says on to @p port of 127.0.0.1.
[[nodiscard]] HostileServer::Behaviour terminateTls(const TestLeaf &leaf, quint16 port);

} // namespace ostrel::test

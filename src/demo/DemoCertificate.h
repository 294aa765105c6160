#pragma once

#include <QByteArray>

#include <chrono>

namespace ostrel {

/// A certificate for two of this computer's loopback addresses, with the authority that has signed
/// it. Both are made afresh, and the authority's key is forgotten at once, so that nothing else is
/// ever signed with it. All members are PEM.
struct DemoCertificate
{
    QByteArray authority;
    QByteArray certificate;
    QByteArray key; ///< The certificate's.

    /// For 127.0.0.1 and 127.0.0.HOST, with @p lifetime from now until its not-after. Members are
    /// empty if it can't be made.
    [[nodiscard]] static DemoCertificate make(int host, std::chrono::seconds lifetime);
};

} // namespace ostrel

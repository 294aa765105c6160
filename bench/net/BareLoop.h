#pragma once

#include "TrustStore.h"

#include <QByteArray>

#include <chrono>
#include <vector>

namespace ostrel::bench {

/// Fetches @p url @p count times, up to @p maxConcurrent at once, using only libcurl's multi
/// interface in a loop on the calling thread. The settings that affect the traffic are those of
/// CurlNetwork. Returns the times that the library reports, in order of completion.
[[nodiscard]] std::vector<std::chrono::microseconds>
fetchBare(const QByteArray &url, int count, int maxConcurrent, const TrustStore &trustStore);

} // namespace ostrel::bench

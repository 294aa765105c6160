#pragma once

#include "TrustStore.h"

#include <QByteArray>

#include <chrono>
#include <vector>

namespace ostrel::bench {

/// Fetches @p url @p count times, up to @p maxConcurrent at once, with nothing but libcurl's multi
/// interface in a loop on the calling thread, and the settings that matter for what is done on the
/// wire as CurlNetwork has them. The times that the library reports, in order of completion.
[[nodiscard]] std::vector<std::chrono::microseconds>
fetchBare(const QByteArray &url, int count, int maxConcurrent, const TrustStore &trustStore);

} // namespace ostrel::bench

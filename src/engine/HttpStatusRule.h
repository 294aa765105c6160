#pragma once

namespace ostrel {

/// Whether a website that answers with the HTTP status @p statusCode is up: from 200 to 399, and
/// 401 and 403, since a site that asks for credentials, or forbids the anonymous client, is alive.
[[nodiscard]] bool isUpStatus(int statusCode);

} // namespace ostrel

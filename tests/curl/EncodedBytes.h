#pragma once

#include <QByteArray>

namespace ostrel::test {

// Encoded forms of @p plain, as servers send them.

[[nodiscard]] QByteArray gzip(const QByteArray &plain);
/// "deflate" with zlib's frame, as it should be, and without.
[[nodiscard]] QByteArray deflated(const QByteArray &plain);
[[nodiscard]] QByteArray bareDeflated(const QByteArray &plain);
[[nodiscard]] QByteArray brotli(const QByteArray &plain);
[[nodiscard]] QByteArray zstd(const QByteArray &plain);

} // namespace ostrel::test

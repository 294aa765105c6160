#pragma once

#include <QByteArray>

namespace ostrel::test {

// What servers send of @p plain.

[[nodiscard]] QByteArray gzip(const QByteArray &plain);
/// "deflate" as it should be, and without zlib's frame.
[[nodiscard]] QByteArray deflated(const QByteArray &plain);
[[nodiscard]] QByteArray bareDeflated(const QByteArray &plain);
[[nodiscard]] QByteArray brotli(const QByteArray &plain);
[[nodiscard]] QByteArray zstd(const QByteArray &plain);

} // namespace ostrel::test

#pragma once

#include "Network.h"

#include <QImage>
#include <QString>

#include <optional>

namespace ostrel {

/// Upper bound for the bytes of a response that are read, after decoding. A page is cut there; a
/// larger picture is rejected.
inline constexpr qsizetype answerLimit = qsizetype(2) * 1024 * 1024;

/// A GET of @p address as a plain client sends it, within 8 seconds, as far as @p reach allows.
/// Nullopt if the address isn't an http or https URL, or is longer than any server accepts.
[[nodiscard]] std::optional<HttpRequest> plainGet(const QString &address, Reach reach);

/// The text of a fetched page. Nullopt unless the response's status is 200 and its body UTF-8. Any
/// thread.
[[nodiscard]] std::optional<QString> pageIn(const HttpResult &result);

/// The fetched picture. Null unless the response's status is 200 and its body, of 51 bytes to
/// answerLimit, a picture wider than one pixel: services return something smaller if they have
/// none. Same rules as decodePicture().
[[nodiscard]] QImage pictureIn(const HttpResult &result);

} // namespace ostrel

#pragma once

#include "Network.h"

#include <QImage>
#include <QString>

#include <optional>

namespace ostrel {

/// How much of an answer is read, in bytes after decoding. A page is cut there; a picture that is
/// larger is refused.
inline constexpr qsizetype answerLimit = qsizetype(2) * 1024 * 1024;

/// A GET of @p address as a plain client sends it, within 8 seconds, as far as @p reach allows.
/// Nothing where the address is no URL of http or https, or is longer than any server takes.
[[nodiscard]] std::optional<HttpRequest> plainGet(const QString &address, Reach reach);

/// The text of a page that was fetched. Nothing unless the answer's status is 200 and its body
/// UTF-8. Any thread.
[[nodiscard]] std::optional<QString> pageIn(const HttpResult &result);

/// The picture that was fetched. Null unless the answer's status is 200 and its body, of 51 bytes
/// to answerLimit, a picture wider than one pixel: services answer with something smaller where
/// they have none. On the terms of decodePicture.
[[nodiscard]] QImage pictureIn(const HttpResult &result);

} // namespace ostrel

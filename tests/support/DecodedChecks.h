#pragma once

#include "CheckJson.h"

#include <QByteArray>

#include <optional>

namespace ostrel::test {

/// Decodes the stored map of histories @p json into @p visitor; false if CheckMapDecoder rejects
/// it.
[[nodiscard]] bool decodeCheckMap(QByteArray json, CheckMapVisitor &visitor);

/// The check that @p json, one object, holds. Nothing if it would make a map of histories
/// unreadable, or isn't exactly one check.
[[nodiscard]] std::optional<Check> decodeCheck(const QByteArray &json);

} // namespace ostrel::test

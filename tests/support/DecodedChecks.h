#pragma once

#include "CheckJson.h"

#include <QByteArray>

#include <optional>

namespace ostrel::test {

/// Has @p visitor read the stored map of histories @p json; false on the terms of CheckMapDecoder.
[[nodiscard]] bool decodeCheckMap(QByteArray json, CheckMapVisitor &visitor);

/// The check that @p json, one object, holds. Nothing where it would spoil a map of histories, or
/// isn't exactly one check.
[[nodiscard]] std::optional<Check> decodeCheck(const QByteArray &json);

} // namespace ostrel::test

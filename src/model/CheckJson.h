#pragma once

#include "Check.h"

#include <QByteArrayView>
#include <QUuid>

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ostrel {

/// Appends the stored form of @p check to @p json: one JSON object without white space, absent
/// fields left out, dates in whole seconds, UUIDs upper case. A response time that is no finite
/// number, which JSON can't hold, is written as 0.
void appendCheck(std::string &json, const Check &check);

/// The check that @p json, one object, holds; nothing on the terms of decodeCheckMap.
[[nodiscard]] std::optional<Check> decodeCheck(QByteArrayView json);

} // namespace ostrel

#pragma once

#include <QByteArray>

namespace ostrel {

/// The shortest form of @p number that reads back as the same number, in every locale.
[[nodiscard]] QByteArray numberText(double number);

} // namespace ostrel

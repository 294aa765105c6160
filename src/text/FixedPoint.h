#pragma once

#include <QString>

namespace ostrel {

/// @p number in fixed-point notation with @p decimals digits after the point, in every locale
/// exactly as C's printf writes it: a tie goes to the even digit ("500" for 500.5). Qt's asprintf
/// rounds ties up.
[[nodiscard]] QString fixedPoint(double number, int decimals = 0);

} // namespace ostrel

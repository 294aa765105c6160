#pragma once

#include <QStringView>

namespace ostrel {

/// Upper bound for the attributes of any element of @p svg, up to its first fault if it isn't
/// well-formed XML. Exact unless a comment or a script holds what looks like an element. Takes
/// linear time; the reader of Qt 6.4 takes quadratic time, because it compares each attribute with
/// all others.
[[nodiscard]] qsizetype mostAttributesIn(QStringView svg);

} // namespace ostrel

#pragma once

#include <QStringView>

namespace ostrel {

/// How many attributes the element of @p svg has that has most of them; where @p svg is no
/// well-formed XML, of those before its first fault. May be more, but not fewer, where a comment, a
/// script or the like holds what looks like an element. Takes linear time, in which the reader of
/// Qt 6.4 can't read an element of many attributes: it compares each with all others.
[[nodiscard]] qsizetype mostAttributesIn(QStringView svg);

} // namespace ostrel

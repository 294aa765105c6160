#pragma once

#include <QSet>
#include <QString>

namespace ostrel::test {

/// The long options, without their dashes, that are written in full in @p text.
[[nodiscard]] QSet<QString> longOptionsIn(const QString &text);

} // namespace ostrel::test

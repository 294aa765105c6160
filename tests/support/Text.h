#pragma once

#include <QString>

namespace ostrel::test {

/// A literal's text, which is UTF-8, where QStringLiteral would bury what it says.
inline QString text(const char *english)
{
    return QString::fromUtf8(english);
}

} // namespace ostrel::test

#pragma once

#include <QList>
#include <QString>

#include <gtest/gtest.h>

#include <ostream>

namespace ostrel::test {

/// A page's title, a server's answer or a file's content that may do harm if it is shown.
struct ForeignText
{
    const char *name;
    QString text;
};

inline void PrintTo(const ForeignText &foreign, std::ostream *out)
{
    *out << foreign.name;
}

/// The same texts for every output.
[[nodiscard]] const QList<ForeignText> &foreignTexts();

/// Whether @p text is fit to be shown to people: on one line, without characters that move a cursor
/// or reverse the order of characters, and not much longer than the 200 characters that foreign
/// text may have.
[[nodiscard]] testing::AssertionResult isFitForPeople(const QString &text);

} // namespace ostrel::test

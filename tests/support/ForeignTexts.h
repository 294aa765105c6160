#pragma once

#include <QList>
#include <QString>

#include <gtest/gtest.h>

#include <ostream>

namespace ostrel::test {

/// What a page calls itself, a server says or a file holds, to do harm where it is shown.
struct ForeignText
{
    const char *name;
    QString text;
};

inline void PrintTo(const ForeignText &foreign, std::ostream *out)
{
    *out << foreign.name;
}

/// The same ones for every way out.
[[nodiscard]] const QList<ForeignText> &foreignTexts();

/// Whether @p text is fit to be shown to people: on one line, without anything that moves a cursor
/// or turns the order of the characters round, and not much longer than the 200 characters that may
/// come from elsewhere.
[[nodiscard]] testing::AssertionResult isFitForPeople(const QString &text);

} // namespace ostrel::test

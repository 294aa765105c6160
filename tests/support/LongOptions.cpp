#include "LongOptions.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace ostrel::test {

QSet<QString> longOptionsIn(const QString &text)
{
    static const QRegularExpression option(u"(?<![\\w-])--([a-z][a-z-]+)"_s);
    QSet<QString> names;
    for (const auto &match : option.globalMatch(text))
        names.insert(match.captured(1));
    return names;
}

} // namespace ostrel::test

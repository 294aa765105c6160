#include "OptionalText.h"

namespace ostrel {

OptionalText::OptionalText(const QString &text)
    : m_text(new Text(text))
{
}

QString OptionalText::value_or(const QString &fallback) const
{
    return m_text ? m_text->text : fallback;
}

bool operator==(const OptionalText &left, const OptionalText &right)
{
    if (!left.m_text || !right.m_text)
        return !left.m_text && !right.m_text;
    return left.m_text->text == right.m_text->text;
}

} // namespace ostrel

#include "SvgAttributes.h"

#include <QChar>

#include <algorithm>

namespace ostrel {

namespace {

/// Counts the attributes of each element. No value of an attribute holds "<", so every "<" may
/// begin an element, whatever the scan takes its surroundings for.
class AttributeScan
{
public:
    /// @p next is the character after @p character.
    void read(QChar character, QChar next)
    {
        if (character == u'<')
            begin(next);
        else if (m_isInTag && !m_quote.isNull())
            m_quote = character == m_quote ? QChar() : m_quote;
        else if (m_isInTag)
            readInTag(character);
    }

    /// Of the element with the most attributes so far.
    [[nodiscard]] qsizetype most() const { return m_most; }

private:
    void begin(QChar next)
    {
        m_isInTag = next != u'!' && next != u'?';
        m_quote = {};
        m_count = 0;
    }

    void readInTag(QChar character)
    {
        if (character == u'"' || character == u'\'')
            m_quote = character;
        if (character == u'=')
            m_most = std::max(m_most, ++m_count);
        m_isInTag = character != u'>';
    }

    bool m_isInTag = false;
    QChar m_quote; ///< Null outside a value.
    qsizetype m_count = 0;
    qsizetype m_most = 0;
};

} // namespace

qsizetype mostAttributesIn(QStringView svg)
{
    AttributeScan scan;
    for (qsizetype i = 0; i < svg.size(); ++i)
        scan.read(svg[i], i + 1 < svg.size() ? svg[i + 1] : QChar());
    return scan.most();
}

} // namespace ostrel

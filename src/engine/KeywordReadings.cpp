#include "KeywordReadings.h"

#include <QString>
#include <QVector>

#include <unicode/uchar.h>
#include <unicode/unorm2.h>

#include <algorithm>
#include <array>

namespace ostrel {

namespace {

/// The third level, which tells case, lies in the lowest bits of an element.
constexpr std::int32_t secondLevel = ~0xff;

std::u16string toUtf16(char32_t character)
{
    if (!QChar::requiresSurrogates(character))
        return {char16_t(character)};
    return {QChar::highSurrogate(character), QChar::lowSurrogate(character)};
}

std::u32string toUtf32(std::u16string_view text)
{
    const auto characters = QStringView(text.data(), qsizetype(text.size())).toUcs4();
    return {characters.begin(), characters.end()};
}

const UNormalizer2 *decomposer()
{
    UErrorCode status = U_ZERO_ERROR;
    return unorm2_getNFDInstance(&status);
}

/// The first character of what @p character decomposes to.
char32_t firstPart(char32_t character)
{
    std::array<char16_t, 32> parts{};
    UErrorCode status = U_ZERO_ERROR;
    const auto length = unorm2_getDecomposition(decomposer(), UChar32(character), parts.data(),
                                                int32_t(parts.size()), &status);
    if (U_FAILURE(status) || length <= 0)
        return character;
    return toUtf32({parts.data(), std::size_t(length)}).front();
}

bool hasOption(const UCollator *collator, UColAttribute attribute, UColAttributeValue value)
{
    UErrorCode status = U_ZERO_ERROR;
    return ucol_getAttribute(collator, attribute, &status) == value && U_SUCCESS(status);
}

} // namespace

KeywordReadings::KeywordReadings(const UCollator *collator, std::u16string_view keyword)
    : m_collator(collator)
    , m_codes(0x10000, unread)
{
    UErrorCode status = U_ZERO_ERROR;
    m_elements.reset(ucol_openElements(collator, u"", 0, &status));
    if (U_FAILURE(status) || !hasOption(collator, UCOL_ALTERNATE_HANDLING, UCOL_NON_IGNORABLE) ||
        !hasOption(collator, UCOL_NUMERIC_COLLATION, UCOL_OFF))
        return;
    readKeyword(keyword);
    if (m_keyword.empty() || m_weights.size() >= lastPlain)
        return;
    readContractions();
    std::fill(m_codes.begin() + 0xd800, m_codes.begin() + 0xe000, other);
    m_areUsable = true;
}

const KeywordReadings::Reading &KeywordReadings::reading(char32_t character)
{
    const auto known = m_readings.find(character);
    return known != m_readings.end() ? known->second
                                     : m_readings.emplace(character, read(character)).first->second;
}

KeywordReadings::Elements KeywordReadings::elements(std::u16string_view text) const
{
    Elements elements;
    UErrorCode status = U_ZERO_ERROR;
    ucol_setText(m_elements.get(), text.data(), int32_t(text.size()), &status);
    for (;;) {
        const std::int32_t element = ucol_next(m_elements.get(), &status);
        if (U_FAILURE(status) || element == UCOL_NULLORDER)
            return elements;
        if ((element & secondLevel) != 0)
            elements.push_back(element & secondLevel);
    }
}

KeywordReadings::Weight KeywordReadings::weight(std::int32_t element) const
{
    const auto known = m_weights.find(element);
    return known == m_weights.end() ? Weight(0) : known->second;
}

bool KeywordReadings::touchesKeyword(const Elements &elements) const
{
    return std::any_of(elements.begin(), elements.end(),
                       [this](std::int32_t element) { return weight(element) != 0; });
}

void KeywordReadings::readKeyword(std::u16string_view keyword)
{
    for (const std::int32_t element : elements(keyword)) {
        const auto next = Weight(m_weights.size() + 1);
        m_keyword.push_back(m_weights.try_emplace(element, next).first->second);
    }
}

void KeywordReadings::readContractions()
{
    const IcuSet set(uset_openEmpty());
    UErrorCode status = U_ZERO_ERROR;
    ucol_getContractionsAndExpansions(m_collator, set.get(), nullptr, true, &status);
    const int32_t count = uset_getItemCount(set.get());
    for (int32_t i = 0; i < count; ++i) {
        std::array<char16_t, 128> text{};
        UChar32 first = 0;
        UChar32 last = 0;
        const int32_t length =
            uset_getItem(set.get(), i, &first, &last, text.data(), int32_t(text.size()), &status);
        if (length >= 2)
            readContraction({text.data(), std::size_t(length)});
    }
    m_areUsable = U_SUCCESS(status);
}

void KeywordReadings::readContraction(std::u16string_view contraction)
{
    const auto parts = toUtf32(contraction);
    m_contracted.insert(parts.begin(), parts.end());
    if (touchesKeyword(elements(contraction)))
        m_doubtfulTrailers.insert(parts.begin() + 1, parts.end());
}

KeywordReadings::Code KeywordReadings::readUnit(char16_t unit)
{
    const Reading &reading = this->reading(unit);
    const auto &weights = reading.weights;
    const bool isOneAll = std::all_of(weights.begin(), weights.end(),
                                      [&](Weight weight) { return weight == weights.front(); });
    const bool isPlain = !reading.isDoubtful && !weights.empty() && isLonely(unit) &&
                         (weights.size() == 1 || (isOneAll && weights.front() == 0));
    m_codes[unit] = isPlain ? weights.front() : other;
    return m_codes[unit];
}

KeywordReadings::Reading KeywordReadings::read(char32_t character) const
{
    const Elements elements = this->elements(toUtf16(character));
    Reading reading{isDoubtful(character, elements), {}};
    for (const std::int32_t element : elements)
        reading.weights.push_back(weight(element));
    return reading;
}

bool KeywordReadings::isDoubtful(char32_t character, const Elements &elements) const
{
    if (QChar::isSurrogate(character))
        return true;
    const char32_t first = firstPart(character);
    if (m_doubtfulTrailers.contains(character) || m_doubtfulTrailers.contains(first))
        return true;
    // Accents are put in order before they are read.
    return u_getCombiningClass(UChar32(first)) != 0 &&
           (elements.empty() || touchesKeyword(elements));
}

/// Whether nothing that stands beside the character changes how it's read, or is changed by it.
bool KeywordReadings::isLonely(char32_t character) const
{
    const auto point = UChar32(character);
    return unorm2_isInert(decomposer(), point) &&
           u_getIntPropertyValue(point, UCHAR_GRAPHEME_CLUSTER_BREAK) == U_GCB_OTHER &&
           !m_contracted.contains(character);
}

} // namespace ostrel

#include "CaselessSearch.h"

#include <QtGlobal>

#include <algorithm>
#include <new>

namespace ostrel {

namespace {

/// How much is decoded and folded at a time: little enough to stay in the processor's caches.
constexpr qsizetype blockSize = qsizetype(16) * 1024;

bool isAscii(QByteArrayView bytes)
{
    return std::none_of(bytes.begin(), bytes.end(),
                        [](char byte) { return static_cast<unsigned char>(byte) > 0x7f; });
}

std::string_view viewOf(QByteArrayView bytes)
{
    return {bytes.data(), static_cast<std::size_t>(bytes.size())};
}

std::u16string_view viewOf(QStringView text)
{
    return {text.utf16(), static_cast<std::size_t>(text.size())};
}

/// The whole folded @p keyword; nullopt if ICU fails.
std::optional<std::u16string> folded(CaselessFolding &folding, QStringView keyword)
{
    folding.begin();
    const auto most = folding.fold(viewOf(keyword));
    if (!most)
        return std::nullopt;
    std::u16string whole(*most);
    const auto rest = folding.flush();
    if (!rest)
        return std::nullopt;
    return whole.append(*rest);
}

} // namespace

CaselessSearch::CaselessSearch(QStringView keyword)
{
    if (const auto wanted = folded(m_folding, keyword))
        m_matcher.emplace(*wanted);
    begin();
}

void CaselessSearch::begin()
{
    m_isReadable = m_matcher.has_value();
    if (m_isReadable)
        m_matcher->begin();
    m_folding.begin();
    m_utf8 = Utf8Stream();
}

void CaselessSearch::read(QByteArrayView bytes)
try {
    for (; m_isReadable && !bytes.isEmpty(); bytes = bytes.sliced(qMin(blockSize, bytes.size())))
        m_isReadable = readBlock(bytes.first(qMin(blockSize, bytes.size())));
} catch (const std::bad_alloc &) {
    m_isReadable = false;
}

std::optional<bool> CaselessSearch::finish()
try {
    if (!m_isReadable || !m_utf8.isBetweenCharacters() || !match(m_folding.flush()))
        return std::nullopt;
    m_matcher->finish();
    return m_matcher->isFound();
} catch (const std::bad_alloc &) {
    return std::nullopt;
}

bool CaselessSearch::readBlock(QByteArrayView bytes)
{
    if (m_folding.isSimpleForAscii() && m_utf8.isBetweenCharacters() && isAscii(bytes)) {
        if (!match(m_folding.flush()))
            return false;
        m_matcher->takeAscii(viewOf(bytes));
        return true;
    }
    // Decodes even after the keyword was found: the rest must be UTF-8, too.
    const auto text = m_utf8.decode(bytes);
    return text && (m_matcher->isFound() || match(m_folding.fold(*text)));
}

/// False if folding failed.
bool CaselessSearch::match(std::optional<std::u16string_view> folded)
{
    if (folded)
        m_matcher->take(*folded);
    return folded.has_value();
}

} // namespace ostrel

#pragma once

#include "CaselessFolding.h"
#include "SequenceMatcher.h"
#include "Utf8Stream.h"

#include <QByteArrayView>
#include <QStringView>

#include <optional>

namespace ostrel {

/// Searches a page for a keyword while the page arrives, and keeps nothing that it has searched.
///
/// A keyword is found if a part of the page is a canonical caseless match of it (the Unicode
/// Standard, section 3.13, D145) that ends where a combining sequence ends. So composed and
/// decomposed letters are equal, and so are capital and small ones; "e" isn't in "é". The keyword
/// is a text, not a pattern; every page contains an empty one. Takes time linear in the page's
/// length, whatever the page and the keyword. One thread at a time.
class CaselessSearch
{
public:
    /// May throw std::bad_alloc.
    explicit CaselessSearch(QStringView keyword);

    /// Starts another page.
    void begin();
    /// The next bytes, a chunk of any size.
    void read(QByteArrayView bytes);
    /// Ends the page. Returns whether it contains the keyword; nullopt if it isn't UTF-8, if ICU
    /// failed or if there wasn't enough memory.
    [[nodiscard]] std::optional<bool> finish();

private:
    [[nodiscard]] bool readBlock(QByteArrayView bytes);
    [[nodiscard]] bool match(std::optional<std::u16string_view> folded);

    CaselessFolding m_folding;
    std::optional<SequenceMatcher> m_matcher; ///< Nullopt if the keyword couldn't be folded.
    Utf8Stream m_utf8;
    bool m_isReadable = true; ///< Nothing has failed so far.
};

} // namespace ostrel

#include "Address.h"
#include "FuzzTarget.h"

#include <cstdlib>

std::vector<std::string_view> ostrel::fuzz::dictionary()
{
    return {"http://", "https://", "[::1]",  "@",        ":",
            "/",       "?",        "#",      "%",        "%00",
            "xn--",    "..",       ":65536", "\xc3\xbc", "\xe2\x80\xae",
            " ",       "[",        "]",      "\\",       "localhost"};
}

// A text accepted as an address is also accepted in its encoded form, with the same host.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    using namespace ostrel;
    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size));
    const auto url = parseAddress(text);
    const auto host = hostOf(text);
    if (!url)
        return host ? (std::abort(), 0) : 0;
    if (host && host->isEmpty())
        std::abort();
    if (host && hostOf(QString::fromLatin1(url->toEncoded())) != host)
        std::abort();
    return 0;
}

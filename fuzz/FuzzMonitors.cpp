#include "FuzzTarget.h"
#include "MonitorJson.h"

#include <cstdlib>

std::vector<std::string_view> ostrel::fuzz::dictionary()
{
    return {"[",
            "]",
            "{",
            "}",
            ",",
            ":",
            "null",
            "true",
            "80.5",
            "1e400",
            "-0",
            "\"id\"",
            "\"port\"",
            "\"PUT\"",
            "\\ud800",
            "\\u0000",
            "\"type\"",
            "\"port\":1e1",
            "9223372036854775807",
            "\xef\xbb\xbf",
            "\xff"};
}

// Monitors that were read once are read back from their own stored form.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    using namespace ostrel;
    const auto monitors = decodeMonitors(QByteArrayView(data, qsizetype(size)));
    if (monitors && decodeMonitors(encodeMonitors(*monitors)) != monitors)
        std::abort();
    return 0;
}

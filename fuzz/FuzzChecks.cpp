#include "CheckJson.h"
#include "FuzzTarget.h"

#include <cstdlib>

namespace {

using namespace ostrel;

class Collector : public CheckMapVisitor
{
public:
    void openHistory(const QUuid & /*monitorId*/) override {}
    void takeCheck(Check &&check, std::string_view stored) override
    {
        expectReadBack(check, std::string(stored));
        std::string encoded;
        appendCheck(encoded, check);
        expectReadBack(check, encoded);
    }

private:
    static void expectReadBack(const Check &check, const std::string &json)
    {
        if (decodeCheck(QByteArrayView(json.data(), qsizetype(json.size()))) != check)
            std::abort();
    }
};

} // namespace

std::vector<std::string_view> fuzz::dictionary()
{
    return {"[",
            "]",
            "{",
            "}",
            ",",
            ":",
            "null",
            "true",
            "200.5",
            "1e400",
            "-0",
            "\"id\"",
            "\"later\":1,",
            "\\\"",
            "\\ud800",
            "\\u0000",
            "\"error\":\"x\",",
            "\"isUp\":true,",
            " ",
            "\n",
            "2147483647",
            "\xff"};
}

// What has been read once is read back, both from the text that is kept and from its own stored
// form.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Collector collector;
    (void)decodeCheckMap(QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)),
                         collector);
    return 0;
}

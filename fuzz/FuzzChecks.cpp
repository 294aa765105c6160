#include "DecodedChecks.h"
#include "FuzzTarget.h"

#include <cstdlib>

namespace {

using namespace ostrel;

class Collector : public CheckMapVisitor
{
public:
    explicit Collector(const QByteArray &text)
        : m_text(text)
    {
    }

    void openHistory(const QUuid & /*monitorId*/) override {}
    void takeCheck(Check &&check, std::optional<TextRange> compact) override
    {
        if (compact)
            expectReadBack(check,
                           m_text.mid(qsizetype(compact->offset), qsizetype(compact->length)));
        std::string encoded;
        appendCheck(encoded, check);
        expectReadBack(check, QByteArray::fromStdString(encoded));
    }

private:
    static void expectReadBack(const Check &check, const QByteArray &json)
    {
        if (test::decodeCheck(json) != check)
            std::abort();
    }

    QByteArray m_text;
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

// A check that was read once is read back from its compact text and from its own stored form.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray text(reinterpret_cast<const char *>(data), qsizetype(size));
    Collector collector(text);
    (void)test::decodeCheckMap(text, collector);
    return 0;
}

#include "DecodedChecks.h"

#include <utility>
#include <vector>

namespace ostrel::test {

namespace {

class Collector : public CheckMapVisitor
{
public:
    void openHistory(const QUuid & /*monitorId*/) override {}
    void takeCheck(Check &&check, std::optional<TextRange> /*compact*/) override
    {
        checks.push_back(std::move(check));
    }

    std::vector<Check> checks;
};

} // namespace

bool decodeCheckMap(QByteArray json, CheckMapVisitor &visitor)
{
    json.reserve(json.size() + qsizetype(CheckMapDecoder::padding));
    return CheckMapDecoder(visitor).decode({json.constData(), std::size_t(json.size())});
}

std::optional<Check> decodeCheck(const QByteArray &json)
{
    Collector collector;
    const QByteArray map = R"(["FEDCBA98-7654-3210-FEDC-BA9876543210",[)" + json + "]]";
    if (!decodeCheckMap(map, collector) || collector.checks.size() != 1)
        return std::nullopt;
    return collector.checks.front();
}

} // namespace ostrel::test

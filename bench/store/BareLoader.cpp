#include "BareLoader.h"

#include <simdjson.h>

#include <chrono>
#include <string_view>

namespace ostrel::bench {

namespace {

using namespace simdjson;

std::uint8_t nibble(char character)
{
    return static_cast<std::uint8_t>(character <= '9' ? character - '0'
                                                      : (character | 0x20) - 'a' + 10);
}

std::array<std::uint8_t, 16> uuidOf(std::string_view text)
{
    std::array<std::uint8_t, 16> bytes{};
    if (text.size() != 36)
        throw simdjson_error(INCORRECT_TYPE);
    std::size_t position = 0;
    for (std::uint8_t &byte : bytes) {
        if (text[position] == '-')
            ++position;
        byte = static_cast<std::uint8_t>(nibble(text[position]) << 4 | nibble(text[position + 1]));
        position += 2;
    }
    return bytes;
}

int numberAt(std::string_view text, std::size_t position, std::size_t count)
{
    int number = 0;
    for (std::size_t i = position; i < position + count; ++i)
        number = number * 10 + (text[i] - '0');
    return number;
}

std::int64_t secondsOf(std::string_view text)
{
    using namespace std::chrono;
    if (text.size() != 20)
        throw simdjson_error(INCORRECT_TYPE);
    const year_month_day date(year(numberAt(text, 0, 4)),
                              month(static_cast<unsigned>(numberAt(text, 5, 2))),
                              day(static_cast<unsigned>(numberAt(text, 8, 2))));
    return sys_days(date).time_since_epoch().count() * 86400LL + numberAt(text, 11, 2) * 3600 +
           numberAt(text, 14, 2) * 60 + numberAt(text, 17, 2);
}

PlainCheck checkOf(ondemand::object object)
{
    PlainCheck check;
    check.id = uuidOf(object.find_field("id"));
    check.monitorId = uuidOf(object.find_field("monitorId"));
    check.timestamp = secondsOf(object.find_field("timestamp"));
    check.statusCode = object.find_field("statusCode");
    check.responseTime = object.find_field("responseTime");
    check.isUp = object.find_field("isUp");
    if (!check.isUp)
        check.error = std::string(std::string_view(object.find_field("error")));
    check.sslExpiresAt = secondsOf(object.find_field("sslExpiresAt"));
    return check;
}

} // namespace

std::vector<PlainHistory> loadBare(const std::string &path)
{
    try {
        std::vector<PlainHistory> histories;
        const padded_string json = padded_string::load(path);
        ondemand::parser parser;
        ondemand::document document = parser.iterate(json);
        bool isIdNext = true;
        for (ondemand::value value : document.get_array()) {
            if (isIdNext) {
                histories.push_back({uuidOf(value), {}});
            } else {
                for (ondemand::object object : value.get_array())
                    histories.back().checks.push_back(checkOf(object));
            }
            isIdNext = !isIdNext;
        }
        return histories;
    } catch (const simdjson_error &) {
        return {};
    }
}

} // namespace ostrel::bench

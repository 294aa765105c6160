#include "Timestamp.h"

#include <algorithm>
#include <cstddef>

namespace ostrel {

namespace {

using namespace std::chrono;

/// The value of the @p count decimal digits at @p text.
int digits(const char *text, int count)
{
    int value = 0;
    for (int i = 0; i < count; ++i)
        value = value * 10 + (text[i] - '0');
    return value;
}

void putDigits(char *text, int count, int value)
{
    for (int i = count - 1; i >= 0; --i) {
        text[i] = static_cast<char>('0' + value % 10);
        value /= 10;
    }
}

bool hasDigits(std::string_view text)
{
    constexpr std::size_t positions[] = {0, 1, 2, 3, 5, 6, 8, 9, 11, 12, 14, 15, 17, 18};
    bool areDigits = true;
    for (const std::size_t position : positions)
        areDigits &= text[position] >= '0' && text[position] <= '9';
    return areDigits;
}

bool hasSeparators(std::string_view text)
{
    return text[4] == '-' && text[7] == '-' && text[10] == 'T' && text[13] == ':' &&
           text[16] == ':' && text[19] == 'Z';
}

sys_seconds clampToStoredYears(sys_seconds second)
{
    constexpr sys_seconds first = sys_days(year(0) / January / 1);
    constexpr sys_seconds last = sys_days(year(9999) / December / 31) + days(1) - seconds(1);
    return std::clamp(second, first, last);
}

} // namespace

Timestamp systemNow()
{
    return floor<milliseconds>(system_clock::now());
}

QByteArray formatTimestamp(Timestamp timestamp)
{
    const sys_seconds second = clampToStoredYears(floor<seconds>(timestamp));
    const sys_days day = floor<days>(second);
    const year_month_day date(day);
    const hh_mm_ss time(second - day);

    QByteArray text = QByteArrayLiteral("0000-00-00T00:00:00Z");
    char *out = text.data();
    putDigits(out, 4, static_cast<int>(date.year()));
    putDigits(out + 5, 2, static_cast<int>(static_cast<unsigned>(date.month())));
    putDigits(out + 8, 2, static_cast<int>(static_cast<unsigned>(date.day())));
    putDigits(out + 11, 2, static_cast<int>(time.hours().count()));
    putDigits(out + 14, 2, static_cast<int>(time.minutes().count()));
    putDigits(out + 17, 2, static_cast<int>(time.seconds().count()));
    return text;
}

std::optional<Timestamp> parseTimestamp(std::string_view text)
{
    if (text.size() != storedTimestampLength || !hasSeparators(text) || !hasDigits(text))
        return std::nullopt;

    const int yearNumber = digits(text.data(), 4);
    const int monthNumber = digits(text.data() + 5, 2);
    const int dayNumber = digits(text.data() + 8, 2);
    const int hour = digits(text.data() + 11, 2);
    const int minute = digits(text.data() + 14, 2);
    const int second = digits(text.data() + 17, 2);
    if (hour > 23 || minute > 59 || second > 59)
        return std::nullopt;

    const year_month_day date(year(yearNumber), month(static_cast<unsigned>(monthNumber)),
                              day(static_cast<unsigned>(dayNumber)));
    if (!date.ok())
        return std::nullopt;
    return Timestamp(sys_days(date) + hours(hour) + minutes(minute) + seconds(second));
}

} // namespace ostrel

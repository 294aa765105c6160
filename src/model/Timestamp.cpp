#include "Timestamp.h"

#include <algorithm>
#include <cstddef>

namespace ostrel {

namespace {

using namespace std::chrono;

/// Reads the two-digit numbers of a date.
class DigitReader
{
public:
    explicit DigitReader(std::string_view text)
        : m_text(text)
    {
    }

    [[nodiscard]] int twoDigits(std::size_t position)
    {
        const int tens = m_text[position] - '0';
        const int ones = m_text[position + 1] - '0';
        // Branch-free: a million of these are read at startup.
        m_areDigits &= (static_cast<unsigned>(tens) <= 9) & (static_cast<unsigned>(ones) <= 9);
        return tens * 10 + ones;
    }

    /// Whether all characters so far were digits.
    [[nodiscard]] bool areDigits() const { return m_areDigits != 0; }

private:
    std::string_view m_text;
    unsigned m_areDigits = 1;
};

void putDigits(char *text, int count, int value)
{
    for (int i = count - 1; i >= 0; --i) {
        text[i] = static_cast<char>('0' + value % 10);
        value /= 10;
    }
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
    if (text.size() != storedTimestampLength || !hasSeparators(text))
        return std::nullopt;

    DigitReader reader(text);
    const int yearNumber = reader.twoDigits(0) * 100 + reader.twoDigits(2);
    const int monthNumber = reader.twoDigits(5);
    const int dayNumber = reader.twoDigits(8);
    const int hour = reader.twoDigits(11);
    const int minute = reader.twoDigits(14);
    const int second = reader.twoDigits(17);
    if (!reader.areDigits() || hour > 23 || minute > 59 || second > 59)
        return std::nullopt;

    const year_month_day date(year(yearNumber), month(static_cast<unsigned>(monthNumber)),
                              day(static_cast<unsigned>(dayNumber)));
    if (!date.ok())
        return std::nullopt;
    return Timestamp(sys_days(date) + hours(hour) + minutes(minute) + seconds(second));
}

} // namespace ostrel

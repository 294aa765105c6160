#pragma once

#include "Timestamp.h"

#include <limits>
#include <optional>

namespace ostrel {

/// The value of T that represents "absent" in a CompactOptional<T>, which therefore can't hold it.
template<typename T>
struct AbsentValue;

template<>
struct AbsentValue<qint32>
{
    static constexpr qint32 value = std::numeric_limits<qint32>::min();
};

template<>
struct AbsentValue<Timestamp>
{
    static constexpr Timestamp value = Timestamp::min();
};

/// A std::optional that takes no more memory than its value, for records of which hundreds of
/// thousands are kept.
template<typename T>
class CompactOptional
{
public:
    constexpr CompactOptional() = default;
    constexpr CompactOptional(std::nullopt_t) {}
    constexpr CompactOptional(T value)
        : m_value(value)
    {
    }
    constexpr CompactOptional(std::optional<T> value)
        : m_value(value.value_or(absent))
    {
    }

    [[nodiscard]] constexpr bool has_value() const { return m_value != absent; }
    constexpr explicit operator bool() const { return has_value(); }
    /// Only if there is a value.
    constexpr T operator*() const { return m_value; }
    [[nodiscard]] constexpr T value_or(T fallback) const
    {
        return has_value() ? m_value : fallback;
    }

    friend constexpr bool operator==(CompactOptional, CompactOptional) = default;

private:
    static constexpr T absent = AbsentValue<T>::value;
    T m_value = absent;
};

} // namespace ostrel

#pragma once

#include <QSharedData>
#include <QString>

#include <optional>

namespace ostrel {

/// A text that is usually absent, in the size of one pointer. Copies share the text.
class OptionalText
{
public:
    OptionalText() = default;
    OptionalText(std::nullopt_t) {}
    OptionalText(const QString &text);

    [[nodiscard]] bool has_value() const { return m_text; }
    explicit operator bool() const { return has_value(); }
    /// Only if there is a text, which may be empty.
    const QString &operator*() const { return m_text->text; }
    [[nodiscard]] QString value_or(const QString &fallback) const;

    friend bool operator==(const OptionalText &left, const OptionalText &right);

private:
    struct Text : QSharedData
    {
        explicit Text(const QString &value)
            : text(value)
        {
        }
        QString text;
    };
    QExplicitlySharedDataPointer<const Text> m_text;
};

} // namespace ostrel

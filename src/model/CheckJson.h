#pragma once

#include "Check.h"

#include <QByteArray>
#include <QUuid>

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace ostrel {

/// Appends the stored form of @p check to @p json: one JSON object without white space, absent
/// fields left out, dates in whole seconds, UUIDs upper case. A response time that is no finite
/// number, which JSON can't hold, is written as 0; an unpaired surrogate as a replacement
/// character.
void appendCheck(std::string &json, const Check &check);

/// A part of a text, in bytes.
struct TextRange
{
    quint64 offset = 0;
    quint64 length = 0;

    bool operator==(const TextRange &) const = default;
};

/// Receives the stored histories in the order of the file.
class CheckMapVisitor
{
public:
    virtual ~CheckMapVisitor() = default;
    /// Opens the history of @p monitorId. One of the same id that came before is void.
    virtual void openHistory(const QUuid &monitorId) = 0;
    /// The next check of the open history. @p compact is where its text stands, if that is what
    /// appendCheck would write, but for the order of the keys and the spelling of numbers and
    /// escapes.
    virtual void takeCheck(Check &&check, std::optional<TextRange> compact) = 0;
};

/// Reads stored maps of histories, each a JSON array that alternates a monitor's id and the array
/// of its checks. Keys of a check may come in any order, unknown ones are passed over, of one that
/// comes twice the last counts; UUIDs may be lower case. False, whatever @p visitor has received by
/// then, if anything is malformed, a record lacks a required key or has a value of the wrong type
/// (200.5 is no integer, null no required string). A null stands for that an optional key isn't
/// there.
class CheckMapDecoder
{
public:
    /// How many bytes after a text have to be readable, whatever they hold.
    static constexpr std::size_t padding = 64;

    explicit CheckMapDecoder(CheckMapVisitor &visitor);
    ~CheckMapDecoder();
    Q_DISABLE_COPY_MOVE(CheckMapDecoder)

    /// Reads the map @p json. To tell where texts stand, it stands at @p offset itself.
    [[nodiscard]] bool decode(std::string_view json, quint64 offset = 0);

private:
    class Parser;

    CheckMapVisitor &m_visitor;
    std::unique_ptr<Parser> m_parser; ///< Keeps its memory from one map to the next.
};

} // namespace ostrel

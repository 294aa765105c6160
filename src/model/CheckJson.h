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
/// fields left out, dates in whole seconds, UUIDs upper case. A response time that isn't finite,
/// which JSON can't represent, is written as 0; an unpaired surrogate as a replacement character.
void appendCheck(std::string &json, const Check &check);

/// A range of a text, in bytes.
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
    /// Opens the history of @p monitorId. Discards an earlier one with the same id.
    virtual void openHistory(const QUuid &monitorId) = 0;
    /// The next check of the open history. @p compact is the position of its text, if that is what
    /// appendCheck would write, apart from the order of the keys and the spelling of numbers and
    /// escapes.
    virtual void takeCheck(Check &&check, std::optional<TextRange> compact) = 0;
};

/// Decodes stored maps of histories, each a JSON array that alternates a monitor's id and the array
/// of its checks. The keys of a check may be in any order, unknown ones are ignored, the last of
/// duplicates counts; UUIDs may be lower case. A null for an optional key means that it is absent.
/// Decoding returns false, whatever @p visitor has received by then, if anything is malformed, a
/// record lacks a required key or has a value of the wrong type (200.5 is no integer, null no
/// required string).
class CheckMapDecoder
{
public:
    /// How many bytes after a text must be readable, whatever their content.
    static constexpr std::size_t padding = 64;

    explicit CheckMapDecoder(CheckMapVisitor &visitor);
    ~CheckMapDecoder();
    Q_DISABLE_COPY_MOVE(CheckMapDecoder)

    /// Decodes the map @p json, which is at @p offset in the file; positions are those in the file.
    [[nodiscard]] bool decode(std::string_view json, quint64 offset = 0);

private:
    class Parser;

    CheckMapVisitor &m_visitor;
    std::unique_ptr<Parser> m_parser; ///< Keeps its buffers from one map to the next.
};

} // namespace ostrel

#include "MarkedAttribute.h"

#include <algorithm>
#include <span>
#include <vector>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

struct Span
{
    qsizetype begin;
    qsizetype end;
};

struct Value
{
    Span opening; ///< The attribute up to its opening quote.
    Span content;
};

using Spans = std::vector<Span>;

/// The first of the sorted @p spans that begins at @p position or later.
auto firstFrom(const auto &spans, qsizetype position, auto beginOf)
{
    return std::ranges::lower_bound(spans, position, {}, beginOf);
}

std::vector<Value> valuesIn(const QString &html, const QRegularExpression &opening)
{
    // The content is matched by a look-ahead, because it may contain the next value's opening.
    const QRegularExpression pattern(opening.pattern() + uR"((?=([^"']+)["']))"_s,
                                     opening.patternOptions());
    std::vector<Value> values;
    for (const auto &match : pattern.globalMatch(html)) {
        values.push_back({{match.capturedStart(), match.capturedEnd()},
                          {match.capturedStart(1), match.capturedEnd(1)}});
    }
    return values;
}

Spans spansOf(const QString &html, const QRegularExpression &pattern)
{
    Spans spans;
    for (const auto &match : pattern.globalMatch(html))
        spans.push_back({match.capturedStart(), match.capturedEnd()});
    return spans;
}

std::vector<qsizetype> closersIn(const QString &html)
{
    std::vector<qsizetype> closers;
    for (qsizetype at = html.indexOf(u'>'); at >= 0; at = html.indexOf(u'>', at + 1))
        closers.push_back(at);
    return closers;
}

/// A page with the positions of everything that a pattern consists of, each found in one pass.
class MarkedPage
{
public:
    MarkedPage(const QString &html, const MarkedAttribute &attribute)
        : m_html(html)
        , m_tags(spansOf(html, attribute.tag))
        , m_markers(spansOf(html, attribute.marker))
        , m_closers(closersIn(html))
        , m_values(valuesIn(html, attribute.value))
    {
    }

    [[nodiscard]] std::optional<QString> find(AttributeOrder order) const
    {
        for (const Span &run : runs()) {
            const Value *value = order == AttributeOrder::markerFirst ? valueAfterMarker(run)
                                                                      : valueBeforeMarker(run);
            if (value)
                return m_html.mid(value->content.begin, value->content.end - value->content.begin);
        }
        return std::nullopt;
    }

private:
    /// The runs without ">" that follow a tag's beginning. Whatever a match from a later tag in the
    /// same run can reach, one from the first can too, so each run needs one attempt.
    [[nodiscard]] Spans runs() const
    {
        Spans runs;
        for (const Span &tag : m_tags) {
            if (runs.empty() || tag.begin >= runs.back().end)
                runs.push_back({tag.end, closerFrom(tag.end)});
        }
        return runs;
    }

    /// The position of the first ">" from @p position on, or the page's end.
    [[nodiscard]] qsizetype closerFrom(qsizetype position) const
    {
        const auto closer = std::ranges::lower_bound(m_closers, position);
        return closer == m_closers.end() ? m_html.size() : *closer;
    }

    [[nodiscard]] bool hasMarker(Span range) const
    {
        const auto marker = firstFrom(m_markers, range.begin, &Span::begin);
        return marker != m_markers.end() && marker->end <= range.end;
    }

    [[nodiscard]] std::span<const Value> valuesOf(const Span &run) const
    {
        const auto begin = [](const Value &value) { return value.opening.begin; };
        return {firstFrom(m_values, run.begin, begin), firstFrom(m_values, run.end, begin)};
    }

    /// The pattern is greedy, so the last value counts.
    [[nodiscard]] const Value *valueAfterMarker(const Span &run) const
    {
        const auto values = valuesOf(run);
        if (values.empty() || !hasMarker({run.begin, values.back().opening.begin}))
            return nullptr;
        return &values.back();
    }

    /// Again the last value that matches. Its content may contain ">", so the marker need not be in
    /// the same run.
    [[nodiscard]] const Value *valueBeforeMarker(const Span &run) const
    {
        const auto values = valuesOf(run);
        for (auto value = values.rbegin(); value != values.rend(); ++value) {
            const qsizetype closingQuoteEnd = value->content.end + 1;
            if (hasMarker({closingQuoteEnd, closerFrom(closingQuoteEnd)}))
                return &*value;
        }
        return nullptr;
    }

    const QString &m_html;
    Spans m_tags;
    Spans m_markers;
    std::vector<qsizetype> m_closers;
    std::vector<Value> m_values;
};

} // namespace

std::optional<QString> findMarkedAttribute(const QString &html, const MarkedAttribute &attribute,
                                           AttributeOrder order)
{
    return MarkedPage(html, attribute).find(order);
}

} // namespace ostrel

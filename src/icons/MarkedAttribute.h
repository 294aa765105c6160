#pragma once

#include <QRegularExpression>
#include <QString>

#include <optional>

namespace ostrel {

/// An attribute whose value is wanted if another attribute of the same start tag marks it, such as
/// the href of a link whose rel is icon.
struct MarkedAttribute
{
    QRegularExpression tag;    ///< The beginning of the start tag: `<link`.
    QRegularExpression marker; ///< The whole marking attribute: `rel\s*=\s*["']icon["']`.
    QRegularExpression value;  ///< The wanted one, up to its opening quote: `href\s*=\s*["']`.
};

/// The order of the two attributes in the tag.
enum class AttributeOrder { markerFirst, valueFirst };

/// Returns what the first match of a regular expression captures in @p html:
/// `tag[^>]*marker[^>]*value([^"']+)["']` or `tag[^>]*value([^"']+)["'][^>]*marker`, by @p order.
///
/// Matched directly, those expressions take cubic time on a page that is made for it. This takes
/// little more than linear time on every page. Any thread.
[[nodiscard]] std::optional<QString>
findMarkedAttribute(const QString &html, const MarkedAttribute &attribute, AttributeOrder order);

} // namespace ostrel

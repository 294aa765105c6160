#pragma once

#include <QTranslator>

namespace ostrel {

/// A pseudo-language that every reader of English can read: each text is in brackets, with accents,
/// and at least 40 % longer. A text without brackets was never passed to a translator, and a text
/// that is cut off has no room for a translation.
class PseudoTranslator : public QTranslator
{
    Q_OBJECT

public:
    using QTranslator::QTranslator;

    [[nodiscard]] QString translate(const char *context, const char *sourceText,
                                    const char *disambiguation, int n) const override;
    [[nodiscard]] bool isEmpty() const override { return false; }
};

} // namespace ostrel

#pragma once

#include <QTranslator>

namespace ostrel {

/// A language that nobody speaks and every reader of English can read: each text stands between
/// brackets, with accents, and is at least 40 % longer. What shows up without brackets was never
/// given to a translator, and what is cut off has no room for one.
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

#include "PseudoTranslator.h"

#include <QHash>

#include <algorithm>

namespace ostrel {

namespace {

QChar accented(QChar letter)
{
    static const QHash<QChar, QChar> accents = {
        {u'a', u'á'}, {u'e', u'ë'}, {u'i', u'ï'}, {u'o', u'ö'}, {u'u', u'ü'}, {u'c', u'ç'},
        {u'n', u'ñ'}, {u'A', u'Å'}, {u'E', u'É'}, {u'I', u'Î'}, {u'O', u'Ø'}, {u'U', u'Û'},
    };
    return accents.value(letter, letter);
}

/// The padding that, with the brackets, makes a text of @p length 40 % longer.
QString padding(qsizetype length)
{
    return QString(std::max<qsizetype>(0, (length * 2 + 4) / 5 - 2), u'·');
}

} // namespace

QString PseudoTranslator::translate(const char *, const char *sourceText, const char *, int) const
{
    const QString source = QString::fromUtf8(sourceText);
    QString text;
    for (qsizetype i = 0; i < source.size(); ++i) {
        // "%n" and "%L1" are placeholders for numbers.
        const bool isPlaceholder = i > 0 && source.at(i - 1) == u'%';
        text += isPlaceholder ? source.at(i) : accented(source.at(i));
    }
    return u'⟦' + text + padding(source.size()) + u'⟧';
}

} // namespace ostrel

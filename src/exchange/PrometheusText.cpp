#include "PrometheusText.h"

#include <QList>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

/// YAML 1.2, section 5.1, without the byte order mark.
bool isPrintable(char32_t character)
{
    return (character >= 0x20 && character <= 0x7E) ||
           (character >= 0xA0 && character <= 0xD7FF && character != 0x2028 &&
            character != 0x2029) ||
           (character >= 0xE000 && character <= 0xFFFD && character != 0xFEFF) ||
           character >= 0x10000;
}

QString yamlCharacter(char32_t character)
{
    if (character == U'"' || character == U'\\')
        return u'\\' + QChar(char16_t(character));
    if (isPrintable(character))
        return QString::fromUcs4(&character, 1);
    return u"\\u%1"_s.arg(uint(character), 4, 16, QLatin1Char('0'));
}

} // namespace

QByteArray durationText(std::chrono::milliseconds duration)
{
    const qint64 count = duration.count();
    return count % 1000 == 0 ? QByteArray::number(count / 1000) + 's'
                             : QByteArray::number(count) + "ms";
}

QByteArray yamlText(const QString &text)
{
    QString quoted;
    for (const uint character : text.toUcs4())
        quoted += yamlCharacter(QChar::isSurrogate(character) ? 0xFFFD : character);
    return '"' + quoted.toUtf8() + '"';
}

QString literalPattern(const QString &text)
{
    QString pattern;
    for (const QChar character : text) {
        if (u"\\.+*?()|[]{}^$"_s.contains(character))
            pattern += u'\\';
        pattern += character;
    }
    return pattern;
}

} // namespace ostrel

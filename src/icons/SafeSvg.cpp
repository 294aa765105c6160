#include "SafeSvg.h"

#include <QSet>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

constexpr qsizetype largestSvg = qsizetype(256) * 1024;
constexpr qsizetype largestStyleSheet = 4096;
constexpr int mostElements = 4096;
constexpr int deepestLevel = 32;
constexpr int mostAttributes = 64;
/// How often a condition of a style sheet may be matched against a character of a class. Matching
/// an element takes as long as that many characters.
constexpr qsizetype mostSelecting = qsizetype(12) * 1024 * 1024;
constexpr qsizetype charactersPerElement = 28;
const QLatin1String svgNamespace("http://www.w3.org/2000/svg");
const QLatin1String linkNamespace("http://www.w3.org/1999/xlink");

bool isDrawn(QStringView element)
{
    static const QSet<QString> elements = {
        u"svg"_s,     u"g"_s,
        u"defs"_s,    u"style"_s,
        u"path"_s,    u"rect"_s,
        u"circle"_s,  u"ellipse"_s,
        u"line"_s,    u"polyline"_s,
        u"polygon"_s, u"linearGradient"_s,
        u"stop"_s,    u"radialGradient"_s,
    };
    return elements.contains(element.toString());
}

/// Whether nothing of the element is ever visible.
bool isInert(const QXmlStreamReader &reader)
{
    const QStringView element = reader.name();
    const QStringView uri = reader.namespaceUri();
    return (!uri.isEmpty() && uri != svgNamespace) || element == QLatin1String("title") ||
           element == QLatin1String("desc") || element == QLatin1String("metadata");
}

/// Whether no element has more attributes than allowed. The reader takes quadratic time to check
/// that no two have the same name. No attribute's value contains "<", so every attribute is between
/// two of them, and has a "=". Attribute lists in a declaration are checked separately.
bool hasFewAttributes(QStringView svg)
{
    int attributes = 0;
    bool isDeclaration = false;
    for (qsizetype i = 0; i < svg.size() && attributes <= mostAttributes; ++i) {
        if (svg[i] == u'<') {
            attributes = 0;
            // Comments may be full of such characters.
            isDeclaration = svg.sliced(i).startsWith(u"<!");
        } else if (svg[i] == u'=' && !isDeclaration) {
            ++attributes;
        }
    }
    return attributes <= mostAttributes;
}

/// Upper bound for the conditions in @p styleSheet: one for each character that selects or
/// combines.
qsizetype conditionsIn(QStringView styleSheet)
{
    return std::ranges::count_if(
        styleSheet, [](QChar character) { return QStringView(u"{,.#[").contains(character); });
}

/// Whether no selector matches all preceding siblings, which takes quadratic time.
bool hasNoSiblings(QStringView styleSheet)
{
    return !styleSheet.contains(u'~');
}

/// Dashes can be so short that a line has millions of them, and imports refer to other files.
bool isHarmless(QStringView styleOrAttribute)
{
    return !styleOrAttribute.contains(QLatin1String("dash"), Qt::CaseInsensitive) &&
           !styleOrAttribute.contains(QLatin1String("@import"), Qt::CaseInsensitive) &&
           !styleOrAttribute.contains(QLatin1Char('\\'));
}

/// Copies a drawing element by element, as long as it is safe.
class SvgCopy
{
public:
    explicit SvgCopy(const QString &svg)
        : m_reader(svg)
        , m_writer(&m_copy)
    {
    }

    [[nodiscard]] std::optional<QByteArray> make()
    {
        while (m_isSafe && !m_reader.atEnd())
            copyToken(m_reader.readNext());
        if (!m_isSafe || m_reader.hasError() || selecting() > mostSelecting)
            return std::nullopt;
        return m_copy;
    }

private:
    /// Each condition is matched against every element, and every class of it.
    [[nodiscard]] qsizetype selecting() const
    {
        return m_conditions * (m_elements * charactersPerElement + m_classSize);
    }

    void copyToken(QXmlStreamReader::TokenType token)
    {
        switch (token) {
        case QXmlStreamReader::StartElement:
            copyElement();
            break;
        case QXmlStreamReader::EndElement:
            m_writer.writeEndElement();
            m_path.removeLast();
            break;
        case QXmlStreamReader::Characters:
            copyStyleSheet();
            break;
        case QXmlStreamReader::DTD:
            m_isSafe = m_reader.entityDeclarations().isEmpty();
            break;
        default:
            break;
        }
    }

    void copyElement()
    {
        const QString element = m_reader.name().toString();
        const bool isRoot = m_path.isEmpty();
        if (!isRoot && isInert(m_reader)) {
            m_reader.skipCurrentElement();
            return;
        }
        m_isSafe = isDrawn(element) && isRoot == (element == QLatin1String("svg")) &&
                   ++m_elements <= mostElements && m_path.size() < deepestLevel;
        if (!m_isSafe)
            return;
        m_path.append(element);
        m_writer.writeStartElement(element);
        if (isRoot) {
            m_writer.writeDefaultNamespace(svgNamespace);
            m_writer.writeNamespace(linkNamespace, u"xlink"_s);
        }
        copyAttributes();
    }

    void copyAttributes()
    {
        const auto attributes = m_reader.attributes();
        for (const QXmlStreamAttribute &attribute : attributes) {
            m_isSafe = m_isSafe && isHarmless(attribute.name()) && isHarmless(attribute.value());
            m_classSize += attribute.name() == u"class" ? attribute.value().size() : 0;
            if (attribute.namespaceUri().isEmpty())
                m_writer.writeAttribute(attribute.name().toString(), attribute.value().toString());
            else if (isLinkInside(attribute))
                m_writer.writeAttribute(linkNamespace, u"href"_s, attribute.value().toString());
        }
    }

    /// A gradient may refer to another one in the same file.
    static bool isLinkInside(const QXmlStreamAttribute &attribute)
    {
        return attribute.namespaceUri() == linkNamespace &&
               attribute.name() == QLatin1String("href") &&
               attribute.value().startsWith(QLatin1Char('#'));
    }

    void copyStyleSheet()
    {
        if (m_path.isEmpty() || m_path.last() != QLatin1String("style"))
            return;
        const QStringView sheet = m_reader.text();
        m_styleSheetSize += sheet.size();
        m_conditions += conditionsIn(sheet);
        m_isSafe =
            m_styleSheetSize <= largestStyleSheet && hasNoSiblings(sheet) && isHarmless(sheet);
        m_writer.writeCharacters(sheet.toString());
    }

    QXmlStreamReader m_reader;
    QByteArray m_copy;
    QXmlStreamWriter m_writer;
    QStringList m_path; ///< The open elements.
    qsizetype m_styleSheetSize = 0;
    qsizetype m_conditions = 0;
    qsizetype m_classSize = 0; ///< The total size of all elements' classes, in characters.
    int m_elements = 0;
    bool m_isSafe = true;
};

} // namespace

std::optional<QByteArray> safeSvg(const QByteArray &svg)
{
    if (svg.size() > largestSvg)
        return std::nullopt;
    const QString text = QString::fromUtf8(svg);
    if (text.contains(QLatin1String("<!ATTLIST")) || !hasFewAttributes(text))
        return std::nullopt;
    return SvgCopy(text).make();
}

} // namespace ostrel

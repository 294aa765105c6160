#include "SafeSvg.h"

#include <QSet>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace ostrel {

namespace {

constexpr qsizetype largestSvg = qsizetype(256) * 1024;
constexpr qsizetype largestStyleSheet = 4096;
constexpr int mostElements = 4096;
constexpr int deepestLevel = 32;
const QLatin1String svgNamespace("http://www.w3.org/2000/svg");
const QLatin1String linkNamespace("http://www.w3.org/1999/xlink");

bool isDrawn(QStringView element)
{
    static const QSet<QString> elements = {
        QStringLiteral("svg"),     QStringLiteral("g"),
        QStringLiteral("defs"),    QStringLiteral("style"),
        QStringLiteral("path"),    QStringLiteral("rect"),
        QStringLiteral("circle"),  QStringLiteral("ellipse"),
        QStringLiteral("line"),    QStringLiteral("polyline"),
        QStringLiteral("polygon"), QStringLiteral("linearGradient"),
        QStringLiteral("stop"),    QStringLiteral("radialGradient"),
    };
    return elements.contains(element.toString());
}

/// Whether nothing of the element is ever seen.
bool isInert(const QXmlStreamReader &reader)
{
    const QStringView element = reader.name();
    const QStringView uri = reader.namespaceUri();
    return (!uri.isEmpty() && uri != svgNamespace) || element == QLatin1String("title") ||
           element == QLatin1String("desc") || element == QLatin1String("metadata");
}

/// Dashes can be made so short that a line has millions of them, and imports lead out.
bool isHarmless(QStringView styleOrAttribute)
{
    return !styleOrAttribute.contains(QLatin1String("dash"), Qt::CaseInsensitive) &&
           !styleOrAttribute.contains(QLatin1String("@import"), Qt::CaseInsensitive) &&
           !styleOrAttribute.contains(QLatin1Char('\\'));
}

/// Copies a drawing element by element, as far as it is safe.
class SvgCopy
{
public:
    explicit SvgCopy(const QByteArray &svg)
        : m_reader(svg)
        , m_writer(&m_copy)
    {
    }

    [[nodiscard]] std::optional<QByteArray> make()
    {
        while (m_isSafe && !m_reader.atEnd())
            copyToken(m_reader.readNext());
        if (!m_isSafe || m_reader.hasError())
            return std::nullopt;
        return m_copy;
    }

private:
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
            m_writer.writeNamespace(linkNamespace, QStringLiteral("xlink"));
        }
        copyAttributes();
    }

    void copyAttributes()
    {
        const auto attributes = m_reader.attributes();
        for (const QXmlStreamAttribute &attribute : attributes) {
            m_isSafe = m_isSafe && isHarmless(attribute.name()) && isHarmless(attribute.value());
            if (attribute.namespaceUri().isEmpty())
                m_writer.writeAttribute(attribute.name().toString(), attribute.value().toString());
            else if (isLinkInside(attribute))
                m_writer.writeAttribute(linkNamespace, QStringLiteral("href"),
                                        attribute.value().toString());
        }
    }

    /// One gradient may name another of the same file.
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
        m_styleSheetSize += m_reader.text().size();
        m_isSafe = m_styleSheetSize <= largestStyleSheet && isHarmless(m_reader.text());
        m_writer.writeCharacters(m_reader.text().toString());
    }

    QXmlStreamReader m_reader;
    QByteArray m_copy;
    QXmlStreamWriter m_writer;
    QStringList m_path; ///< The elements that are open.
    qsizetype m_styleSheetSize = 0;
    int m_elements = 0;
    bool m_isSafe = true;
};

} // namespace

std::optional<QByteArray> safeSvg(const QByteArray &svg)
{
    if (svg.size() > largestSvg)
        return std::nullopt;
    return SvgCopy(svg).make();
}

} // namespace ostrel

#include "SafeSvg.h"

#include "SvgAttributes.h"
#include "SvgStyle.h"

#include <QSet>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

constexpr qsizetype largestSvg = qsizetype(256) * 1024;
constexpr qsizetype largestStyleSheet = 4096;
constexpr int mostElements = 4096;
constexpr int deepestLevel = 32;
constexpr int mostAttributes = 64;
constexpr qsizetype mostNamespaces = 64;
/// How often a condition of a style sheet may meet a character of a class. Meeting an element takes
/// as long as that many characters.
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

/// Whether the element itself is visible.
bool isShape(QStringView element)
{
    static const QSet<QString> shapes = {
        u"path"_s, u"rect"_s, u"circle"_s, u"ellipse"_s, u"line"_s, u"polyline"_s, u"polygon"_s,
    };
    return shapes.contains(element.toString());
}

/// How many namespaces are declared where the reader is; it looks each name up among them all.
class OpenNamespaces
{
public:
    void open(qsizetype declared)
    {
        m_declared.append(declared);
        m_count += declared;
    }
    void close() { m_count -= m_declared.takeLast(); }

    [[nodiscard]] bool areFew() const { return m_count <= mostNamespaces; }

private:
    QList<qsizetype> m_declared; ///< By each element that is open.
    qsizetype m_count = 0;
};

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

/// Copies a drawing element by element, as far as it is safe.
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
        if (!m_isSafe || m_reader.hasError() || selecting() > mostSelecting || isNothingLeft())
            return std::nullopt;
        return m_copy;
    }

private:
    /// Each condition is matched against every element, and every class of it.
    [[nodiscard]] qsizetype selecting() const
    {
        return m_conditions * (m_elements * charactersPerElement + m_classSize);
    }

    /// Whether all that could be seen has been left out.
    [[nodiscard]] bool isNothingLeft() const { return m_hasLeftOut && !m_hasShape; }

    void copyToken(QXmlStreamReader::TokenType token)
    {
        switch (token) {
        case QXmlStreamReader::StartElement:
            beginElement();
            break;
        case QXmlStreamReader::EndElement:
            endElement();
            break;
        case QXmlStreamReader::Characters:
            readStyleSheet();
            break;
        case QXmlStreamReader::DTD:
            m_isSafe = m_reader.entityDeclarations().isEmpty();
            break;
        default:
            break;
        }
    }

    void beginElement()
    {
        m_namespaces.open(m_reader.namespaceDeclarations().size());
        m_isSafe = m_namespaces.areFew();
        if (m_levelsLeftOut > 0 || !isPartOfDrawing())
            leaveOut();
        else
            copyElement();
    }

    void endElement()
    {
        m_namespaces.close();
        if (m_levelsLeftOut > 0) {
            --m_levelsLeftOut;
            return;
        }
        if (isInStyleSheet())
            copyStyleSheet();
        m_writer.writeEndElement();
        m_path.removeLast();
    }

    [[nodiscard]] bool isPartOfDrawing() const
    {
        const QStringView uri = m_reader.namespaceUri();
        const bool isRoot = m_path.isEmpty();
        return (uri.isEmpty() || uri == svgNamespace) && isDrawn(m_reader.name()) &&
               isRoot == (m_reader.name() == u"svg") && !isInStyleSheet();
    }

    /// The element, with all that is in it.
    void leaveOut()
    {
        ++m_levelsLeftOut;
        m_hasLeftOut = true;
    }

    void copyElement()
    {
        m_isSafe = m_isSafe && ++m_elements <= mostElements && m_path.size() < deepestLevel;
        if (!m_isSafe)
            return;
        const bool isRoot = m_path.isEmpty();
        m_hasShape = m_hasShape || (isShape(m_reader.name()) && !m_path.contains(u"defs"_s));
        m_path.append(m_reader.name().toString());
        m_writer.writeStartElement(m_path.last());
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
            if (attribute.namespaceUri().isEmpty())
                copyAttribute(attribute.name().toString(), attribute.value().toString());
            else if (isLinkInside(attribute))
                m_writer.writeAttribute(linkNamespace, u"href"_s, attribute.value().toString());
        }
    }

    void copyAttribute(const QString &name, const QString &value)
    {
        const auto copy = harmlessAttribute(name, value);
        m_isSafe = m_isSafe && copy;
        m_classSize += name == u"class" ? value.size() : 0;
        m_writer.writeAttribute(name, copy.value_or(QString()));
    }

    /// One gradient may name another of the same file.
    static bool isLinkInside(const QXmlStreamAttribute &attribute)
    {
        return attribute.namespaceUri() == linkNamespace &&
               attribute.name() == QLatin1String("href") &&
               attribute.value().startsWith(QLatin1Char('#'));
    }

    [[nodiscard]] bool isInStyleSheet() const
    {
        return !m_path.isEmpty() && m_path.last() == u"style";
    }

    /// It comes in pieces where a comment stands in it.
    void readStyleSheet()
    {
        if (isInStyleSheet() && m_levelsLeftOut == 0)
            m_styleSheet += m_reader.text();
    }

    void copyStyleSheet()
    {
        const QString sheet = std::exchange(m_styleSheet, QString());
        const auto copy = harmlessStyle(sheet);
        m_styleSheetSize += sheet.size();
        m_conditions += conditionsIn(sheet);
        m_isSafe = m_styleSheetSize <= largestStyleSheet && hasNoSiblings(sheet) && copy;
        m_writer.writeCharacters(copy.value_or(QString()));
    }

    QXmlStreamReader m_reader;
    QByteArray m_copy;
    QXmlStreamWriter m_writer;
    OpenNamespaces m_namespaces;
    QStringList m_path;      ///< The elements that are open, as far as they are copied.
    int m_levelsLeftOut = 0; ///< The elements that are open below those.
    QString m_styleSheet;    ///< What has been read of the one that is open.
    qsizetype m_styleSheetSize = 0;
    qsizetype m_conditions = 0;
    qsizetype m_classSize = 0; ///< The total size of all elements' classes, in characters.
    int m_elements = 0;
    bool m_isSafe = true;
    bool m_hasLeftOut = false;
    bool m_hasShape = false;
};

} // namespace

std::optional<QByteArray> safeSvg(const QByteArray &svg)
{
    if (svg.size() > largestSvg)
        return std::nullopt;
    const QString text = QString::fromUtf8(svg);
    if (text.contains(QLatin1String("<!ATTLIST")) || mostAttributesIn(text) > mostAttributes)
        return std::nullopt;
    return SvgCopy(text).make();
}

} // namespace ostrel

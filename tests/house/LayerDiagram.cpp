#include "LayerDiagram.h"

#include <QFile>
#include <QRegularExpression>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

/// The names in a group such as "a & b".
QStringList namesIn(const QString &group)
{
    QStringList names;
    for (const QString &name : group.split(u'&'))
        names += name.trimmed();
    return names;
}

} // namespace

LayerDiagram::LayerDiagram(const QString &mermaid)
{
    for (const QString &line : mermaid.split(u'\n'))
        readChain(line);
}

void LayerDiagram::readChain(QString line)
{
    static const QRegularExpression box(u"(\\w+)\\[([^]:]+):[^]]*\\]"_s);
    static const QRegularExpression arrow(u"-->|-\\.[^.]*\\.->"_s);
    for (const auto &match : box.globalMatch(line))
        m_folders.insert(match.captured(1), match.captured(2));
    line.replace(box, u"\\1"_s);

    qsizetype begin = 0;
    QStringList before;
    bool isDotted = false;
    for (const auto &match : arrow.globalMatch(line + u"-->"_s)) {
        const QStringList names = namesIn(line.mid(begin, match.capturedStart() - begin));
        for (const QString &from : before) {
            for (const QString &to : names)
                m_arrows.append({.from = from, .to = to, .isDotted = isDotted});
        }
        before = names;
        isDotted = match.captured() != u"-->"_s;
        begin = match.capturedEnd();
    }
}

QSet<QString> LayerDiagram::folders() const
{
    return {m_folders.cbegin(), m_folders.cend()};
}

QList<LayerDiagram::Arrow> LayerDiagram::arrows() const
{
    QList<Arrow> between;
    for (const Arrow &arrow : m_arrows)
        between.append({.from = m_folders.value(arrow.from),
                        .to = m_folders.value(arrow.to),
                        .isDotted = arrow.isDotted});
    return between;
}

QSet<QString> LayerDiagram::reachOf(const QString &folder) const
{
    QSet<QString> reached;
    QStringList left = {folder};
    QSet<QString> passed;
    while (!left.isEmpty()) {
        const QString from = left.takeLast();
        if (passed.contains(from))
            continue;
        passed.insert(from);
        for (const Arrow &arrow : arrows()) {
            if (arrow.from != from)
                continue;
            reached.insert(arrow.to);
            if (!arrow.isDotted)
                left.append(arrow.to);
        }
    }
    return reached;
}

LayerDiagram architectureDiagram()
{
    QFile page(u"" OSTREL_SOURCE_DIR "/docs/architecture.md"_s);
    if (!page.open(QIODevice::ReadOnly))
        return LayerDiagram({});
    const QString text = QString::fromUtf8(page.readAll());
    return LayerDiagram(
        text.section(u"```mermaid\nflowchart TD\n"_s, 1, 1).section(u"```"_s, 0, 0));
}

} // namespace ostrel::test

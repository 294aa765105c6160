#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace ostrel::test {

/// What a Markdown text holds that other things depend on. Lines count from 1.
class MarkdownDocument
{
public:
    explicit MarkdownDocument(const QString &text);

    struct Line
    {
        qsizetype number = 0;
        QString text;

        bool operator==(const Line &) const = default;
    };

    /// The places that links and pictures name, in the text's order; code is passed over.
    [[nodiscard]] const QList<Line> &links() const { return m_links; }
    /// The names by which a link reaches a heading after its "#": in small letters, without
    /// punctuation, with dashes for spaces, and with a number if it was there before.
    [[nodiscard]] const QStringList &anchors() const { return m_anchors; }
    /// The commands of the code blocks for a shell, without comments.
    [[nodiscard]] const QList<Line> &commands() const { return m_commands; }

private:
    void readLine(const Line &line);
    void readCode(const Line &line);
    void addHeading(const QString &heading);

    bool m_isInCode = false;
    bool m_isInShell = false;
    QList<Line> m_links;
    QStringList m_anchors;
    QList<Line> m_commands;
};

/// The paths of the project's Markdown files, in order, relative to @p sourceDir.
[[nodiscard]] QStringList markdownFiles(const QString &sourceDir);

} // namespace ostrel::test

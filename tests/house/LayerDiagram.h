#pragma once

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>

namespace ostrel::test {

/// The boxes and arrows of a Mermaid flowchart. A box whose label begins with "folder: " stands for
/// that folder of src/, or for main.cpp.
class LayerDiagram
{
public:
    /// @p mermaid holds one chain on a line, for example `a[store: files] & b --> c -. uses .-> d`.
    explicit LayerDiagram(const QString &mermaid);

    struct Arrow
    {
        QString from;
        QString to;
        bool isDotted = false;
    };

    [[nodiscard]] QSet<QString> folders() const;
    /// Arrows between folders. One end is empty if a box has no label.
    [[nodiscard]] QList<Arrow> arrows() const;
    /// The folders that can be reached from @p folder over solid arrows, and over a dotted one as
    /// the last.
    [[nodiscard]] QSet<QString> reachOf(const QString &folder) const;

private:
    void readChain(QString line);

    QHash<QString, QString> m_folders; ///< By the box's name in the flowchart.
    QList<Arrow> m_arrows;             ///< Between those names.
};

/// The flowchart of docs/architecture.md.
[[nodiscard]] LayerDiagram architectureDiagram();

} // namespace ostrel::test

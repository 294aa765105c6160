#include "AccessibleTree.h"

#include <algorithm>
#include <utility>

namespace ostrel::test {

namespace {

constexpr std::pair<AccessibleState, const char *> toldStates[] = {
    {AccessibleState::checkable, "checkable"}, {AccessibleState::checked, "checked"},
    {AccessibleState::enabled, "enabled"},     {AccessibleState::editable, "editable"},
    {AccessibleState::focusable, "focusable"}, {AccessibleState::focused, "focused"},
    {AccessibleState::readOnly, "read-only"},  {AccessibleState::selectable, "selectable"},
    {AccessibleState::selected, "selected"},   {AccessibleState::expandable, "expandable"},
    {AccessibleState::expanded, "expanded"},
};

void collect(const AccessibleNode &node, int depth, QList<AccessibleItem> &items)
{
    const AccessibleRole role = node.role();
    const quint64 states = node.states();
    // A program shows nothing itself.
    if (!contains(states, AccessibleState::showing) && role != AccessibleRole::application)
        return;
    items.append({.node = node,
                  .depth = depth,
                  .role = role,
                  .name = node.name(),
                  .description = node.description(),
                  .states = states,
                  .actions = node.actions(),
                  .extents = node.extents()});
    for (const AccessibleNode &child : node.children())
        collect(child, depth + 1, items);
}

} // namespace

QString AccessibleItem::describe() const
{
    QStringList told;
    for (const auto &[state, word] : toldStates) {
        if (has(state))
            told += QString::fromLatin1(word);
    }
    return QStringLiteral("%1%2 '%3' [%4] (%5)%6")
        .arg(QString(2 * depth, u' '), node.roleName(), name, told.join(u' '),
             actions.join(QStringLiteral(", ")),
             description.isEmpty() ? QString() : QStringLiteral(" — ") + description);
}

QList<AccessibleItem> showingItems(const AccessibleNode &root)
{
    QList<AccessibleItem> items;
    collect(root, 0, items);
    return items;
}

std::optional<AccessibleItem> itemNamed(const QList<AccessibleItem> &items, AccessibleRole role,
                                        const QString &name)
{
    const auto found = std::ranges::find_if(
        items, [&](const AccessibleItem &item) { return item.role == role && item.name == name; });
    return found == items.cend() ? std::nullopt : std::optional(*found);
}

QString describe(const QList<AccessibleItem> &items)
{
    QString text;
    for (const AccessibleItem &item : items)
        text += item.describe() + u'\n';
    return text;
}

} // namespace ostrel::test

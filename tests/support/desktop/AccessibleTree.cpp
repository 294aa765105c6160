#include "AccessibleTree.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

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

AccessibleItem read(const AccessibleNode &node, quint64 states, int depth)
{
    return {.node = node,
            .depth = depth,
            .role = node.role(),
            .name = node.name(),
            .description = node.description(),
            .states = states,
            .actions = node.actions(),
            .extents = node.extents()};
}

bool isShowing(quint64 states, int depth)
{
    // The program itself, at the root, never has this state.
    return depth == 0 || contains(states, AccessibleState::showing);
}

void collect(const AccessibleNode &node, int depth, QList<AccessibleItem> &items)
{
    const quint64 states = node.states();
    if (!isShowing(states, depth))
        return;
    items.append(read(node, states, depth));
    for (const AccessibleNode &child : node.children())
        collect(child, depth + 1, items);
}

void findFocused(const AccessibleNode &node, int depth, std::optional<AccessibleNode> &innermost)
{
    const quint64 states = node.states();
    if (!isShowing(states, depth))
        return;
    if (contains(states, AccessibleState::focused))
        innermost = node;
    for (const AccessibleNode &child : node.children())
        findFocused(child, depth + 1, innermost);
}

} // namespace

QString AccessibleItem::describe() const
{
    QStringList told;
    for (const auto &[state, word] : toldStates) {
        if (has(state))
            told += QString::fromLatin1(word);
    }
    return u"%1%2 '%3' [%4] (%5)%6"_s.arg(
        QString(2 * depth, u' '), node.roleName(), name, told.join(u' '), actions.join(u", "_s),
        description.isEmpty() ? QString() : u" — "_s + description);
}

QList<AccessibleItem> showingItems(const AccessibleNode &root)
{
    QList<AccessibleItem> items;
    collect(root, 0, items);
    return items;
}

std::optional<AccessibleItem> focusedItem(const AccessibleNode &root)
{
    std::optional<AccessibleNode> innermost;
    findFocused(root, 0, innermost);
    return innermost ? std::optional(read(*innermost, innermost->states(), 0)) : std::nullopt;
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

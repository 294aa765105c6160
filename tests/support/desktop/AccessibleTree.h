#pragma once

#include "AccessibleNode.h"

#include <QList>

namespace ostrel::test {

/// A thing that was showing when the tree was read.
struct AccessibleItem
{
    AccessibleNode node;
    int depth = 0;
    AccessibleRole role = AccessibleRole::invalid;
    QString name;
    QString description;
    quint64 states = 0;
    QStringList actions;
    QRect extents; ///< On the display.

    [[nodiscard]] bool has(AccessibleState state) const { return contains(states, state); }
    /// "push button 'Add Monitor' [focusable] (Press)", indented by depth.
    [[nodiscard]] QString describe() const;
};

/// Everything that is showing in @p root, itself included, in a reader's order.
[[nodiscard]] QList<AccessibleItem> showingItems(const AccessibleNode &root);

/// The innermost thing in @p root that has the keyboard focus; nothing if none says so. Needs fewer
/// queries than showingItems().
[[nodiscard]] std::optional<AccessibleItem> focusedItem(const AccessibleNode &root);

/// The first of @p items with that role and name; nothing if there is none.
[[nodiscard]] std::optional<AccessibleItem> itemNamed(const QList<AccessibleItem> &items,
                                                      AccessibleRole role, const QString &name);

/// One line per item, for people.
[[nodiscard]] QString describe(const QList<AccessibleItem> &items);

} // namespace ostrel::test

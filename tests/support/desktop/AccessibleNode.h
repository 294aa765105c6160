#pragma once

#include <QDBusConnection>
#include <QRect>
#include <QString>
#include <QStringList>

#include <optional>

namespace ostrel::test {

/// The kinds of things for a screen reader: the AT-SPI roles in an Ostrel window, by their numbers
/// on the bus.
enum class AccessibleRole : uint {
    invalid = 0,
    checkBox = 7,
    checkMenuItem = 8,
    comboBox = 11,
    dialog = 16,
    filler = 20,
    frame = 23,
    image = 27,
    label = 29,
    list = 31,
    listItem = 32,
    menuItem = 35,
    popupMenu = 41,
    pushButton = 43,
    radioButton = 44,
    scrollBar = 48,
    separator = 50,
    splitPane = 53,
    text = 61,
    unknown = 67,
    window = 69,
    application = 75,
    entry = 79,
    heading = 83,
    grouping = 99,
};

/// AT-SPI states by the number of their bit.
enum class AccessibleState : uint {
    active = 1,
    checked = 4,
    collapsed = 5,
    editable = 7,
    enabled = 8,
    expandable = 9,
    expanded = 10,
    focusable = 11,
    focused = 12,
    selectable = 22,
    selected = 23,
    showing = 25,
    visible = 30,
    checkable = 41,
    readOnly = 43,
};

[[nodiscard]] constexpr bool contains(quint64 states, AccessibleState state)
{
    return states >> static_cast<uint>(state) & 1;
}

/// One thing in a program's window as assistive tools see it. Every query asks the program; its
/// result is empty if the thing or the program is gone.
class AccessibleNode
{
public:
    AccessibleNode(const QDBusConnection &bus, const QString &service, const QString &path);

    /// The program's name on the accessibility bus.
    [[nodiscard]] const QString &service() const { return m_service; }

    [[nodiscard]] AccessibleRole role() const;
    [[nodiscard]] QString roleName() const;
    [[nodiscard]] QString name() const;
    [[nodiscard]] QString description() const;
    /// The bits of the AccessibleStates that it has.
    [[nodiscard]] quint64 states() const;
    [[nodiscard]] QList<AccessibleNode> children() const;
    /// Its position and size on the display.
    [[nodiscard]] QRect extents() const;
    /// The names of its actions, as programs call them: "Press", "SetFocus", ...
    [[nodiscard]] QStringList actions() const;
    /// False if it has no such action.
    bool act(const QString &action) const;
    /// Its content, if it is a text field.
    [[nodiscard]] QString text() const;
    /// The value of a slider or the like; nothing if it has none.
    [[nodiscard]] std::optional<double> value() const;

    bool operator==(const AccessibleNode &other) const
    {
        return m_service == other.m_service && m_path == other.m_path;
    }

private:
    [[nodiscard]] QVariant call(const char *interface, const char *method,
                                const QVariantList &arguments = {}) const;
    [[nodiscard]] QVariant property(const char *interface, const char *name) const;

    QDBusConnection m_bus;
    QString m_service;
    QString m_path;
};

} // namespace ostrel::test

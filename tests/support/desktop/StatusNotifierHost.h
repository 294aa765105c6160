#pragma once

#include "PrivateBus.h"

#include <QByteArray>
#include <QDBusContext>
#include <QDBusServiceWatcher>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace ostrel::test {

/// One entry of a status item's menu, as the host draws it.
struct ShownEntry
{
    int id = 0;
    QString text = {};
    QString trailingText = {}; ///< The text in the place of the shortcut.
    bool isEnabled = true;
    bool isSeparator = false;
    QByteArray icon = {}; ///< The content of an image file; empty if there is no icon.

    bool operator==(const ShownEntry &) const = default;
};

/// A pixmap of a status item: rows of pixels from the top, each as alpha, red, green, blue.
struct ShownPixmap
{
    int width = 0;
    int height = 0;
    QByteArray argb;

    bool operator==(const ShownPixmap &) const = default;
};

/// A status bar without a display: it owns the bar's name on the test's own bus, lets one item
/// register, and reads and clicks its menu over the bus as real ones do.
///
/// Lives in the test's own thread, and runs its event loop while it waits for an answer.
class StatusNotifierHost : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(QStringList RegisteredStatusNotifierItems READ registeredItems)
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ isHostRegistered)
    Q_PROPERTY(int ProtocolVersion READ protocolVersion)

public:
    /// @p bus outlives it. It leaves the bus when it is destroyed, as a host that crashes does.
    explicit StatusNotifierHost(PrivateBus &bus);
    ~StatusNotifierHost() override;

    /// Whether an item has registered and is still there.
    [[nodiscard]] bool hasItem() const { return !m_item.isEmpty(); }
    [[nodiscard]] QString itemText(const QString &property);
    [[nodiscard]] QList<ShownPixmap> itemPixmaps();
    /// The menu from top to bottom.
    [[nodiscard]] QList<ShownEntry> entries();
    /// The same, one line each: "text" or "text|trailing text", "-" for a separator, and in
    /// brackets if the entry can't be chosen.
    [[nodiscard]] QStringList lines();

    /// Chooses the entry with the text @p text; false if there is none.
    [[nodiscard]] bool choose(const QString &text);
    /// Hands the item the desktop's activation token for a click that follows.
    void passToken(const QByteArray &token);
    /// Does what a click on the item does.
    void activateItem();

    /// How often the item has signalled that its menu's layout, or that some of its entries, have
    /// changed.
    [[nodiscard]] int layoutChanges() const { return m_layoutChanges; }
    [[nodiscard]] int entryChanges() const { return m_entryChanges; }

    [[nodiscard]] QStringList registeredItems() const;
    [[nodiscard]] bool isHostRegistered() const { return true; }
    [[nodiscard]] int protocolVersion() const { return 0; }

public Q_SLOTS:
    // Its interface on the bus; the names and arguments are the protocol's.
    void RegisterStatusNotifierItem(const QString &service);
    void RegisterStatusNotifierHost(const QString &) {}

private Q_SLOTS:
    void countLayoutChange() { ++m_layoutChanges; }
    void countEntryChange() { ++m_entryChanges; }

private:
    [[nodiscard]] QVariant itemProperty(const QString &name);
    [[nodiscard]] QString menuPath();
    QDBusMessage call(const QString &path, const QString &interface, const QString &method,
                      const QVariantList &arguments);

    QDBusConnection m_connection;
    QDBusServiceWatcher m_itemWatcher;
    QString m_item; ///< The unique name of the program that has registered.
    int m_layoutChanges = 0;
    int m_entryChanges = 0;
};

} // namespace ostrel::test

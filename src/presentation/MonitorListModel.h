#pragma once

#include "MonitorCard.h"
#include "MonitorRow.h"

#include <QAbstractListModel>

#include <optional>
#include <span>
#include <vector>

namespace ostrel {

class MonitorStore;

/// Every monitor as the sidebar and the dashboard show it, in the store's order.
///
/// A row is computed when it is first requested. A check changes only its monitor's row; added,
/// removed and edited monitors are announced as such, never as a reset.
class MonitorListModel : public QAbstractListModel
{
    Q_OBJECT
    /// How often to call refresh() while the rows are visible, in milliseconds.
    Q_PROPERTY(int refreshInterval MEMBER refreshInterval CONSTANT)

public:
    static constexpr int refreshInterval = 60'000;

    enum Role {
        monitorIdRole = Qt::UserRole, ///< QUuid
        urlRole,
        isEnabledRole,
        nameRole,
        addressRole,
        statusRole, ///< MonitorStatus as a number.
        isDownRole,
        isPendingRole,
        resultTextRole, ///< The text on the right of the sidebar's row.
        resultToneRole,
        uptimeTextRole,
        spokenTextRole,       ///< The row as one sentence.
        isCheckingRole,       ///< Whether a check that the user has requested is running.
        responseTimeTextRole, ///< On the dashboard's card.
        cardUptimeTextRole,
        cardUptimeToneRole,
    };
    Q_ENUM(Role)

    /// @p store must outlive the model.
    explicit MonitorListModel(const MonitorStore &store, QObject *parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// The row of the monitor with this id; -1 if there is none.
    [[nodiscard]] int rowOf(const QUuid &monitorId) const;
    /// A null id if there is no such row.
    [[nodiscard]] QUuid monitorIdAt(int row) const;

    /// Notes that a check that the user has requested has begun or ended.
    void setChecking(const QUuid &monitorId, bool isChecking);

    /// Recomputes what depends on the current time, for all rows that were shown.
    Q_INVOKABLE void refresh();

private:
    struct Shown
    {
        MonitorRow row;
        MonitorCard card;

        bool operator==(const Shown &) const = default;
    };
    struct Entry
    {
        Monitor monitor = {};
        bool isChecking = false;
        std::optional<Shown> shown = {}; ///< Absent until it is requested.
    };

    void takeMonitors();
    void removeEntries(std::ptrdiff_t first, std::ptrdiff_t end);
    void insertEntries(std::ptrdiff_t first, std::span<const Monitor> monitors);
    void takeEdit(std::size_t row, const Monitor &monitor);
    void updateMonitorRows(const QUuid &monitorId);
    void update(std::size_t row);
    void announce(std::size_t row);
    [[nodiscard]] Shown makeShown(const Monitor &monitor) const;
    [[nodiscard]] const Shown &shownAt(std::size_t row) const;

    const MonitorStore &m_store;
    /// Mutable for `shown`, which is computed on demand.
    mutable std::vector<Entry> m_entries;
};

} // namespace ostrel

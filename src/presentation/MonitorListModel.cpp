#include "MonitorListModel.h"

#include "MonitorStore.h"

#include <algorithm>
#include <iterator>

namespace ostrel {

MonitorListModel::MonitorListModel(const MonitorStore &store, QObject *parent)
    : QAbstractListModel(parent)
    , m_store(store)
{
    for (const Monitor &monitor : store.monitors())
        m_entries.push_back({.monitor = monitor});
    connect(&store, &MonitorStore::monitorsChanged, this, &MonitorListModel::takeMonitors);
    connect(&store, &MonitorStore::checksChanged, this, &MonitorListModel::updateMonitorRows);
}

int MonitorListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_entries.size());
}

QVariant MonitorListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const auto row = static_cast<std::size_t>(index.row());
    const Monitor &monitor = m_entries[row].monitor;
    const Shown &shown = shownAt(row);
    switch (role) {
    case monitorIdRole:
        return monitor.id;
    case urlRole:
        return monitor.url;
    case isEnabledRole:
        return monitor.isEnabled;
    case nameRole:
        return shown.row.name;
    case addressRole:
        return shown.row.address;
    case statusRole:
        return static_cast<int>(shown.row.status);
    case isDownRole:
        return shown.row.status == MonitorStatus::down;
    case isPendingRole:
        return shown.row.status == MonitorStatus::pending;
    case resultTextRole:
        return shown.row.resultText;
    case resultToneRole:
        return QVariant::fromValue(shown.row.resultTone);
    case uptimeTextRole:
        return shown.row.uptimeText;
    case spokenTextRole:
        return shown.row.spokenText;
    case isCheckingRole:
        return m_entries[row].isChecking;
    case responseTimeTextRole:
        return shown.card.responseTimeText;
    case cardUptimeTextRole:
        return shown.card.uptimeText;
    case cardUptimeToneRole:
        return QVariant::fromValue(shown.card.uptimeTone);
    default:
        return {};
    }
}

QHash<int, QByteArray> MonitorListModel::roleNames() const
{
    return {
        {monitorIdRole, "monitorId"},
        {urlRole, "url"},
        {isEnabledRole, "isEnabled"},
        {nameRole, "name"},
        {addressRole, "address"},
        {statusRole, "status"},
        {isDownRole, "isDown"},
        {isPendingRole, "isPending"},
        {resultTextRole, "resultText"},
        {resultToneRole, "resultTone"},
        {uptimeTextRole, "uptimeText"},
        {spokenTextRole, "spokenText"},
        {isCheckingRole, "isChecking"},
        {responseTimeTextRole, "responseTimeText"},
        {cardUptimeTextRole, "cardUptimeText"},
        {cardUptimeToneRole, "cardUptimeTone"},
    };
}

int MonitorListModel::rowOf(const QUuid &monitorId) const
{
    const auto found = std::ranges::find(m_entries, monitorId,
                                         [](const Entry &entry) { return entry.monitor.id; });
    return found == m_entries.end() ? -1 : static_cast<int>(found - m_entries.begin());
}

QUuid MonitorListModel::monitorIdAt(int row) const
{
    return row < 0 || row >= rowCount() ? QUuid()
                                        : m_entries[static_cast<std::size_t>(row)].monitor.id;
}

void MonitorListModel::setChecking(const QUuid &monitorId, bool isChecking)
{
    const int row = rowOf(monitorId);
    if (row < 0)
        return;
    m_entries[static_cast<std::size_t>(row)].isChecking = isChecking;
    announce(static_cast<std::size_t>(row));
}

void MonitorListModel::refresh()
{
    for (std::size_t row = 0; row < m_entries.size(); ++row)
        update(row);
}

void MonitorListModel::takeMonitors()
{
    const auto &list = m_store.monitors();
    const std::span monitors(list.constData(), static_cast<std::size_t>(list.size()));
    const auto sameId = [](const Entry &entry, const Monitor &monitor) {
        return entry.monitor.id == monitor.id;
    };

    // All additions and removals are between the common beginning and the common end of both lists.
    const auto head =
        std::mismatch(m_entries.begin(), m_entries.end(), monitors.begin(), monitors.end(), sameId);
    const auto tail = std::mismatch(m_entries.rbegin(), std::reverse_iterator(head.first),
                                    monitors.rbegin(), std::reverse_iterator(head.second), sameId);
    const auto first = head.first - m_entries.begin();

    removeEntries(first, tail.first.base() - m_entries.begin());
    insertEntries(first, std::span(head.second, tail.second.base()));
    for (std::size_t row = 0; row < monitors.size(); ++row)
        takeEdit(row, monitors[row]);
}

void MonitorListModel::removeEntries(std::ptrdiff_t first, std::ptrdiff_t end)
{
    if (first == end)
        return;
    beginRemoveRows({}, static_cast<int>(first), static_cast<int>(end) - 1);
    m_entries.erase(m_entries.begin() + first, m_entries.begin() + end);
    endRemoveRows();
}

void MonitorListModel::insertEntries(std::ptrdiff_t first, std::span<const Monitor> monitors)
{
    if (monitors.empty())
        return;
    beginInsertRows({}, static_cast<int>(first),
                    static_cast<int>(first + std::ssize(monitors)) - 1);
    m_entries.insert(m_entries.begin() + first, monitors.size(), {});
    for (const Monitor &monitor : monitors)
        m_entries[static_cast<std::size_t>(first++)].monitor = monitor;
    endInsertRows();
}

void MonitorListModel::takeEdit(std::size_t row, const Monitor &monitor)
{
    Entry &entry = m_entries[row];
    if (entry.monitor == monitor)
        return;
    entry = {.monitor = monitor, .isChecking = entry.isChecking};
    announce(row);
}

void MonitorListModel::updateMonitorRows(const QUuid &monitorId)
{
    for (std::size_t row = 0; row < m_entries.size(); ++row) {
        if (m_entries[row].monitor.id == monitorId)
            update(row);
    }
}

void MonitorListModel::update(std::size_t row)
{
    Entry &entry = m_entries[row];
    if (!entry.shown)
        return; // It hasn't been requested yet.
    Shown current = makeShown(entry.monitor);
    if (current == *entry.shown)
        return;
    entry.shown = std::move(current);
    announce(row);
}

void MonitorListModel::announce(std::size_t row)
{
    const QModelIndex changed = index(static_cast<int>(row));
    Q_EMIT dataChanged(changed, changed);
}

MonitorListModel::Shown MonitorListModel::makeShown(const Monitor &monitor) const
{
    const MonitorSummary summary = monitorSummary(m_store, monitor);
    return {monitorRow(monitor, summary), monitorCard(summary)};
}

const MonitorListModel::Shown &MonitorListModel::shownAt(std::size_t row) const
{
    Entry &entry = m_entries[row];
    if (!entry.shown)
        entry.shown = makeShown(entry.monitor);
    return *entry.shown;
}

} // namespace ostrel

#include "MonitorListModel.h"

#include "MonitorStore.h"

namespace ostrel {

namespace {

QString statusText(MonitorStatus status)
{
    switch (status) {
    case MonitorStatus::up:
        return MonitorListModel::tr("UP");
    case MonitorStatus::down:
        return MonitorListModel::tr("DOWN");
    case MonitorStatus::paused:
        return MonitorListModel::tr("Paused");
    case MonitorStatus::pending:
        return MonitorListModel::tr("Checking...");
    }
    Q_UNREACHABLE();
}

QString spokenText(QStringList parts)
{
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

} // namespace

MonitorListModel::MonitorListModel(const MonitorStore &store, QObject *parent)
    : QAbstractListModel(parent)
    , m_store(store)
    , m_monitors(store.monitors())
{
    connect(&store, &MonitorStore::monitorsChanged, this, [this] {
        beginResetModel();
        m_monitors = m_store.monitors();
        endResetModel();
    });
    connect(&store, &MonitorStore::checksChanged, this, &MonitorListModel::announceCheck);
}

int MonitorListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_monitors.size());
}

QVariant MonitorListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Monitor &monitor = m_monitors.at(index.row());
    const MonitorStatus status = m_store.status(monitor);
    switch (role) {
    case Qt::DisplayRole:
    case nameRole:
        return monitor.displayName();
    case addressRole:
        return monitor.url;
    case statusTextRole:
        return statusText(status);
    case resultTextRole:
        return resultText(monitor);
    case spokenTextRole:
        return spokenText({monitor.displayName(), statusText(status), resultText(monitor)});
    case isUpRole:
        return status == MonitorStatus::up;
    case isDownRole:
        return status == MonitorStatus::down;
    default:
        return {};
    }
}

QHash<int, QByteArray> MonitorListModel::roleNames() const
{
    return {
        {nameRole, "name"},
        {addressRole, "address"},
        {statusTextRole, "statusText"},
        {resultTextRole, "resultText"},
        {spokenTextRole, "spokenText"},
        {isUpRole, "isUp"},
        {isDownRole, "isDown"},
    };
}

void MonitorListModel::announceCheck(const QUuid &monitorId)
{
    for (int row = 0; row < m_monitors.size(); ++row) {
        if (m_monitors.at(row).id == monitorId)
            Q_EMIT dataChanged(index(row), index(row));
    }
}

QString MonitorListModel::resultText(const Monitor &monitor) const
{
    const auto check = m_store.latestCheck(monitor);
    if (!check)
        return {};
    if (check->isUp)
        return QString::asprintf("%.0f ms", check->responseTime);
    return check->error.value_or(QString());
}

} // namespace ostrel

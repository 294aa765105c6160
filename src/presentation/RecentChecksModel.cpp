#include "RecentChecksModel.h"

#include "DisplayFormats.h"
#include "MonitorStore.h"
#include "OneLine.h"
#include "StatusLabel.h"
#include "TextLanguage.h"

#include <algorithm>
#include <utility>

namespace ostrel {

namespace {

std::vector<Check> newestFirst(std::span<const Check> history)
{
    const auto newest = history.last(std::min(RecentChecksModel::maxRows, history.size()));
    return {newest.rbegin(), newest.rend()};
}

QString codeText(const Check &check)
{
    return check.statusCode ? QString::number(*check.statusCode) : QString();
}

QString resultText(const Check &check)
{
    if (check.isUp)
        return responseTimeText(Milliseconds(check.responseTime));
    return oneLine(check.error.value_or(RecentChecksModel::tr("Failed")));
}

} // namespace

RecentChecksModel::RecentChecksModel(const MonitorStore &store, ClockStyle clock, QObject *parent)
    : QAbstractListModel(parent)
    , m_store(store)
    , m_clock(std::move(clock))
{
    connect(&store, &MonitorStore::checksChanged, this, [this](const QUuid &changedId) {
        if (changedId == m_monitorId)
            takeChecks();
    });
}

void RecentChecksModel::setMonitorId(const QUuid &monitorId)
{
    if (m_monitorId == monitorId)
        return;
    m_monitorId = monitorId;
    takeChecks();
}

void RecentChecksModel::setClock(const ClockStyle &clock)
{
    if (m_clock == clock)
        return;
    m_clock = clock;
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0), index(rowCount() - 1), {timeTextRole, spokenTextRole});
}

int RecentChecksModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_checks.size());
}

QVariant RecentChecksModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Check &check = m_checks[static_cast<std::size_t>(index.row())];
    switch (role) {
    case isUpRole:
        return check.isUp;
    case toneRole:
        return QVariant::fromValue(check.isUp ? Tone::Up : Tone::Down);
    case timeTextRole:
        return timeText(check);
    case codeTextRole:
        return codeText(check);
    case resultTextRole:
        return resultText(check);
    case spokenTextRole:
        return spokenText(check);
    default:
        return {};
    }
}

QHash<int, QByteArray> RecentChecksModel::roleNames() const
{
    return {
        {isUpRole, "isUp"},
        {toneRole, "tone"},
        {timeTextRole, "timeText"},
        {codeTextRole, "codeText"},
        {resultTextRole, "resultText"},
        {spokenTextRole, "spokenText"},
    };
}

void RecentChecksModel::takeChecks()
{
    const std::vector<Check> checks = newestFirst(m_store.checks(m_monitorId));
    // New checks push the known ones down. Any other change means a different history.
    const auto known =
        m_checks.empty() ? checks.end() : std::ranges::find(checks, m_checks.front());
    const auto kept = std::mismatch(known, checks.end(), m_checks.begin(), m_checks.end());
    const bool isPushedDown = kept.first == checks.end();
    const auto fresh = known - checks.begin();
    const auto dropped = m_checks.end() - kept.second;

    if (isPushedDown && fresh == dropped && fresh < std::ssize(m_checks)) {
        renewLast({checks.begin(), known});
        return;
    }
    dropFrom(isPushedDown ? static_cast<std::size_t>(kept.second - m_checks.begin()) : 0);
    insertAtTop(checks.begin(), isPushedDown ? known : checks.end());
}

void RecentChecksModel::renewLast(std::span<const Check> fresh)
{
    if (fresh.empty())
        return;
    const auto count = static_cast<int>(fresh.size());
    beginMoveRows({}, rowCount() - count, rowCount() - 1, {}, 0);
    std::rotate(m_checks.begin(), m_checks.end() - count, m_checks.end());
    endMoveRows();
    std::ranges::copy(fresh, m_checks.begin());
    Q_EMIT dataChanged(index(0), index(count - 1));
}

void RecentChecksModel::dropFrom(std::size_t first)
{
    if (first == m_checks.size())
        return;
    beginRemoveRows({}, static_cast<int>(first), static_cast<int>(m_checks.size()) - 1);
    m_checks.resize(first);
    endRemoveRows();
}

void RecentChecksModel::insertAtTop(std::vector<Check>::const_iterator begin,
                                    std::vector<Check>::const_iterator end)
{
    if (begin == end)
        return;
    beginInsertRows({}, 0, static_cast<int>(end - begin) - 1);
    m_checks.insert(m_checks.begin(), begin, end);
    endInsertRows();
}

QString RecentChecksModel::timeText(const Check &check) const
{
    return clockTimeText(check.timestamp, m_clock);
}

QString RecentChecksModel::spokenText(const Check &check) const
{
    const auto status = check.isUp ? MonitorStatus::up : MonitorStatus::down;
    QStringList parts = {timeText(check), textLanguage().toLower(statusWord(status)),
                         codeText(check), resultText(check)};
    parts.removeAll(QString());
    return parts.join(QLatin1String(", "));
}

} // namespace ostrel

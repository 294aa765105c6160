#include "ImportPlan.h"

#include "CheckedAddress.h"
#include "OneLine.h"
#include "RecordObjects.h"

#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

/// The members of the stored form that make any monitor equal to @p monitor: those that it lacks
/// are null.
QJsonObject membersOf(const Monitor &monitor)
{
    QJsonObject members = monitorObject(monitor);
    members.remove(u"id"_s);
    for (const QString &optional : {u"keyword"_s, u"responseTimeThreshold"_s, u"port"_s}) {
        if (!members.contains(optional))
            members.insert(optional, QJsonValue::Null);
    }
    return members;
}

/// @p checks as checks of @p monitorId.
std::vector<Check> asChecksOf(const QUuid &monitorId, std::vector<Check> checks)
{
    for (Check &check : checks)
        check.monitorId = monitorId;
    return checks;
}

/// The monitors as they are after the steps so far.
class Planner
{
public:
    Planner(const QList<Monitor> &existing, ImportPolicy policy)
        : m_monitors(existing)
        , m_policy(policy)
    {
    }

    ImportStep plan(const ImportedMonitor &offered)
    {
        if (!offered.hasIdentity)
            return isWatched(offered.monitor) ? skip(offered) : add(offered);
        Monitor *present = find(offered.monitor.id);
        if (!present)
            return add(offered);
        const bool isEqual = monitorObject(*present) == monitorObject(offered.monitor);
        return isEqual ? skip(offered) : settle(*present, offered);
    }

private:
    /// Null if there is none.
    [[nodiscard]] Monitor *find(const QUuid &id)
    {
        const auto found = std::ranges::find(m_monitors, id, &Monitor::id);
        return found == m_monitors.end() ? nullptr : &*found;
    }

    [[nodiscard]] bool isWatched(const Monitor &monitor) const
    {
        return std::ranges::any_of(m_monitors, [&](const Monitor &other) {
            return other.type == monitor.type && checkedAddress(other) == checkedAddress(monitor);
        });
    }

    static ImportStep skip(const ImportedMonitor &offered)
    {
        return {.action = ImportAction::skip,
                .monitor = offered.monitor,
                .reason = u"is there already"_s};
    }

    ImportStep add(const ImportedMonitor &offered)
    {
        m_monitors.append(offered.monitor);
        return {.action = ImportAction::add,
                .monitor = offered.monitor,
                .change = MonitorChange::create(offered.monitor, offered.checks)};
    }

    /// @p present differs from @p offered.
    ImportStep settle(Monitor &present, const ImportedMonitor &offered)
    {
        switch (m_policy) {
        case ImportPolicy::refuse:
            return {.action = ImportAction::refuse,
                    .monitor = offered.monitor,
                    .reason = u"is there already with other settings"_s};
        case ImportPolicy::replace:
            present = offered.monitor;
            return {.action = ImportAction::replace,
                    .monitor = offered.monitor,
                    .reason = u"keeps its history"_s,
                    .change = MonitorChange::update(present.id, membersOf(present))};
        case ImportPolicy::copy:
            return addCopy(offered);
        }
        Q_UNREACHABLE();
    }

    ImportStep addCopy(ImportedMonitor offered)
    {
        offered.monitor.id = QUuid::createUuid();
        offered.checks = asChecksOf(offered.monitor.id, std::move(offered.checks));
        ImportStep step = add(offered);
        step.reason = u"as a copy, beside the one that is there"_s;
        return step;
    }

    QList<Monitor> m_monitors;
    ImportPolicy m_policy;
};

QString verb(ImportAction action)
{
    switch (action) {
    case ImportAction::add:
        return u"add"_s;
    case ImportAction::skip:
        return u"skip"_s;
    case ImportAction::replace:
        return u"replace"_s;
    case ImportAction::refuse:
        return u"refuse"_s;
    }
    Q_UNREACHABLE();
}

QString describe(const ImportStep &step)
{
    const Monitor &monitor = step.monitor;
    const QString text = verb(step.action).leftJustified(9) + oneLine(monitor.displayName()) +
                         u"  "_s + oneLine(checkedAddress(monitor));
    return step.reason.isEmpty() ? text : text + u"  ("_s + step.reason + u')';
}

} // namespace

QList<ImportStep> planImport(const QList<Monitor> &existing, const QList<ImportedMonitor> &offered,
                             ImportPolicy policy)
{
    Planner planner(existing, policy);
    QList<ImportStep> steps;
    for (const ImportedMonitor &each : offered)
        steps.append(planner.plan(each));
    return steps;
}

QList<MonitorChange> changesOf(const QList<ImportStep> &steps)
{
    QList<MonitorChange> changes;
    if (countOf(steps, ImportAction::refuse) > 0)
        return changes;
    for (const ImportStep &step : steps) {
        if (step.action != ImportAction::skip)
            changes.append(step.change);
    }
    return changes;
}

qsizetype countOf(const QList<ImportStep> &steps, ImportAction action)
{
    return std::ranges::count(steps, action, &ImportStep::action);
}

QByteArray describeSteps(const QList<ImportStep> &steps)
{
    QString lines;
    for (const ImportStep &step : steps)
        lines += describe(step) + u'\n';
    return lines.toUtf8();
}

} // namespace ostrel

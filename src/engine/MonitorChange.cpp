#include "MonitorChange.h"

#include "RecordObjects.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

using Kind = MonitorChange::Kind;

const std::array<std::pair<Kind, QString>, 5> kindKeys = {{
    {Kind::create, u"create"_s},
    {Kind::update, u"update"_s},
    {Kind::remove, u"remove"_s},
    {Kind::pause, u"pause"_s},
    {Kind::resume, u"resume"_s},
}};

QString keyOf(Kind kind)
{
    return std::ranges::find(kindKeys, kind, &std::pair<Kind, QString>::first)->second;
}

// The JSON form

QJsonObject createObject(const MonitorChange &change)
{
    QJsonObject object{{keyOf(Kind::create), monitorObject(change.monitor)}};
    if (!change.checks.empty())
        object.insert(u"checks"_s, checkArray(change.checks));
    return object;
}

QJsonObject updateObject(const MonitorChange &change)
{
    QJsonObject members = change.members;
    members.insert(u"id"_s, idText(change.id));
    return {{keyOf(Kind::update), members}};
}

QJsonObject toObject(const MonitorChange &change)
{
    switch (change.kind) {
    case Kind::create:
        return createObject(change);
    case Kind::update:
        return updateObject(change);
    case Kind::remove:
    case Kind::pause:
    case Kind::resume:
        return {{keyOf(change.kind), idText(change.id)}};
    }
    Q_UNREACHABLE();
}

std::optional<MonitorChange> createFrom(const QJsonObject &object)
{
    const auto monitor = monitorFrom(object.value(keyOf(Kind::create)).toObject());
    const QJsonValue given = object.value(u"checks"_s);
    if (!monitor || !(given.isUndefined() || given.isArray()))
        return std::nullopt;
    auto checks = checksFrom(given.toArray(), monitor->id);
    return checks ? std::optional(MonitorChange::create(*monitor, *std::move(checks)))
                  : std::nullopt;
}

std::optional<MonitorChange> updateFrom(QJsonObject members)
{
    const auto id = idFrom(members.take(u"id"_s));
    return id ? std::optional(MonitorChange::update(*id, members)) : std::nullopt;
}

std::optional<MonitorChange> plainFrom(Kind kind, const QJsonValue &value)
{
    const auto id = idFrom(value);
    return id ? std::optional(MonitorChange::of(kind, *id)) : std::nullopt;
}

/// The kind whose key @p object has; nullopt unless it has exactly one.
std::optional<Kind> kindOf(const QJsonObject &object)
{
    std::optional<Kind> found;
    for (const auto &[kind, key] : kindKeys) {
        if (!object.contains(key))
            continue;
        if (found)
            return std::nullopt;
        found = kind;
    }
    return found;
}

std::optional<MonitorChange> changeFrom(const QJsonObject &object)
{
    const auto kind = kindOf(object);
    if (!kind)
        return std::nullopt;
    switch (*kind) {
    case Kind::create:
        return createFrom(object);
    case Kind::update:
        return updateFrom(object.value(keyOf(Kind::update)).toObject());
    case Kind::remove:
    case Kind::pause:
    case Kind::resume:
        return plainFrom(*kind, object.value(keyOf(*kind)));
    }
    Q_UNREACHABLE();
}

// The plan

/// @p monitor with the members of the stored form that @p members holds; nullopt if that is no
/// monitor.
std::optional<Monitor> withMembers(const Monitor &monitor, const QJsonObject &members)
{
    QJsonObject object = monitorObject(monitor);
    for (auto member = members.begin(); member != members.end(); ++member)
        object.insert(member.key(), member.value());
    object.insert(u"id"_s, idText(monitor.id));
    auto changed = monitorFrom(object);
    // The stored form has no fractions of a second.
    if (changed && !members.contains(u"createdAt"_s))
        changed->createdAt = monitor.createdAt;
    return changed;
}

/// The monitors as they are after the changes so far.
class Planner
{
public:
    explicit Planner(QList<Monitor> monitors)
        : m_monitors(std::move(monitors))
    {
    }

    /// Nullopt if @p change can't be made; refusal() then says why.
    [[nodiscard]] std::optional<PlannedChange> plan(const MonitorChange &change)
    {
        switch (change.kind) {
        case Kind::create:
            return planCreate(change);
        case Kind::update:
            return planUpdate(change);
        case Kind::remove:
            return planRemove(change);
        case Kind::pause:
            return planSwitch(change, false);
        case Kind::resume:
            return planSwitch(change, true);
        }
        Q_UNREACHABLE();
    }

    [[nodiscard]] const Refusal &refusal() const { return m_refusal; }

private:
    /// Null if there is none.
    [[nodiscard]] Monitor *find(const QUuid &id)
    {
        const auto found = std::ranges::find(m_monitors, id, &Monitor::id);
        return found == m_monitors.end() ? nullptr : &*found;
    }

    std::nullopt_t refuse(const QString &beginning, const QUuid &id)
    {
        m_refusal = {beginning + idText(id) + u'.'};
        return std::nullopt;
    }

    std::optional<PlannedChange> planCreate(const MonitorChange &change)
    {
        const Monitor *existing = find(change.id);
        if (existing && monitorObject(*existing) != monitorObject(change.monitor))
            return refuse(u"There is another monitor with the id "_s, change.id);
        if (existing)
            return PlannedChange{change, *existing, ChangeOutcome::unchanged};
        m_monitors.append(change.monitor);
        return PlannedChange{change, change.monitor};
    }

    std::optional<PlannedChange> planUpdate(const MonitorChange &change)
    {
        Monitor *existing = find(change.id);
        if (!existing)
            return refuse(u"There is no monitor with the id "_s, change.id);
        const auto changed = withMembers(*existing, change.members);
        if (!changed)
            return refuse(u"A value doesn't suit the monitor with the id "_s, change.id);
        const auto outcome = *changed == *existing ? ChangeOutcome::unchanged : ChangeOutcome::done;
        *existing = *changed;
        return PlannedChange{change, *changed, outcome};
    }

    std::optional<PlannedChange> planRemove(const MonitorChange &change)
    {
        const auto removed =
            m_monitors.removeIf([&](const Monitor &monitor) { return monitor.id == change.id; });
        return PlannedChange{
            change, {}, removed > 0 ? ChangeOutcome::done : ChangeOutcome::unchanged};
    }

    std::optional<PlannedChange> planSwitch(const MonitorChange &change, bool isEnabled)
    {
        Monitor *existing = find(change.id);
        if (!existing)
            return refuse(u"There is no monitor with the id "_s, change.id);
        const bool wasEnabled = std::exchange(existing->isEnabled, isEnabled);
        return PlannedChange{
            change, {}, wasEnabled == isEnabled ? ChangeOutcome::unchanged : ChangeOutcome::done};
    }

    QList<Monitor> m_monitors;
    Refusal m_refusal;
};

} // namespace

MonitorChange MonitorChange::create(const Monitor &monitor, std::vector<Check> checks)
{
    return {
        .kind = Kind::create, .id = monitor.id, .monitor = monitor, .checks = std::move(checks)};
}

MonitorChange MonitorChange::update(const QUuid &id, const QJsonObject &members)
{
    return {.kind = Kind::update, .id = id, .members = members};
}

MonitorChange MonitorChange::of(Kind kind, const QUuid &id)
{
    return {.kind = kind, .id = id};
}

QJsonArray changesArray(const QList<MonitorChange> &changes)
{
    QJsonArray array;
    for (const MonitorChange &change : changes)
        array.append(toObject(change));
    return array;
}

std::variant<QList<MonitorChange>, Refusal> changesFrom(const QJsonArray &array)
{
    QList<MonitorChange> changes;
    for (const auto &element : array) {
        auto change = changeFrom(element.toObject());
        if (!change)
            return Refusal{u"Number %1 of the changes is malformed."_s.arg(changes.size() + 1)};
        changes.append(*std::move(change));
    }
    return changes;
}

QString rawValue(ChangeOutcome outcome)
{
    return outcome == ChangeOutcome::done ? u"done"_s : u"unchanged"_s;
}

std::variant<QList<PlannedChange>, Refusal> planChanges(QList<Monitor> monitors,
                                                        const QList<MonitorChange> &changes)
{
    Planner planner(std::move(monitors));
    QList<PlannedChange> plan;
    for (const MonitorChange &change : changes) {
        auto planned = planner.plan(change);
        if (!planned)
            return planner.refusal();
        plan.append(*std::move(planned));
    }
    return plan;
}

} // namespace ostrel

#pragma once

#include "Check.h"
#include "Monitor.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QString>
#include <QUuid>

#include <variant>
#include <vector>

namespace ostrel {

/// One of the changes to the monitors that are made together or not at all.
///
/// Its JSON form is an object with one of these keys:
///
///     {"create": MONITOR, "checks": [CHECK, …]}   the checks may be left out
///     {"update": {"id": ID, MEMBER: VALUE, …}}    the members that change; null removes one
///     {"remove": ID}
///     {"pause": ID}
///     {"resume": ID}
///
/// where MONITOR, CHECK and ID are as in the files.
struct MonitorChange
{
    enum class Kind { create, update, remove, pause, resume };

    Kind kind = Kind::create;
    QUuid id = {};               ///< The monitor's.
    Monitor monitor = {};        ///< Of create.
    std::vector<Check> checks{}; ///< Of create: its history, oldest first.
    QJsonObject members = {};    ///< Of update: the stored form of what changes.

    [[nodiscard]] static MonitorChange create(const Monitor &monitor,
                                              std::vector<Check> checks = {});
    [[nodiscard]] static MonitorChange update(const QUuid &id, const QJsonObject &members);
    /// For the other kinds, which need no more than the id.
    [[nodiscard]] static MonitorChange of(Kind kind, const QUuid &id);

    bool operator==(const MonitorChange &) const = default;
};

/// Why nothing was done: a sentence for users, without foreign texts.
struct Refusal
{
    QString reason;

    bool operator==(const Refusal &) const = default;
};

[[nodiscard]] QJsonArray changesArray(const QList<MonitorChange> &changes);
/// Refuses what isn't the form above, naming the place in the list.
[[nodiscard]] std::variant<QList<MonitorChange>, Refusal> changesFrom(const QJsonArray &array);

enum class ChangeOutcome {
    done,
    unchanged, ///< It was so already.
};
[[nodiscard]] QString rawValue(ChangeOutcome outcome);

/// A change as it is carried out.
struct PlannedChange
{
    MonitorChange change;
    Monitor monitor = {}; ///< The monitor of a create or update as it will be.
    ChangeOutcome outcome = ChangeOutcome::done;
};

/// Tries @p changes, in their order, on @p monitors. Refuses all of them if one can't be made: a
/// second monitor with an id, unless it is equal to the first; an update of a monitor that isn't
/// there, or to something that is no monitor; a pause or resumption of one that isn't there.
[[nodiscard]] std::variant<QList<PlannedChange>, Refusal>
planChanges(QList<Monitor> monitors, const QList<MonitorChange> &changes);

} // namespace ostrel

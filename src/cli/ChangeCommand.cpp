#include "ChangeCommand.h"

#include "MonitorNames.h"
#include "MonitorRequests.h"
#include "MonitorStore.h"
#include "RecordObjects.h"
#include "RequestRunner.h"

#include <QJsonArray>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

using Kind = MonitorChange::Kind;

/// What is said of a change that has been made, for example "Paused", and of one that had been made
/// before.
struct Wording
{
    QString done;
    QString unchanged;
};

Wording wordingOf(Kind kind)
{
    switch (kind) {
    case Kind::create:
        return {u"Added %1\n"_s, u"%1 is there already\n"_s};
    case Kind::update:
        return {u"Changed %1\n"_s, u"%1 is like that already\n"_s};
    case Kind::remove:
        return {u"Removed %1\n"_s, u"%1 is gone already\n"_s};
    case Kind::pause:
        return {u"Paused %1\n"_s, u"%1 is paused already\n"_s};
    case Kind::resume:
        return {u"Resumed %1\n"_s, u"%1 isn't paused\n"_s};
    }
    Q_UNREACHABLE();
}

QString report(const MonitorChange &change, const Monitor &monitor, const QJsonValue &outcome)
{
    const Wording wording = wordingOf(change.kind);
    const bool isDone = outcome.toString() == rawValue(ChangeOutcome::done);
    // Not by arg(): a name may hold placeholders.
    return QString(isDone ? wording.done : wording.unchanged).replace(u"%1"_s, nameAndId(monitor));
}

QString saveComplaint(const RequestRunner &runner, const QString &reason)
{
    const QString place = runner.dataDir() + u": "_s + reason;
    return runner.store() ? u"can't save to "_s + place
                          : u"it is done, but can't be saved to "_s + place;
}

/// Makes @p changes, which concern @p monitors.
CommandResult make(const QList<MonitorChange> &changes, const QList<Monitor> &monitors,
                   RequestRunner &runner)
{
    const auto made = makeChanges(changes, runner);
    if (const auto *failed = std::get_if<CommandResult>(&made))
        return *failed;
    const auto &outcomes = std::get<QJsonArray>(made);
    QString lines;
    for (qsizetype i = 0; i < changes.size(); ++i)
        lines += report(changes.at(i), monitors.at(i), outcomes.at(i));
    return {.output = lines.toUtf8()};
}

/// The members of the stored form that make @p before @p after; null for one that goes.
QJsonObject difference(const Monitor &before, const Monitor &after)
{
    QJsonObject members = monitorObject(after);
    const QJsonObject old = monitorObject(before);
    for (auto member = old.begin(); member != old.end(); ++member) {
        if (!members.contains(member.key()))
            members.insert(member.key(), QJsonValue());
        else if (members.value(member.key()) == member.value())
            members.remove(member.key());
    }
    return members;
}

} // namespace

std::variant<QJsonArray, CommandResult> makeChanges(const QList<MonitorChange> &changes,
                                                    RequestRunner &runner)
{
    const auto value = runner.run(changeRequest(changes), usualPatience);
    if (const auto *failed = std::get_if<CommandResult>(&value))
        return *failed;
    const QJsonObject answer = std::get<QJsonValue>(value).toObject();
    const QString unsaved = answer.value(u"unsaved"_s).toString();
    if (!unsaved.isEmpty())
        return CommandResult{.exitCode = exitFailed, .complaint = saveComplaint(runner, unsaved)};
    return answer.value(u"outcomes"_s).toArray();
}

CommandResult runAdd(const AddInvocation &invocation, RequestRunner &runner)
{
    return make({MonitorChange::create(invocation.monitor)}, {invocation.monitor}, runner);
}

CommandResult runEdit(const EditInvocation &invocation, RequestRunner &runner)
{
    const auto found = runner.named({invocation.name});
    if (const auto *failed = std::get_if<CommandResult>(&found))
        return *failed;
    const Monitor before = std::get<QList<Monitor>>(found).constFirst();
    const auto after = withOptions(before, invocation.options);
    if (const auto *complaint = std::get_if<QString>(&after))
        return {.exitCode = exitUnusable, .complaint = *complaint};
    const auto &changed = std::get<Monitor>(after);
    return make({MonitorChange::update(before.id, difference(before, changed))}, {changed}, runner);
}

CommandResult runSwitch(const SwitchInvocation &invocation, RequestRunner &runner)
{
    const auto found = runner.named(invocation.names);
    if (const auto *failed = std::get_if<CommandResult>(&found))
        return *failed;
    const auto &monitors = std::get<QList<Monitor>>(found);
    QList<MonitorChange> changes;
    for (const Monitor &monitor : monitors)
        changes += MonitorChange::of(invocation.kind, monitor.id);
    return make(changes, monitors, runner);
}

} // namespace ostrel

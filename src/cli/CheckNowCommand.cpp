#include "CheckNowCommand.h"

#include "CheckCommand.h"
#include "MonitorNames.h"
#include "MonitorRequests.h"
#include "MonitorStore.h"
#include "RecordObjects.h"
#include "RequestRunner.h"

#include <QJsonArray>

#include <algorithm>
#include <optional>
#include <vector>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

using namespace std::chrono_literals;

/// For a program that watches to take the request, and for checks that wait for others.
constexpr auto margin = 1min;
constexpr auto longestPatience = 24h;

/// The checks in the order of the monitors; nullopt for one that was dropped.
using Results = std::vector<std::optional<Check>>;

std::chrono::milliseconds patienceWith(const QList<Monitor> &monitors)
{
    Seconds longest(0);
    for (const Monitor &monitor : monitors)
        longest = std::max(longest, monitor.timeout);
    const Seconds bounded = std::min<Seconds>(longest, longestPatience);
    return std::chrono::duration_cast<std::chrono::milliseconds>(bounded) + margin;
}

std::optional<Check> resultIn(const QJsonValue &value, const Monitor &monitor)
{
    const auto checks = value.isObject() ? checksFrom({value}, monitor.id) : std::nullopt;
    return checks ? std::optional(checks->front()) : std::nullopt;
}

std::variant<Results, CommandResult> checkThere(const QList<Monitor> &monitors,
                                                RequestRunner &runner)
{
    QList<QUuid> ids;
    for (const Monitor &monitor : monitors)
        ids += monitor.id;
    const auto value = runner.run(checkNowRequest(ids), patienceWith(monitors));
    if (const auto *failed = std::get_if<CommandResult>(&value))
        return *failed;
    Results results;
    const QJsonArray checks = std::get<QJsonValue>(value).toArray();
    for (qsizetype i = 0; i < monitors.size(); ++i)
        results.push_back(resultIn(checks.at(i), monitors.at(i)));
    return results;
}

/// What keeps @p results out of the history; empty if nothing does.
QString record(const Results &results, RequestRunner &runner)
{
    const auto monitors = runner.monitors(); // Owns the files again, if no one does.
    if (const auto *failed = std::get_if<CommandResult>(&monitors))
        return failed->complaint;
    MonitorStore *store = runner.store();
    if (!store)
        return u"an Ostrel that has started meanwhile makes checks of its own"_s;
    store->changeTogether([&] {
        for (const auto &check : results) {
            if (check && store->monitor(check->monitorId))
                store->addCheck(*check);
        }
    });
    return store->canSave() ? QString() : store->saveFailure();
}

CommandResult describe(const QList<Monitor> &monitors, const Results &results, OutputFormat format)
{
    CommandResult result{.exitCode = exitDone};
    for (qsizetype i = 0; i < monitors.size(); ++i) {
        const auto &check = results.at(std::size_t(i));
        if (check)
            result.output += describeCheck(monitors.at(i), *check, format);
        else
            result.complaint = u"the check of "_s + nameAndId(monitors.at(i)) +
                               u" was dropped: the computer slept, or has no network"_s;
        if (!check || !check->isUp)
            result.exitCode = exitFailed;
    }
    return result;
}

CommandResult checkOurselves(const CheckNowInvocation &invocation, const QList<Monitor> &monitors,
                             RequestRunner &runner, Network &network)
{
    runner.release(); // The checks may take long.
    Results results;
    for (Check &check : runChecks(monitors, network))
        results.emplace_back(std::move(check));
    CommandResult result = describe(monitors, results, invocation.format);
    const QString failure = record(results, runner);
    if (!failure.isEmpty())
        result.complaint = u"the results aren't in the history: "_s + failure;
    return result;
}

} // namespace

CommandResult runCheckNow(const CheckNowInvocation &invocation, RequestRunner &runner,
                          Network &network)
{
    const auto found = runner.named(invocation.names);
    if (const auto *failed = std::get_if<CommandResult>(&found))
        return *failed;
    const auto &monitors = std::get<QList<Monitor>>(found);
    if (runner.store())
        return checkOurselves(invocation, monitors, runner, network);
    const auto results = checkThere(monitors, runner);
    if (runner.store()) // The program that watched has ended instead of answering.
        return checkOurselves(invocation, monitors, runner, network);
    if (const auto *failed = std::get_if<CommandResult>(&results))
        return *failed;
    return describe(monitors, std::get<Results>(results), invocation.format);
}

} // namespace ostrel

#include "MonitorRequests.h"

#include "ContinueOn.h"
#include "MonitorCommands.h"
#include "MonitorStore.h"
#include "RecordObjects.h"

#include <QFuture>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

constexpr QByteArrayView okVerb = "ok ";
constexpr QByteArrayView refusedVerb = "refused ";

template<typename Container>
QByteArray lineOf(const Container &json)
{
    return QJsonDocument(json).toJson(QJsonDocument::Compact);
}

template<typename Container>
QByteArray ok(const Container &json)
{
    return okVerb.toByteArray() + lineOf(json);
}

QByteArray refused(const QString &reason)
{
    return refusedVerb.toByteArray() + reason.toUtf8();
}

QJsonArray monitorsArray(const MonitorStore &store)
{
    QJsonArray array;
    for (const Monitor &monitor : store.monitors())
        array.append(monitorObject(monitor));
    return array;
}

/// The monitors with the ids in @p array; nullopt if one isn't there or is no id.
std::optional<QList<Monitor>> monitorsIn(const QJsonArray &array, const MonitorStore &store)
{
    QList<Monitor> monitors;
    for (const auto &value : array) {
        const auto monitor = store.monitor(idFrom(value).value_or(QUuid()));
        if (!monitor)
            return std::nullopt;
        monitors.append(*monitor);
    }
    return monitors;
}

QUuid latestId(const MonitorStore &store, const Monitor &monitor)
{
    const auto latest = store.latestCheck(monitor);
    return latest ? latest->id : QUuid();
}

/// The checks that a request waits for.
struct Errand
{
    QList<Monitor> monitors;
    QList<QUuid> earlierChecks = {}; ///< The latest check of each before the request.
    qsizetype running = 0;
    MonitorRequests::Reply reply;

    [[nodiscard]] QByteArray answer(const MonitorStore &store) const
    {
        QJsonArray checks;
        for (qsizetype i = 0; i < monitors.size(); ++i) {
            const auto latest = store.latestCheck(monitors.at(i));
            const bool isNew = latest && latest->id != earlierChecks.at(i);
            checks.append(isNew ? QJsonValue(checkObject(*latest)) : QJsonValue());
        }
        return ok(checks);
    }
};

} // namespace

MonitorRequests::MonitorRequests(const MonitorStore &store, MonitorCommands &commands,
                                 QObject *parent)
    : QObject(parent)
    , m_store(store)
    , m_commands(commands)
{
}

void MonitorRequests::answer(const QByteArray &request, const Reply &reply)
{
    const QJsonObject object = QJsonDocument::fromJson(request).object();
    const QJsonValue argument = object.begin() == object.end() ? QJsonValue() : *object.begin();
    if (object.size() != 1)
        return reply(refused(u"The request is malformed."_s));
    const QString verb = object.begin().key();
    if (verb == u"monitors"_s)
        return reply(ok(monitorsArray(m_store)));
    if (verb == u"change"_s && argument.isArray())
        return reply(change(argument.toArray()));
    if (verb == u"checkNow"_s && argument.isArray())
        return checkNow(argument.toArray(), reply);
    reply(refused(u"The request is unknown."_s));
}

QByteArray MonitorRequests::change(const QJsonArray &changes)
{
    const auto read = changesFrom(changes);
    if (const auto *refusal = std::get_if<Refusal>(&read))
        return refused(refusal->reason);
    const auto made = m_commands.apply(std::get<QList<MonitorChange>>(read));
    if (const auto *refusal = std::get_if<Refusal>(&made))
        return refused(refusal->reason);
    QJsonArray outcomes;
    for (const ChangeOutcome outcome : std::get<QList<ChangeOutcome>>(made))
        outcomes.append(rawValue(outcome));
    QJsonObject answer{{u"outcomes"_s, outcomes}};
    if (!m_store.canSave())
        answer.insert(u"unsaved"_s, m_store.saveFailure());
    return ok(answer);
}

void MonitorRequests::checkNow(const QJsonArray &ids, const Reply &reply)
{
    const auto monitors = monitorsIn(ids, m_store);
    if (!monitors)
        return reply(refused(u"One of the monitors is no longer there."_s));
    if (monitors->isEmpty())
        return reply(ok(QJsonArray()));
    auto errand = std::make_shared<Errand>(
        Errand{.monitors = *monitors, .running = monitors->size(), .reply = reply});
    for (const Monitor &monitor : *monitors)
        errand->earlierChecks += latestId(m_store, monitor);
    for (const Monitor &monitor : *monitors) {
        whenFinished(m_commands.checkNow(monitor.id), this, [this, errand](const QFuture<void> &) {
            if (--errand->running == 0)
                errand->reply(errand->answer(m_store));
        });
    }
}

QByteArray monitorsRequest()
{
    return lineOf(QJsonObject{{u"monitors"_s, QJsonValue()}});
}

QByteArray changeRequest(const QList<MonitorChange> &changes)
{
    return lineOf(QJsonObject{{u"change"_s, changesArray(changes)}});
}

QByteArray checkNowRequest(const QList<QUuid> &ids)
{
    QJsonArray array;
    for (const QUuid &id : ids)
        array.append(idText(id));
    return lineOf(QJsonObject{{u"checkNow"_s, array}});
}

std::variant<QJsonValue, Refusal> valueIn(const QByteArray &line)
{
    if (line.startsWith(refusedVerb))
        return Refusal{QString::fromUtf8(line.sliced(refusedVerb.size()))};
    const auto document = line.startsWith(okVerb)
                              ? QJsonDocument::fromJson(line.sliced(okVerb.size()))
                              : QJsonDocument();
    if (document.isArray())
        return QJsonValue(document.array());
    if (document.isObject())
        return QJsonValue(document.object());
    return Refusal{u"The answer is malformed."_s};
}

} // namespace ostrel

#pragma once

#include "MonitorChange.h"

#include <QByteArray>
#include <QJsonValue>
#include <QList>
#include <QObject>
#include <QUuid>

#include <functional>
#include <variant>

namespace ostrel {

class MonitorCommands;
class MonitorStore;

/// Answers the requests that other programs make of the one that watches. A request is a JSON
/// object, and its answer one line:
///
///     {"monitors": null}         ok [MONITOR, …]
///     {"change": [CHANGE, …]}    ok {"outcomes": ["done" or "unchanged", …], "unsaved": REASON}
///     {"checkNow": [ID, …]}      ok [CHECK or null, …]
///     anything else              refused REASON
///
/// where MONITOR, CHECK and ID are as in the files, and CHANGE as for MonitorChange. "unsaved" is
/// left out if everything is saved. A check is null if it was dropped. Main thread.
class MonitorRequests : public QObject
{
    Q_OBJECT

public:
    /// Takes the answer, a line without its end, at most once.
    using Reply = std::function<void(const QByteArray &)>;

    /// Both must outlive this object.
    MonitorRequests(const MonitorStore &store, MonitorCommands &commands,
                    QObject *parent = nullptr);

    /// Calls @p reply: at once, but for checks only after they have ended.
    void answer(const QByteArray &request, const Reply &reply);

private:
    [[nodiscard]] QByteArray change(const QJsonArray &changes);
    void checkNow(const QJsonArray &ids, const Reply &reply);

    const MonitorStore &m_store;
    MonitorCommands &m_commands;
};

// The other side.

[[nodiscard]] QByteArray monitorsRequest();
[[nodiscard]] QByteArray changeRequest(const QList<MonitorChange> &changes);
[[nodiscard]] QByteArray checkNowRequest(const QList<QUuid> &ids);

/// The value in the answer @p line, or why it was refused.
[[nodiscard]] std::variant<QJsonValue, Refusal> valueIn(const QByteArray &line);

} // namespace ostrel

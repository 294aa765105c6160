#include "RequestRunner.h"

#include "Invocation.h"
#include "MonitorCommands.h"
#include "MonitorNames.h"
#include "MonitorRequests.h"
#include "MonitorStore.h"
#include "RecordObjects.h"

#include <QFileInfo>
#include <QJsonArray>

#include <utility>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

CommandResult failure(const QString &complaint)
{
    return {.exitCode = exitFailed, .complaint = complaint};
}

QList<Monitor> monitorsIn(const QJsonArray &array)
{
    QList<Monitor> monitors;
    for (const auto &value : array) {
        if (const auto monitor = monitorFrom(value.toObject()))
            monitors += *monitor;
    }
    return monitors;
}

} // namespace

/// The files, once they are ours.
struct RequestRunner::OwnFiles
{
    OwnFiles(const QString &dataDir, StoredRecords records, FolderOwnership &ownership)
        : store(dataDir, std::move(records), {.ownership = &ownership})
    {
    }

    MonitorStore store;
    MonitorCommands commands{store};
    MonitorRequests requests{store, commands};
};

RequestRunner::RequestRunner(const QString &dataDir, RequestChannel &channel,
                             FolderOwnership &ownership)
    : m_dataDir(dataDir)
    , m_channel(channel)
    , m_ownership(ownership)
{
}

RequestRunner::~RequestRunner() = default;

std::variant<QJsonValue, CommandResult> RequestRunner::run(const QByteArray &request,
                                                           std::chrono::milliseconds patience)
{
    const auto answer = answerTo(request, patience);
    if (const auto *failed = std::get_if<CommandResult>(&answer))
        return *failed;
    const auto value = valueIn(std::get<QByteArray>(answer));
    if (const auto *refusal = std::get_if<Refusal>(&value))
        return failure(refusal->reason);
    return std::get<QJsonValue>(value);
}

std::variant<QList<Monitor>, CommandResult> RequestRunner::monitors()
{
    if (!QFileInfo::exists(m_dataDir))
        return QList<Monitor>();
    const auto value = run(monitorsRequest(), usualPatience);
    if (const auto *failed = std::get_if<CommandResult>(&value))
        return *failed;
    return monitorsIn(std::get<QJsonValue>(value).toArray());
}

std::variant<QList<Monitor>, CommandResult> RequestRunner::named(const QStringList &names)
{
    const auto all = monitors();
    if (const auto *failed = std::get_if<CommandResult>(&all))
        return *failed;
    const auto found = monitorsNamed(names, std::get<QList<Monitor>>(all));
    if (const auto *complaint = std::get_if<QString>(&found))
        return CommandResult{.exitCode = exitUnusable, .complaint = *complaint};
    return std::get<QList<Monitor>>(found);
}

MonitorStore *RequestRunner::store() const
{
    return m_files ? &m_files->store : nullptr;
}

void RequestRunner::release()
{
    m_files.reset();
    m_channel.release();
}

std::variant<QByteArray, CommandResult> RequestRunner::answerTo(const QByteArray &request,
                                                                std::chrono::milliseconds patience)
{
    if (m_files)
        return answerOurselves(request);
    const auto answer = m_channel.ask(request, patience);
    switch (answer.result) {
    case RequestChannel::Result::answered:
        return answer.line;
    case RequestChannel::Result::ours:
        return answerOurselves(request);
    case RequestChannel::Result::silent:
        return failure(u"another Ostrel that doesn't answer uses "_s + m_dataDir);
    case RequestChannel::Result::unusable:
        return failure(u"can't lock "_s + m_dataDir);
    }
    Q_UNREACHABLE();
}

std::variant<QByteArray, CommandResult> RequestRunner::answerOurselves(const QByteArray &request)
{
    if (!m_files) {
        StoredRecords records = StoredRecords::read(m_dataDir);
        if (records.areMonitorsUnreadable)
            return failure(u"can't read "_s + StoredRecords::monitorsPath(m_dataDir));
        m_files = std::make_unique<OwnFiles>(m_dataDir, std::move(records), m_ownership);
    }
    // An answer that comes later has no taker.
    const auto line = std::make_shared<QByteArray>();
    m_files->requests.answer(request, [line](const QByteArray &answer) { *line = answer; });
    return *line;
}

} // namespace ostrel

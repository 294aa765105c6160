#pragma once

#include "Monitor.h"
#include "RequestChannel.h"

#include <QByteArray>
#include <QJsonValue>
#include <QList>
#include <QString>
#include <QStringList>

#include <chrono>
#include <memory>
#include <variant>

namespace ostrel {

class FolderOwnership;
class MonitorStore;

/// What a command ended with.
struct CommandResult
{
    int exitCode = 0;
    QByteArray output = {}; ///< For stdout, with a newline at its end.
    QString complaint = {}; ///< A sentence for stderr; may be empty.
    QStringList notes = {}; ///< Sentences for stderr that don't mean that anything failed.
};

/// Carries requests to MonitorRequests out: through the program that owns the data folder, or, if
/// none does, on the files, which this object then owns. Needs an application object.
class RequestRunner
{
public:
    /// Both must outlive this object. @p ownership is that of the folder which @p channel gains.
    RequestRunner(const QString &dataDir, RequestChannel &channel, FolderOwnership &ownership);
    ~RequestRunner();

    [[nodiscard]] const QString &dataDir() const { return m_dataDir; }

    /// The answer's value, or how the command ends without one: the request was refused, the owner
    /// is silent, or the folder or its file of monitors can't be used.
    [[nodiscard]] std::variant<QJsonValue, CommandResult> run(const QByteArray &request,
                                                              std::chrono::milliseconds patience);
    /// The monitors as they are now; none if there is no folder, which isn't created.
    [[nodiscard]] std::variant<QList<Monitor>, CommandResult> monitors();
    /// Those that @p names mean, see monitorsNamed().
    [[nodiscard]] std::variant<QList<Monitor>, CommandResult> named(const QStringList &names);

    /// The store of the files; null as long as another program owns them, or might.
    [[nodiscard]] MonitorStore *store() const;
    /// Gives the files up, if they are ours, so that a program that starts meanwhile can own them.
    void release();

private:
    struct OwnFiles;

    [[nodiscard]] std::variant<QByteArray, CommandResult>
    answerTo(const QByteArray &request, std::chrono::milliseconds patience);
    [[nodiscard]] std::variant<QByteArray, CommandResult>
    answerOurselves(const QByteArray &request);

    QString m_dataDir;
    RequestChannel &m_channel;
    FolderOwnership &m_ownership;
    std::unique_ptr<OwnFiles> m_files; ///< Null as long as they aren't ours.
};

} // namespace ostrel

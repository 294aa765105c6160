#include "ImportCommand.h"

#include "ChangeCommand.h"
#include "ImportReader.h"
#include "StorageFolder.h"
#include "StoredRecords.h"

#include <QFile>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

CommandResult unusableFile(const QString &complaint)
{
    return {.exitCode = exitUnusable, .complaint = complaint};
}

QString nameOf(const ImportInvocation &invocation)
{
    return invocation.path.isEmpty() ? u"standard input"_s : invocation.path;
}

bool open(QFile &file, const QString &path)
{
    if (path.isEmpty())
        return file.open(stdin, QIODevice::ReadOnly);
    file.setFileName(path);
    return file.open(QIODevice::ReadOnly);
}

/// The file's text, or why it can't be read.
std::variant<QByteArray, CommandResult> textOf(const ImportInvocation &invocation)
{
    QFile file;
    if (!open(file, invocation.path))
        return unusableFile(u"can't read "_s + nameOf(invocation) + u": "_s + file.errorString());
    const QByteArray text = file.read(maxImportSize + 1);
    if (file.error() != QFileDevice::NoError)
        return unusableFile(u"can't read "_s + nameOf(invocation) + u": "_s + file.errorString());
    if (text.size() > maxImportSize)
        return unusableFile(nameOf(invocation) + u" is larger than 64 MiB"_s);
    return text;
}

QString complaintOf(const ImportInvocation &invocation, const QStringList &problems)
{
    const QString first = nameOf(invocation) + u": "_s + problems.constFirst();
    const qsizetype others = problems.size() - 1;
    return others == 0 ? first : first + u" (and "_s + QString::number(others) + u" more)"_s;
}

/// The monitors that are there. A dry run reads them from the files, and so owns nothing.
std::variant<QList<Monitor>, CommandResult> presentMonitors(const ImportInvocation &invocation,
                                                            RequestRunner &runner)
{
    if (!invocation.isDryRun)
        return runner.monitors();
    const StoredRecords records = StoredRecords::read(invocation.dataDir);
    if (!records.areMonitorsUnreadable)
        return records.monitors;
    return CommandResult{.exitCode = exitFailed,
                         .complaint =
                             u"can't read "_s + StoredRecords::monitorsPath(invocation.dataDir)};
}

/// Carries @p steps out, unless one of them is refused or they are only tried.
CommandResult carryOut(const QList<ImportStep> &steps, const ImportInvocation &invocation,
                       RequestRunner &runner)
{
    if (countOf(steps, ImportAction::refuse) > 0)
        return {.exitCode = exitFailed,
                .output = describeSteps(steps),
                .complaint = u"nothing is imported: settings differ, which --replace or --copy "
                             "decides"_s};
    const QList<MonitorChange> changes = changesOf(steps);
    if (invocation.isDryRun || changes.isEmpty())
        return {.output = describeSteps(steps)};
    createPrivateFolder(invocation.dataDir);
    const auto made = makeChanges(changes, runner);
    if (const auto *failed = std::get_if<CommandResult>(&made))
        return *failed;
    return {.output = describeSteps(steps)};
}

} // namespace

CommandResult runImport(const ImportInvocation &invocation, RequestRunner &runner,
                        const WallClock &now)
{
    const auto text = textOf(invocation);
    if (const auto *failed = std::get_if<CommandResult>(&text))
        return *failed;
    const ImportContent content = readImport(std::get<QByteArray>(text), now());
    if (!content.problems.isEmpty())
        return unusableFile(complaintOf(invocation, content.problems));
    const auto present = presentMonitors(invocation, runner);
    if (const auto *failed = std::get_if<CommandResult>(&present))
        return *failed;
    const auto steps =
        planImport(std::get<QList<Monitor>>(present), content.monitors, invocation.policy);
    CommandResult result = carryOut(steps, invocation, runner);
    result.notes = content.notes;
    return result;
}

} // namespace ostrel

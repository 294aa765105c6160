#include "ExportCommand.h"

#include "AtomicFile.h"
#include "CsvExport.h"
#include "JsonExport.h"
#include "PrometheusExport.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

ExportOutcome failure(const QString &complaint)
{
    return {.exitCode = exitFailed, .complaints = {complaint}};
}

ExportOutcome writeFailure(const QString &path)
{
    return failure(u"can't write "_s + path + u": "_s + qt_error_string(errno));
}

ExportOutcome existsFailure(const QString &path)
{
    return failure(path + u" exists already; --force replaces it"_s);
}

bool wantsHistory(const ExportInvocation &invocation)
{
    return invocation.format == ExportFormat::csv ||
           (invocation.format == ExportFormat::json && invocation.hasHistory);
}

void append(const ExportInvocation &invocation, const StoredRecords &records, Timestamp now,
            ContentWriter &content)
{
    if (invocation.format == ExportFormat::csv)
        appendCsvExport(records, content);
    else
        appendJsonExport(
            records, invocation.hasHistory ? ExportedHistory::included : ExportedHistory::leftOut,
            now, content);
}

/// Whether @p path is, maybe by another name, a file that Ostrel itself keeps in @p dataDir.
bool isStored(const QString &path, const QString &dataDir)
{
    const QString file = QFileInfo(path).canonicalFilePath();
    const QStringList stored = {StoredRecords::monitorsPath(dataDir),
                                StoredRecords::checksPath(dataDir),
                                StoredRecords::flushedChecksPath(dataDir)};
    return !file.isEmpty() && std::ranges::any_of(stored, [&](const QString &other) {
        return QFileInfo(other).canonicalFilePath() == file;
    });
}

/// Writes the file @p path with @p fill.
ExportOutcome writeFile(const QString &path, const AtomicFile::Fill &fill, bool replaces)
{
    // A device or a pipe would be replaced by a file.
    const QFileInfo present(path);
    if (present.exists() && !present.isFile())
        return failure(path + u" is no ordinary file"_s);
    const AtomicFile file(path, AtomicFile::waitForTheDisk, AtomicFile::Access::usual);
    constexpr auto flush = AtomicFile::Flush::beforeReplacing;
    if (replaces ? file.write(fill, flush) : file.writeNew(fill, flush))
        return {};
    return errno == EEXIST ? existsFailure(path) : writeFailure(path);
}

ExportOutcome writeRecords(const ExportInvocation &invocation, const StoredRecords &records,
                           int output, Timestamp now)
{
    if (!invocation.path.isEmpty()) {
        const auto fill = [&](ContentWriter &content) {
            append(invocation, records, now, content);
            return true;
        };
        return writeFile(invocation.path, fill, invocation.replaces);
    }
    ContentWriter content(output);
    append(invocation, records, now, content);
    return content.finish() ? ExportOutcome() : writeFailure(u"to standard output"_s);
}

/// The first of @p files that exists in @p folder; empty if none does.
QString existingOf(const QMap<QString, QByteArray> &files, const QDir &folder)
{
    const QStringList names = files.keys();
    const auto found = std::ranges::find_if(
        names, [&](const QString &name) { return QFileInfo::exists(folder.filePath(name)); });
    return found == names.end() ? QString() : folder.filePath(*found);
}

ExportOutcome writeConfiguration(const ExportInvocation &invocation,
                                 const PrometheusConfiguration &configuration)
{
    const QDir folder(invocation.path);
    const QString existing = existingOf(configuration.files, folder);
    if (!invocation.replaces && !existing.isEmpty())
        return existsFailure(existing);
    if (!folder.mkpath(u"targets"_s))
        return writeFailure(folder.filePath(u"targets"_s));
    for (const auto &[name, text] : configuration.files.asKeyValueRange()) {
        const auto fill = [&text = text](ContentWriter &content) {
            content.append({text.constData(), std::size_t(text.size())});
            return true;
        };
        ExportOutcome outcome = writeFile(folder.filePath(name), fill, invocation.replaces);
        if (outcome.exitCode != exitDone)
            return outcome;
    }
    return {.complaints = configuration.notes};
}

/// Says that what is wanted can't be read; nullopt if it can.
std::optional<ExportOutcome> obstacle(const ExportInvocation &invocation,
                                      const StoredRecords &records)
{
    if (records.areMonitorsUnreadable)
        return failure(u"can't read "_s + StoredRecords::monitorsPath(invocation.dataDir));
    // After a power cut, the flushed copy may have been read instead.
    if (wantsHistory(invocation) && records.areChecksUnreadable && records.checks.empty())
        return failure(u"can't read "_s + StoredRecords::checksPath(invocation.dataDir));
    return std::nullopt;
}

} // namespace

ExportOutcome runExport(const ExportInvocation &invocation, int output, const WallClock &now)
{
    const StoredRecords records = StoredRecords::read(invocation.dataDir);
    if (const auto problem = obstacle(invocation, records))
        return *problem;
    if (isStored(invocation.path, invocation.dataDir))
        return failure(invocation.path + u" is what is exported"_s);
    if (invocation.format == ExportFormat::prometheus)
        return writeConfiguration(invocation, prometheusConfiguration(records.monitors));
    return writeRecords(invocation, records, output, now());
}

} // namespace ostrel

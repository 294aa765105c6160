#include "StoredRecords.h"

#include "AtomicFile.h"
#include "HistoriesReader.h"
#include "MonitorJson.h"

#include <algorithm>
#include <array>
#include <exception>
#include <string_view>
#include <type_traits>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

/// The result of @p read; nullopt if it throws, for example if there isn't enough memory.
template<typename Read>
std::invoke_result_t<Read> readOrNothing(Read read)
{
    try {
        return read();
    } catch (const std::exception &) {
        return std::nullopt;
    }
}

void readMonitors(const AtomicFile &file, StoredRecords &records)
{
    const auto monitors = readOrNothing([&] {
        const auto json = file.read(&records.monitorsContent);
        return json ? decodeMonitors(*json) : std::nullopt;
    });
    records.monitors = monitors.value_or(QList<Monitor>());
    records.areMonitorsUnreadable = !monitors && file.exists();
}

std::optional<CheckHistories> readQuietly(const FileSnapshot &content)
{
    return readOrNothing([&] { return readHistories(content); });
}

/// In bytes. A disk takes or leaves a sector as a whole, so that the part of a file that it took
/// ends with one, unless that is the end of the file.
constexpr std::size_t sectorSize = 512;

bool isZero(std::span<const char> bytes)
{
    return std::ranges::all_of(bytes, [](char byte) { return byte == '\0'; });
}

/// Whether a disk that took only a part of a stored history may have ended it with @p sector.
/// Histories end with two brackets.
bool isCutOffAfter(std::span<const char> sector)
{
    return sector.size() == sectorSize &&
           !std::string_view(sector.data(), sector.size()).ends_with("]]");
}

/// Whether this is what a power cut can leave of a history, which has got its name, but not all of
/// its content on the disk: nothing, whole sectors of its beginning, or zeros for some of it.
bool isUnfinished(const FileSnapshot &content)
{
    if (!content.isOfAFile() || content.size() > maxStoredFileSize)
        return false;
    std::array<char, sectorSize> room{};
    std::span<char> sector;
    for (quint64 offset = 0; offset < content.size(); offset += sector.size()) {
        sector = std::span(room).first(std::min<quint64>(content.size() - offset, sectorSize));
        if (!content.read(offset, sector))
            return false;
        if (isZero(sector))
            return true;
    }
    return sector.empty() || sector.back() == '\0' || isCutOffAfter(sector);
}

void readChecks(const AtomicFile &file, const AtomicFile &flushed, StoredRecords &records)
{
    records.checksContent = file.snapshot();
    auto histories = readQuietly(records.checksContent);
    records.areChecksUnreadable = !histories && file.exists();
    if (!histories && isUnfinished(records.checksContent)) {
        records.checksContent = flushed.snapshot();
        histories = readQuietly(records.checksContent);
    }
    records.checks = std::move(histories).value_or(CheckHistories());
}

} // namespace

QString StoredRecords::monitorsPath(const QString &storageDir)
{
    return storageDir + u"/monitors.json"_s;
}

QString StoredRecords::checksPath(const QString &storageDir)
{
    return storageDir + u"/checks.json"_s;
}

QString StoredRecords::flushedChecksPath(const QString &storageDir)
{
    return checksPath(storageDir) + u".flushed"_s;
}

StoredRecords StoredRecords::read(const QString &storageDir)
{
    StoredRecords records;
    readMonitors(AtomicFile(monitorsPath(storageDir)), records);
    readChecks(AtomicFile(checksPath(storageDir)), AtomicFile(flushedChecksPath(storageDir)),
               records);
    return records;
}

bool StoredRecords::areCurrent(const QString &storageDir) const
{
    return AtomicFile(monitorsPath(storageDir)).holds(monitorsContent) &&
           AtomicFile(checksPath(storageDir)).holds(checksContent);
}

} // namespace ostrel

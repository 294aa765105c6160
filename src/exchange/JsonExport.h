#pragma once

#include "ContentWriter.h"
#include "StoredRecords.h"

namespace ostrel {

/// Whether an export holds the checks, too.
enum class ExportedHistory { leftOut, included };

/// Appends a JSON object to @p content: "format" is "ostrel", "version" 1, "exported" the time @p
/// exported; "monitors" is the array of monitors.json; "checks", unless left out, maps the id of
/// each monitor to the array of its checks, oldest first, with the members of checks.json. UTF-8,
/// one check per line, a newline at the end.
void appendJsonExport(const StoredRecords &records, ExportedHistory history, Timestamp exported,
                      ContentWriter &content);

} // namespace ostrel

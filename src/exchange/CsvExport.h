#pragma once

#include "ContentWriter.h"
#include "StoredRecords.h"

namespace ostrel {

/// Appends the history as a table for a spreadsheet to @p content (RFC 4180): a row of names, then
/// a row for each check, oldest first, monitor by monitor. UTF-8, rows end with CRLF. Times are ISO
/// 8601 in UTC; what is absent is an empty field. A text that a spreadsheet would take for a
/// formula has an apostrophe before it.
void appendCsvExport(const StoredRecords &records, ContentWriter &content);

} // namespace ostrel

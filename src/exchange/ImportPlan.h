#pragma once

#include "ImportContent.h"
#include "MonitorChange.h"

#include <QByteArray>

namespace ostrel {

/// What becomes of a monitor that is there already, with other settings.
enum class ImportPolicy {
    refuse,  ///< The user has to choose one of the others.
    replace, ///< It gets the file's settings, and keeps its history.
    copy,    ///< The file's monitor is added beside it, with an id of its own.
};

enum class ImportAction { add, skip, replace, refuse };

struct ImportStep
{
    ImportAction action = ImportAction::add;
    Monitor monitor;           ///< As the file has it.
    QString reason = {};       ///< Empty unless there is one.
    MonitorChange change = {}; ///< Of add and replace.
};

/// What importing @p offered into @p existing would do, in the file's order. Equal monitors are
/// skipped, and so is a monitor without identity whose address is watched already.
[[nodiscard]] QList<ImportStep> planImport(const QList<Monitor> &existing,
                                           const QList<ImportedMonitor> &offered,
                                           ImportPolicy policy);

/// The changes that carry @p steps out; none if one of them is refused.
[[nodiscard]] QList<MonitorChange> changesOf(const QList<ImportStep> &steps);
[[nodiscard]] qsizetype countOf(const QList<ImportStep> &steps, ImportAction action);

/// A line of text for each of @p steps, in UTF-8.
[[nodiscard]] QByteArray describeSteps(const QList<ImportStep> &steps);

} // namespace ostrel

#include "FuzzTarget.h"
#include "ImportPlan.h"
#include "ImportReader.h"

#include <algorithm>
#include <cstdlib>

using namespace ostrel;

namespace {

/// The monitors after @p steps; ends the program if one of them can't be made.
QList<Monitor> after(const QList<ImportStep> &steps)
{
    const auto planned = planChanges({}, changesOf(steps));
    if (std::holds_alternative<Refusal>(planned))
        std::abort();
    QList<Monitor> monitors;
    for (const PlannedChange &each : std::get<QList<PlannedChange>>(planned)) {
        const auto present = std::ranges::find(monitors, each.monitor.id, &Monitor::id);
        if (present == monitors.end())
            monitors.append(each.monitor);
        else
            *present = each.monitor;
    }
    return monitors;
}

bool isSkipped(const ImportStep &step)
{
    return step.action == ImportAction::skip;
}

/// Whether @p offered says twice, and differently, which monitor it is.
bool contradictsItself(const QList<ImportedMonitor> &offered)
{
    return countOf(planImport({}, offered, ImportPolicy::refuse), ImportAction::refuse) > 0;
}

} // namespace

std::vector<std::string_view> fuzz::dictionary()
{
    return {"\"targets\"",
            "\"labels\"",
            "\"name\"",
            "\"format\":\"ostrel\"",
            "\"version\":1",
            "\"monitors\"",
            "\"checks\"",
            "[::1]:22",
            ":65535",
            "https://",
            "\t",
            "#",
            "\n",
            "null",
            "[",
            "]",
            "{",
            "}",
            "\"id\"",
            "\xef\xbb\xbf",
            "\xff",
            "1e400"};
}

// Whatever was imported is there when the same file is imported again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray text(reinterpret_cast<const char *>(data), qsizetype(size));
    const ImportContent content = readImport(text, Timestamp());
    const auto steps = planImport({}, content.monitors, ImportPolicy::replace);
    if (contradictsItself(content.monitors))
        return 0;
    const auto again = planImport(after(steps), content.monitors, ImportPolicy::refuse);
    if (!std::ranges::all_of(again, isSkipped))
        std::abort();
    return 0;
}

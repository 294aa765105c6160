#include "FuzzTarget.h"
#include "MonitorChange.h"

#include <QJsonDocument>

#include <cstdlib>

std::vector<std::string_view> ostrel::fuzz::dictionary()
{
    return {"[",
            "]",
            "{",
            "}",
            ",",
            ":",
            "null",
            "\"create\"",
            "\"update\"",
            "\"remove\"",
            "\"pause\"",
            "\"resume\"",
            "\"checks\"",
            "\"id\"",
            "\"interval\":1e400",
            "\"createdAt\"",
            "\"port\":80.5",
            "\\ud800",
            "9223372036854775807",
            "\xff"};
}

// Changes that were read once are read back from their own JSON form, and can be planned.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    using namespace ostrel;
    using Changes = QList<MonitorChange>;
    const QByteArray json(reinterpret_cast<const char *>(data), qsizetype(size));
    const auto read = changesFrom(QJsonDocument::fromJson(json).array());
    const auto *changes = std::get_if<Changes>(&read);
    if (!changes)
        return 0;
    const auto again = changesFrom(changesArray(*changes));
    const auto *same = std::get_if<Changes>(&again);
    if (!same || changesArray(*same) != changesArray(*changes))
        std::abort();
    static_cast<void>(planChanges({}, *changes));
    return 0;
}

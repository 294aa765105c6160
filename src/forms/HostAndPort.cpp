#include "HostAndPort.h"

#include "FieldText.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

bool isPort(const QString &text)
{
    const auto number = integerFrom(text);
    return number && *number >= 1 && *number <= 65535;
}

} // namespace

std::optional<HostAndPort> detectHostAndPort(const QString &text)
{
    const QStringList parts = text.split(u':');
    if (parts.size() != 2 || !isPort(parts.last()) || text.startsWith(u"http"_s))
        return std::nullopt;
    return HostAndPort{.host = parts.first(), .portText = parts.last()};
}

} // namespace ostrel

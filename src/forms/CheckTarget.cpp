#include "CheckTarget.h"

#include "Address.h"
#include "FieldText.h"
#include "FormValidation.h"
#include "HostAndPort.h"
#include "SavedAddress.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

bool isWebAddress(const QString &address)
{
    const auto url = parseAddress(address);
    return url && !url->host().isEmpty() &&
           (url->scheme() == u"http"_s || url->scheme() == u"https"_s);
}

/// @p typed as the form completes it. Nullopt if the form rejects it, or would accept it although
/// it can't be fetched.
std::optional<QString> webAddressFrom(const QString &typed)
{
    static const QRegularExpression scheme(u"^\\s*[a-z][a-z0-9+.-]*://"_s,
                                           QRegularExpression::CaseInsensitiveOption);
    const bool hasScheme = scheme.match(typed).hasMatch();
    if (!hasScheme && !isValidWebsite(typed))
        return std::nullopt;
    const QString address =
        hasScheme ? trimmedField(typed) : savedAddress(MonitorType::http, typed);
    return isWebAddress(address) ? std::optional(address) : std::nullopt;
}

std::optional<CheckTarget> portTarget(const QString &host, std::optional<qint64> port)
{
    return host.isEmpty() ? std::nullopt : std::optional(CheckTarget{.url = host, .port = port});
}

} // namespace

std::optional<CheckTarget> checkTargetFrom(const QString &typed, std::optional<qint64> port)
{
    if (port)
        return portTarget(typed, port);
    if (const auto detected = detectHostAndPort(typed))
        return portTarget(trimmedField(detected->host), integerFrom(detected->portText));
    const auto address = webAddressFrom(typed);
    return address ? std::optional(CheckTarget{.url = *address}) : std::nullopt;
}

} // namespace ostrel

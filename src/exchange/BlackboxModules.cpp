#include "BlackboxModules.h"

#include "HttpCheck.h"
#include "HttpStatusRule.h"
#include "PrometheusText.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

/// Whether the exporter follows a response with @p code, so that it only sees the code itself if
/// there were too many redirects, or if no address came with it.
bool isRedirect(int code)
{
    return code == 301 || code == 302 || code == 303 || code == 307 || code == 308;
}

/// All status codes of sites that are up, in lines of twenty.
QByteArray upStatusCodes()
{
    QByteArray codes;
    int count = 0;
    for (int code = 100; code <= 599; ++code) {
        if (!isUpStatus(code) || isRedirect(code))
            continue;
        codes += count == 0 ? "" : count % 20 == 0 ? ",\n        " : ", ";
        codes += QByteArray::number(code);
        ++count;
    }
    return "[\n        " + codes + "\n      ]\n";
}

QByteArray keywordLines(const ProbeModule &module)
{
    if (module.keyword.isEmpty())
        return {};
    const QByteArray key = module.keywordShouldExist ? "fail_if_body_not_matches_regexp"
                                                     : "fail_if_body_matches_regexp";
    return "      " + key + ":\n        - " + yamlText(u"(?i)"_s + literalPattern(module.keyword)) +
           '\n';
}

QByteArray httpLines(const ProbeModule &module)
{
    return "    http:\n"
           "      method: " +
           rawValue(module.method).toLatin1() +
           "\n"
           "      preferred_ip_protocol: ip4\n"
           "      headers:\n"
           "        User-Agent: " +
           yamlText(QString::fromLatin1(HttpCheck::userAgent)) +
           "\n"
           "      valid_status_codes: " +
           upStatusCodes() + keywordLines(module);
}

QByteArray tcpLines()
{
    return "    tcp:\n"
           "      preferred_ip_protocol: ip4\n";
}

QByteArray moduleLines(const QByteArray &name, const ProbeModule &module)
{
    const bool isHttp = module.type == MonitorType::http;
    return "  " + name + ":\n    prober: " + (isHttp ? "http" : "tcp") +
           "\n    timeout: " + durationText(module.timeout) + '\n' +
           (isHttp ? httpLines(module) : tcpLines());
}

/// The name of @p module, apart from which keyword it has.
QByteArray plainName(const ProbeModule &module)
{
    const QByteArray time = '_' + durationText(module.timeout);
    if (module.type == MonitorType::port)
        return "tcp_connect" + time;
    const QByteArray method = "http_" + rawValue(module.method).toLower().toLatin1();
    if (module.keyword.isEmpty())
        return method + time;
    return method + time + (module.keywordShouldExist ? "_keyword_" : "_without_keyword_");
}

} // namespace

QByteArray BlackboxModules::nameOf(const ProbeModule &module)
{
    const auto known = std::ranges::find(m_modules, module, &Named::module);
    if (known != m_modules.end())
        return known->name;
    m_modules.append({module, newNameFor(module)});
    return m_modules.constLast().name;
}

QByteArray BlackboxModules::newNameFor(const ProbeModule &module) const
{
    QByteArray plain = plainName(module);
    if (module.keyword.isEmpty())
        return plain;
    const auto alike = std::ranges::count_if(
        m_modules, [&](const Named &other) { return plainName(other.module) == plain; });
    return plain + QByteArray::number(alike + 1);
}

QByteArray BlackboxModules::yaml() const
{
    QByteArray text = "# The blackbox exporter's modules, written by ostrel export.\n";
    text += m_modules.isEmpty() ? "modules: {}\n" : "modules:\n";
    for (const Named &each : m_modules)
        text += moduleLines(each.name, each.module);
    return text;
}

} // namespace ostrel

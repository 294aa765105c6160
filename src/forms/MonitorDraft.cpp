#include "MonitorDraft.h"

#include "FieldText.h"
#include "FormValidation.h"
#include "SavedAddress.h"

#include <cmath>

namespace ostrel {

namespace {

QString thresholdTextOf(const std::optional<Milliseconds> &threshold)
{
    return threshold ? QString::number(std::trunc(threshold->count()), 'f', 0) : QString();
}

std::optional<Milliseconds> thresholdFrom(const QString &text)
{
    const auto number = decimalFrom(text);
    return number ? std::optional(Milliseconds(*number)) : std::nullopt;
}

QString portTextOf(const std::optional<qint64> &port)
{
    return port ? QString::number(*port) : QString();
}

QString nameOf(const MonitorDraft &draft)
{
    const QString address = savedAddress(draft.monitorType, draft.url);
    return draft.monitorType == MonitorType::port ? derivedPortName(address, draft.portText)
                                                  : derivedName(address);
}

} // namespace

MonitorDraft draftOf(const Monitor &monitor)
{
    return {.url = monitor.url,
            .portText = portTextOf(monitor.port),
            .interval = monitor.interval,
            .method = monitor.method,
            .timeout = monitor.timeout,
            .monitorType = monitor.type,
            .keyword = monitor.keyword.value_or(QString()),
            .keywordShouldExist = monitor.keywordShouldExist,
            .thresholdText = thresholdTextOf(monitor.responseTimeThreshold)};
}

bool isValid(const MonitorDraft &draft)
{
    return draft.monitorType == MonitorType::port ? isValidHostAndPort(draft.url, draft.portText)
                                                  : isValidWebsite(draft.url);
}

Monitor withDraft(Monitor monitor, const MonitorDraft &draft)
{
    monitor.url = savedAddress(draft.monitorType, draft.url);
    monitor.interval = draft.interval;
    monitor.method = draft.method;
    monitor.timeout = draft.timeout;
    monitor.type = draft.monitorType;
    monitor.keyword = draft.keyword.isEmpty() ? std::nullopt : std::optional(draft.keyword);
    monitor.keywordShouldExist = draft.keywordShouldExist;
    monitor.responseTimeThreshold = thresholdFrom(draft.thresholdText);
    monitor.port = integerFrom(draft.portText);
    return monitor;
}

Monitor newMonitor(const MonitorDraft &draft, Timestamp createdAt)
{
    return withDraft({.id = QUuid::createUuid(), .name = nameOf(draft), .createdAt = createdAt},
                     draft);
}

} // namespace ostrel

#include "MonitorForm.h"

#include "ClipboardSuggestion.h"
#include "HostAndPort.h"
#include "MonitorStore.h"
#include "OneLine.h"
#include "ProductConstants.h"
#include "TimeoutText.h"

#include <QLocale>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

/// @p draft after @p text was typed into its address field.
MonitorDraft withTypedUrl(MonitorDraft draft, const QString &text)
{
    const auto detected =
        draft.monitorType == MonitorType::http ? detectHostAndPort(text) : std::nullopt;
    draft.url = detected ? detected->host : text;
    if (detected) {
        draft.portText = detected->portText;
        draft.monitorType = MonitorType::port;
    }
    return draft;
}

/// Whether a web address goes on after the port at the beginning of @p portText.
bool continuesAddress(const QString &portText)
{
    static const QRegularExpression path(u"^[0-9]+[/?#]"_s);
    return path.match(portText).hasMatch();
}

MonitorDraft withWebAddress(MonitorDraft draft, const QString &url)
{
    draft.monitorType = MonitorType::http;
    draft.url = url;
    draft.portText.clear();
    return draft;
}

} // namespace

MonitorForm::MonitorForm(MonitorStore &store, WallClock now, QObject *parent)
    : QObject(parent)
    , m_store(store)
    , m_now(std::move(now))
{
}

template<typename T>
void MonitorForm::set(T &field, const T &value)
{
    if (field == value)
        return;
    field = value;
    Q_EMIT changed();
}

void MonitorForm::setUrl(const QString &url)
{
    // A field that is set to the text it already has wasn't typed into.
    if (url == m_draft.url)
        return;
    const bool wasWebsite = isWebsite();
    set(m_draft, withTypedUrl(m_draft, url));
    m_isPortDetected |= wasWebsite && !isWebsite();
}

void MonitorForm::setPortText(const QString &portText)
{
    if (m_isPortDetected && continuesAddress(portText)) {
        m_isPortDetected = false;
        set(m_draft, withWebAddress(m_draft, m_draft.url + u':' + portText));
        return;
    }
    set(m_draft.portText, portText);
}

void MonitorForm::setInterval(double seconds)
{
    set(m_draft.interval, Seconds(seconds));
}

void MonitorForm::setMethod(const QString &method)
{
    set(m_draft.method, httpMethodFrom(method).value_or(m_draft.method));
}

void MonitorForm::setTimeout(double seconds)
{
    if (std::isfinite(seconds) && seconds > 0)
        set(m_draft.timeout, Seconds(seconds));
}

void MonitorForm::setMonitorType(const QString &type)
{
    m_isPortDetected = false;
    set(m_draft.monitorType, monitorTypeFrom(type).value_or(m_draft.monitorType));
}

void MonitorForm::setKeyword(const QString &keyword)
{
    set(m_draft.keyword, keyword);
}

void MonitorForm::setKeywordShouldExist(bool shouldExist)
{
    set(m_draft.keywordShouldExist, shouldExist);
}

void MonitorForm::setThresholdText(const QString &thresholdText)
{
    set(m_draft.thresholdText, thresholdText);
}

void MonitorForm::setShowAdvanced(bool showAdvanced)
{
    set(m_showAdvanced, showAdvanced);
}

QString MonitorForm::timeoutText() const
{
    return ostrel::timeoutText(m_draft.timeout, QLocale());
}

void MonitorForm::typeTimeout(const QString &text)
{
    m_typedTimeout = text;
}

void MonitorForm::commitTimeout()
{
    const auto typed = std::exchange(m_typedTimeout, std::nullopt);
    if (typed)
        set(m_draft.timeout, timeoutFrom(*typed, QLocale()).value_or(m_draft.timeout));
}

QString MonitorForm::title() const
{
    return isEditing() ? tr("Edit Monitor") : tr("New Monitor");
}

QString MonitorForm::confirmText() const
{
    return isEditing() ? tr("Save") : tr("Start Monitoring");
}

bool MonitorForm::showsClipboardSuggestion() const
{
    return m_clipboardURL && m_draft.url.isEmpty() && !isEditing() && isWebsite();
}

QString MonitorForm::suggestionText() const
{
    return tr("Paste: %1").arg(oneLine(clipboardURL()));
}

QList<double> MonitorForm::intervals() const
{
    QList<double> intervals;
    std::ranges::transform(allCheckIntervals, std::back_inserter(intervals),
                           [](CheckInterval interval) { return rawValue(interval).count(); });
    return intervals;
}

QStringList MonitorForm::methods() const
{
    QStringList methods;
    std::ranges::transform(allHTTPMethods, std::back_inserter(methods),
                           [](HTTPMethod method) { return rawValue(method); });
    return methods;
}

QString MonitorForm::urlPlaceholder() const
{
    return exampleWebsite();
}

QString MonitorForm::hostPlaceholder() const
{
    return exampleDatabaseHost();
}

QString MonitorForm::intervalText(double seconds) const
{
    const auto interval = checkIntervalFrom(Seconds(seconds));
    if (!interval)
        return {};
    switch (*interval) {
    case CheckInterval::thirtySeconds:
        return tr("30s");
    case CheckInterval::oneMinute:
        return tr("1m");
    case CheckInterval::fiveMinutes:
        return tr("5m");
    case CheckInterval::fifteenMinutes:
        return tr("15m");
    case CheckInterval::thirtyMinutes:
        return tr("30m");
    case CheckInterval::oneHour:
        return tr("1h");
    }
    Q_UNREACHABLE();
}

void MonitorForm::beginCreate(const QString &clipboardText)
{
    begin(std::nullopt, clipboardText);
}

void MonitorForm::beginEdit(const Monitor &monitor, const QString &clipboardText)
{
    begin(monitor, clipboardText);
}

void MonitorForm::begin(const std::optional<Monitor> &monitor, const QString &clipboardText)
{
    m_editingMonitor = monitor;
    m_draft = monitor ? draftOf(*monitor) : MonitorDraft();
    m_isPortDetected = false;
    m_typedTimeout.reset();
    m_showAdvanced = false;
    m_clipboardURL = clipboardSuggestion(clipboardText);
    Q_EMIT changed();
}

void MonitorForm::pasteSuggestion()
{
    if (showsClipboardSuggestion())
        setUrl(*m_clipboardURL);
}

bool MonitorForm::save()
{
    if (!isValid())
        return false;
    commitTimeout();
    if (isEditing())
        Q_EMIT edited(editedMonitor());
    else
        create();
    return true;
}

Monitor MonitorForm::editedMonitor() const
{
    // Fields that the form doesn't show may have changed while it was open: a title arrived, a menu
    // paused the monitor. Only a deleted monitor is handed over as it was shown, and is then
    // ignored.
    const auto stored = m_store.monitor(m_editingMonitor->id);
    return withDraft(stored.value_or(*m_editingMonitor), m_draft);
}

void MonitorForm::create()
{
    const Monitor monitor = newMonitor(m_draft, m_now());
    Q_EMIT created(monitor);
    if (monitor.type == MonitorType::http)
        Q_EMIT websiteCreated(monitor.id, monitor.url);
}

void MonitorForm::applyTitle(const QUuid &monitorId, const QString &title)
{
    auto monitor = m_store.monitor(monitorId);
    if (!monitor)
        return;
    monitor->name = title;
    m_store.updateMonitor(*monitor);
}

} // namespace ostrel

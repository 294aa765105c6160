#include "AddressList.h"

#include "CheckTarget.h"
#include "FieldText.h"
#include "MonitorDraft.h"
#include "OneLine.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

/// The target of "[::1]:22".
std::optional<CheckTarget> bracketedTarget(const QString &address)
{
    static const QRegularExpression form(u"\\A\\[([0-9A-Fa-f:.]+)\\]:([0-9]{1,5})\\z"_s);
    const auto match = form.match(address);
    const int port = match.captured(2).toInt();
    if (!match.hasMatch() || port < 1 || port > 65535)
        return std::nullopt;
    return CheckTarget{.url = match.captured(1), .port = port};
}

MonitorDraft draftOf(const CheckTarget &target)
{
    MonitorDraft draft{.url = target.url};
    if (target.port) {
        draft.portText = QString::number(*target.port);
        draft.monitorType = MonitorType::port;
    }
    return draft;
}

void readLine(const QString &line, qsizetype number, Timestamp now, ImportContent &content)
{
    const QString address = trimmedField(line.section(u'\t', 0, 0));
    const QString name = trimmedField(line.section(u'\t', 1));
    auto monitor = monitorOfAddress(address, now);
    if (!monitor) {
        content.problems += u"line "_s + QString::number(number) + u": '"_s + oneLine(address) +
                            u"' is no web address and no HOST:PORT"_s;
        return;
    }
    if (!name.isEmpty())
        monitor->name = name;
    content.monitors.append({.monitor = *monitor});
}

} // namespace

std::optional<Monitor> monitorOfAddress(const QString &address, Timestamp now)
{
    const auto bracketed = bracketedTarget(address);
    const auto target = bracketed ? bracketed : checkTargetFrom(address, std::nullopt);
    return target ? std::optional(newMonitor(draftOf(*target), now)) : std::nullopt;
}

ImportContent readAddresses(const QString &text, Timestamp now)
{
    ImportContent content;
    qsizetype number = 0;
    for (const QString &line : text.split(u'\n')) {
        ++number;
        const QString trimmed = trimmedField(line);
        if (!trimmed.isEmpty() && !trimmed.startsWith(u'#'))
            readLine(line, number, now, content);
    }
    return content;
}

} // namespace ostrel

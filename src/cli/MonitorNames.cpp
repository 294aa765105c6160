#include "MonitorNames.h"

#include "CommandArguments.h"
#include "OneLine.h"
#include "RecordObjects.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

constexpr qsizetype shortIdLength = 8;
constexpr qsizetype fewestDigits = 4;
/// How many of several monitors an error message lists.
constexpr qsizetype mostListed = 5;

template<typename Condition>
QList<Monitor> filtered(const QList<Monitor> &monitors, Condition condition)
{
    QList<Monitor> found;
    std::ranges::copy_if(monitors, std::back_inserter(found), condition);
    return found;
}

bool isBeginningOfId(const QString &name, const Monitor &monitor)
{
    return name.size() >= fewestDigits && idText(monitor.id).startsWith(name, Qt::CaseInsensitive);
}

bool isName(const QString &name, const Monitor &monitor)
{
    return name == monitor.displayName() || name == oneLine(monitor.displayName());
}

QString caseless(const QString &text)
{
    return text.normalized(QString::NormalizationForm_C).toCaseFolded();
}

QList<Monitor> candidates(const QString &name, const QList<Monitor> &monitors)
{
    const auto withId = filtered(monitors, [&](const Monitor &monitor) {
        return idText(monitor.id).compare(name, Qt::CaseInsensitive) == 0;
    });
    if (!withId.isEmpty())
        return withId.first(1);
    auto exact = filtered(monitors, [&](const Monitor &monitor) {
        return isBeginningOfId(name, monitor) || isName(name, monitor);
    });
    if (!exact.isEmpty())
        return exact;
    return filtered(monitors, [&](const Monitor &monitor) {
        return caseless(monitor.displayName()) == caseless(name);
    });
}

QString ambiguity(const QString &name, const QList<Monitor> &found)
{
    QStringList ids;
    for (const Monitor &monitor : found.first(std::min(found.size(), mostListed)))
        ids += shortId(monitor);
    if (found.size() > mostListed)
        ids += u"\u2026"_s;
    return u"%1 monitors are called "_s.arg(found.size()) + quoted(name) + u"; their ids are "_s +
           ids.join(u", "_s) + u'.';
}

} // namespace

QString shortId(const Monitor &monitor)
{
    return idText(monitor.id).first(shortIdLength);
}

QString nameAndId(const Monitor &monitor)
{
    return oneLine(monitor.displayName()) + u" ("_s + shortId(monitor) + u')';
}

QString targetText(const Monitor &monitor)
{
    const QString address = oneLine(monitor.url);
    const bool hasPort = monitor.type == MonitorType::port && monitor.port;
    return hasPort ? address + u", port "_s + QString::number(*monitor.port) : address;
}

std::variant<QList<Monitor>, QString> monitorsNamed(const QStringList &names,
                                                    const QList<Monitor> &monitors)
{
    QList<Monitor> meant;
    for (const QString &name : names) {
        const auto found = candidates(name, monitors);
        if (found.isEmpty())
            return u"No monitor is called "_s + quoted(name) + u'.';
        if (found.size() > 1)
            return ambiguity(name, found);
        if (!meant.contains(found.constFirst()))
            meant += found.constFirst();
    }
    return meant;
}

} // namespace ostrel

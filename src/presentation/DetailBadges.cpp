#include "DetailBadges.h"

#include "CalendarDays.h"
#include "DisplayFormats.h"
#include "ToneRules.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

struct DetailBadges
{
    Q_DECLARE_TR_FUNCTIONS(DetailBadges)
};

std::optional<Badge> certificateBadge(const std::optional<Check> &latestCheck, Timestamp now,
                                      const QTimeZone &timeZone)
{
    if (!latestCheck || !latestCheck->sslExpiresAt)
        return std::nullopt;
    const qint64 days = wholeDaysBetween(now, *latestCheck->sslExpiresAt, timeZone);
    return Badge{
        .symbol = u"lock.shield.fill"_s,
        .text = DetailBadges::tr("SSL: %1d left").arg(days),
        .tone = certificateTone(days),
    };
}

/// A keyword that hasn't been searched for yet counts as not found.
bool isKeywordAsWished(const Monitor &monitor, const std::optional<Check> &latestCheck)
{
    const bool found = latestCheck && latestCheck->keywordFound.value_or(false);
    return found == monitor.keywordShouldExist;
}

std::optional<Badge> keywordBadge(const Monitor &monitor, const std::optional<Check> &latestCheck)
{
    if (!monitor.keyword || monitor.keyword->isEmpty())
        return std::nullopt;
    if (isKeywordAsWished(monitor, latestCheck))
        return Badge{
            .symbol = u"text.magnifyingglass"_s,
            .text = DetailBadges::tr("Keyword OK"),
            .tone = Tone::Up,
        };
    return Badge{
        .symbol = u"exclamationmark.magnifyingglass"_s,
        .text = DetailBadges::tr("Keyword issue"),
        .tone = Tone::Down,
    };
}

std::optional<Badge> slowBadge(const Monitor &monitor, const std::optional<Check> &latestCheck)
{
    const auto &threshold = monitor.responseTimeThreshold;
    if (!threshold || !latestCheck || Milliseconds(latestCheck->responseTime) <= *threshold)
        return std::nullopt;
    const QString time = compactResponseTimeText(Milliseconds(latestCheck->responseTime));
    return Badge{
        .symbol = u"speedometer"_s,
        .text = DetailBadges::tr("Slow (%1)").arg(time),
        .tone = Tone::Warning,
    };
}

std::optional<Badge> portBadge(const Monitor &monitor)
{
    if (monitor.type != MonitorType::port)
        return std::nullopt;
    return Badge{
        .symbol = u"network"_s,
        .text = monitor.port ? DetailBadges::tr("Port %1").arg(*monitor.port)
                             : DetailBadges::tr("Port"),
        .tone = Tone::Accent,
    };
}

} // namespace

QList<Badge> detailBadges(const Monitor &monitor, const std::optional<Check> &latestCheck,
                          Timestamp now, const QTimeZone &timeZone)
{
    QList<Badge> badges;
    for (const auto &badge :
         {certificateBadge(latestCheck, now, timeZone), keywordBadge(monitor, latestCheck),
          slowBadge(monitor, latestCheck), portBadge(monitor)}) {
        if (badge)
            badges.append(*badge);
    }
    return badges;
}

} // namespace ostrel

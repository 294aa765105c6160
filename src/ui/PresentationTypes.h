#pragma once

#include "ClockStyle.h"
#include "DetailBadges.h"
#include "MonitorDetail.h"
#include "MonitorListModel.h"
#include "RecentChecksModel.h"
#include "ResponseSeries.h"
#include "StatusBanner.h"
#include "Tone.h"
#include "UptimeTimeline.h"

#include <QtQml/qqmlregistration.h>

// The QML names of the presentation's values and models, which don't depend on QML.

namespace ostrel {

/// Available to views as `Tone.Up` and so on.
namespace ToneForeign {
Q_NAMESPACE
QML_FOREIGN_NAMESPACE(ostrel::Tones)
QML_NAMED_ELEMENT(Tone)
} // namespace ToneForeign

struct MonitorListModelForeign
{
    Q_GADGET
    QML_FOREIGN(ostrel::MonitorListModel)
    QML_NAMED_ELEMENT(MonitorListModel)
    QML_UNCREATABLE("Made by the application")
};

struct RecentChecksModelForeign
{
    Q_GADGET
    QML_FOREIGN(ostrel::RecentChecksModel)
    QML_NAMED_ELEMENT(RecentChecksModel)
    QML_UNCREATABLE("Made by the application")
};

struct StatusBannerForeign
{
    Q_GADGET
    QML_FOREIGN(ostrel::StatusBanner)
    QML_VALUE_TYPE(statusBanner)
};

struct BadgeForeign
{
    Q_GADGET
    QML_FOREIGN(ostrel::Badge)
    QML_VALUE_TYPE(badge)
};

struct StatisticForeign
{
    Q_GADGET
    QML_FOREIGN(ostrel::Statistic)
    QML_VALUE_TYPE(statistic)
};

struct MonitorDetailForeign
{
    Q_GADGET
    QML_FOREIGN(ostrel::MonitorDetail)
    QML_VALUE_TYPE(monitorDetail)
};

struct ClockStyleForeign
{
    Q_GADGET
    QML_FOREIGN(ostrel::ClockStyle)
    QML_VALUE_TYPE(clockStyle)
};

struct ResponseSeriesForeign
{
    Q_GADGET
    QML_FOREIGN(ostrel::ResponseSeries)
    QML_VALUE_TYPE(responseSeries)
};

struct UptimeTimelineForeign
{
    Q_GADGET
    QML_FOREIGN(ostrel::UptimeTimeline)
    QML_VALUE_TYPE(uptimeTimeline)
};

} // namespace ostrel

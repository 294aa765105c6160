#pragma once

#include "Tone.h"

#include <QMetaType>
#include <QString>

namespace ostrel {

class MonitorStore;

/// The dashboard's summary of all monitors.
struct StatusBanner
{
    Q_GADGET
    Q_PROPERTY(QString symbol MEMBER symbol)
    Q_PROPERTY(QString headline MEMBER headline)
    Q_PROPERTY(QString countLine MEMBER countLine)

public:
    QString symbol = {};
    QString headline = {};  ///< For the enabled monitors.
    QString countLine = {}; ///< "3 of 4 monitors up"; the total includes paused ones.
    Tone tone = Tone::Muted;

    bool operator==(const StatusBanner &) const = default;
};

[[nodiscard]] StatusBanner statusBanner(const MonitorStore &store);

} // namespace ostrel

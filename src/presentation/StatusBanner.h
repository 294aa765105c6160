#pragma once

#include "Tone.h"

#include <QMetaType>
#include <QString>

namespace ostrel {

class MonitorStore;

/// What the dashboard says of all monitors together.
struct StatusBanner
{
    Q_GADGET
    Q_PROPERTY(QString symbol MEMBER symbol)
    Q_PROPERTY(QString headline MEMBER headline)
    Q_PROPERTY(QString countLine MEMBER countLine)

public:
    QString symbol = {};
    QString headline = {};  ///< Of the enabled monitors.
    QString countLine = {}; ///< "3 of 4 monitors up", paused ones in the total.
    Tone tone = Tone::Muted;

    bool operator==(const StatusBanner &) const = default;
};

[[nodiscard]] StatusBanner statusBanner(const MonitorStore &store);

} // namespace ostrel

#pragma once

#include "Check.h"
#include "Monitor.h"
#include "Tone.h"

#include <QMetaType>
#include <QString>

#include <optional>

namespace ostrel {

class MonitorStore;

/// "Up", "Down", "Paused", "Pending".
[[nodiscard]] QString statusWord(MonitorStatus status);
/// The same in the user's language's capitals.
[[nodiscard]] QString pillWord(MonitorStatus status);
/// The name of the symbol on the banner and the pill.
[[nodiscard]] QString statusSymbol(MonitorStatus status);

/// The dashboard's headline over all enabled monitors.
[[nodiscard]] QString headline(MonitorStatus overallStatus);
/// "3 of 4 monitors up".
[[nodiscard]] QString countLine(qsizetype up, qsizetype total);

/// What the dashboard says of all monitors together.
struct StatusBanner
{
    Q_GADGET
    Q_PROPERTY(QString symbol MEMBER symbol)
    Q_PROPERTY(QString headline MEMBER headline)
    Q_PROPERTY(QString countLine MEMBER countLine)
    Q_PROPERTY(ostrel::Tones::Tone tone MEMBER tone)

public:
    QString symbol = {};
    QString headline = {};
    QString countLine = {};
    Tone tone = Tone::Muted;

    bool operator==(const StatusBanner &) const = default;
};
[[nodiscard]] StatusBanner statusBanner(const MonitorStore &store);

/// Whether the latest check of any enabled monitor failed.
[[nodiscard]] bool isAnythingDown(const MonitorStore &store);

/// One monitor in the status bar's menu.
struct StatusMenuEntry
{
    QString symbol = {};
    QString name = {};         ///< On one line.
    QString trailingText = {}; ///< May be empty.

    bool operator==(const StatusMenuEntry &) const = default;
};
[[nodiscard]] StatusMenuEntry statusMenuEntry(const Monitor &monitor, MonitorStatus status,
                                              const std::optional<Check> &latestCheck);

} // namespace ostrel

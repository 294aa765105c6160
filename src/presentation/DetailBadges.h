#pragma once

#include "Check.h"
#include "Monitor.h"
#include "Tone.h"

#include <QList>
#include <QMetaType>
#include <QString>
#include <QTimeZone>

#include <optional>

namespace ostrel {

/// A symbol and a few words about a special condition of a monitor.
struct Badge
{
    Q_GADGET
    Q_PROPERTY(QString symbol MEMBER symbol)
    Q_PROPERTY(QString text MEMBER text)
    Q_PROPERTY(ostrel::Tones::Tone tone MEMBER tone)

public:
    QString symbol = {};
    QString text = {};
    Tone tone = Tone::Muted;

    bool operator==(const Badge &) const = default;
};

/// The badges of a monitor at @p now, in this order: certificate, keyword, slow, port. Days are
/// counted on the calendar of @p timeZone.
[[nodiscard]] QList<Badge> detailBadges(const Monitor &monitor,
                                        const std::optional<Check> &latestCheck, Timestamp now,
                                        const QTimeZone &timeZone = QTimeZone::systemTimeZone());

} // namespace ostrel

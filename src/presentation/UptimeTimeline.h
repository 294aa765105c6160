#pragma once

#include "Check.h"
#include "Tone.h"

#include <QMetaType>
#include <QString>

#include <span>
#include <vector>

namespace ostrel {

/// A monitor's history as a strip of bars, with the texts around it.
struct UptimeTimeline
{
    Q_GADGET
    Q_PROPERTY(bool isEmpty READ isEmpty)
    Q_PROPERTY(QString percentageText MEMBER percentageText)
    Q_PROPERTY(ostrel::Tones::Tone percentageTone MEMBER percentageTone)
    Q_PROPERTY(QString ageText MEMBER ageText)

public:
    /// Upper bound for the bars of a strip.
    static constexpr std::size_t maxBars = 90;

    std::vector<bool> bars = {}; ///< Whether each sampled check was up, oldest first.
    QString percentageText = {}; ///< Of all checks, not only the sampled ones; empty if none.
    Tone percentageTone = Tone::Muted;
    QString ageText = {};    ///< The age of the oldest check.
    QString spokenText = {}; ///< The whole as one sentence.

    [[nodiscard]] bool isEmpty() const { return bars.empty(); }
    bool operator==(const UptimeTimeline &) const = default;
};

/// @p checks may be in any order.
[[nodiscard]] UptimeTimeline uptimeTimeline(std::span<const Check> checks, Timestamp now);

/// The indices of the checks that get a bar, out of @p count, sorted oldest first: each one up to
/// the maximum number of bars, and beyond that every n-th, counted from the oldest.
[[nodiscard]] std::vector<std::size_t> sampledIndices(std::size_t count);

/// "< 1 hour ago", "5h ago", "3d ago".
[[nodiscard]] QString ageText(Timestamp oldest, Timestamp now);

} // namespace ostrel

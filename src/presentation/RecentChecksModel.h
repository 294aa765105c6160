#pragma once

#include "Check.h"
#include "ClockStyle.h"
#include "Tone.h"

#include <QAbstractListModel>

#include <span>
#include <vector>

namespace ostrel {

class MonitorStore;

/// The newest checks of one monitor, the newest first.
///
/// A new check is announced as a row at the top or, if the list is full, as its last row, which
/// moves to the top and changes, so that views keep the delegates they created. Never as a reset.
class RecentChecksModel : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Role {
        isUpRole = Qt::UserRole,
        toneRole,       ///< Tone of the dot.
        timeTextRole,   ///< The time of day.
        codeTextRole,   ///< HTTP; empty if no response arrived.
        resultTextRole, ///< The response time, or what went wrong on one line.
        spokenTextRole, ///< The row as one sentence.
    };
    Q_ENUM(Role)

    static constexpr std::size_t maxRows = 20;

    /// @p store must outlive the model. Times of day are those of @p clock.
    explicit RecentChecksModel(const MonitorStore &store, ClockStyle clock = {},
                               QObject *parent = nullptr);

    /// A null or unknown id gives an empty list.
    void setMonitorId(const QUuid &monitorId);
    void setClock(const ClockStyle &clock);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    void takeChecks();
    /// Moves as many rows as there are @p fresh checks from the end to the top, and sets them to
    /// these.
    void renewLast(std::span<const Check> fresh);
    void dropFrom(std::size_t first);
    void insertAtTop(std::vector<Check>::const_iterator begin,
                     std::vector<Check>::const_iterator end);
    [[nodiscard]] QString timeText(const Check &check) const;
    [[nodiscard]] QString spokenText(const Check &check) const;

    const MonitorStore &m_store;
    ClockStyle m_clock;
    QUuid m_monitorId;
    std::vector<Check> m_checks; ///< Newest first.
};

} // namespace ostrel

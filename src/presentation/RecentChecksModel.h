#pragma once

#include "Check.h"
#include "Tone.h"

#include <QAbstractListModel>
#include <QLocale>
#include <QTimeZone>

#include <span>
#include <vector>

namespace ostrel {

class MonitorStore;

/// The newest checks of one monitor, the newest first.
///
/// A new check is announced as a row at the top or, where the list is full, as its last row, which
/// moves to the top and changes: views keep what they made for it. Never as a reset.
class RecentChecksModel : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Role {
        isUpRole = Qt::UserRole,
        toneRole,       ///< Tone of the dot.
        timeTextRole,   ///< The time of day.
        codeTextRole,   ///< HTTP; empty where no response arrived.
        resultTextRole, ///< The response time, or what went wrong on one line.
        spokenTextRole, ///< The row as one sentence.
    };
    Q_ENUM(Role)

    static constexpr std::size_t maxRows = 20;

    /// @p store outlives the model. Times of day are those of @p timeZone and @p locale.
    explicit RecentChecksModel(const MonitorStore &store,
                               const QTimeZone &timeZone = QTimeZone::systemTimeZone(),
                               const QLocale &locale = QLocale(), QObject *parent = nullptr);

    /// A null or unknown id gives an empty list.
    void setMonitorId(const QUuid &monitorId);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    void takeChecks();
    /// Moves as many rows as there are @p fresh checks from the end to the top, for these.
    void renewLast(std::span<const Check> fresh);
    void dropFrom(std::size_t first);
    void insertAtTop(std::vector<Check>::const_iterator begin,
                     std::vector<Check>::const_iterator end);
    [[nodiscard]] QString timeText(const Check &check) const;
    [[nodiscard]] QString spokenText(const Check &check) const;

    const MonitorStore &m_store;
    QTimeZone m_timeZone;
    QLocale m_locale;
    QUuid m_monitorId;
    std::vector<Check> m_checks; ///< Newest first.
};

} // namespace ostrel

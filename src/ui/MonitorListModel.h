#pragma once

#include "Monitor.h"

#include <QAbstractListModel>
#include <QList>
#include <QtQml/qqmlregistration.h>

namespace ostrel {

class MonitorStore;

/// Every monitor with its status and last result, in the store's order.
class MonitorListModel : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the application")

public:
    enum Role {
        nameRole = Qt::UserRole,
        addressRole,
        statusTextRole,
        resultTextRole,
        spokenTextRole, ///< The row as one sentence.
        isUpRole,
        isDownRole,
    };
    Q_ENUM(Role)

    /// @p store outlives the model.
    explicit MonitorListModel(const MonitorStore &store, QObject *parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    void announceCheck(const QUuid &monitorId);
    [[nodiscard]] QString resultText(const Monitor &monitor) const;

    const MonitorStore &m_store;
    /// The store's monitors as of its last announcement, so that rows and announcements agree.
    QList<Monitor> m_monitors;
};

} // namespace ostrel

#pragma once

#include "StatusBanner.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace ostrel {

class MonitorStore;

/// The dashboard's summary of all monitors, kept up to date. Main thread.
class DashboardModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the application")
    Q_PROPERTY(ostrel::StatusBanner banner READ banner NOTIFY changed FINAL)
    Q_PROPERTY(ostrel::Tones::Tone tone READ tone NOTIFY changed FINAL)
    /// Whether there are no monitors.
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY changed FINAL)

public:
    /// @p store must outlive this object.
    explicit DashboardModel(const MonitorStore &store, QObject *parent = nullptr);

    [[nodiscard]] const StatusBanner &banner() const { return m_banner; }
    /// The banner's tone. A compiled view can't read an enumeration of a value inside an object.
    [[nodiscard]] Tone tone() const { return m_banner.tone; }
    [[nodiscard]] bool isEmpty() const { return m_isEmpty; }

Q_SIGNALS:
    void changed();

private:
    void update();

    const MonitorStore &m_store;
    StatusBanner m_banner;
    bool m_isEmpty;
};

} // namespace ostrel

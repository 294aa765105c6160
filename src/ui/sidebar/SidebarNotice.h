#pragma once

#include "Tone.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace ostrel {

class MonitorStore;
class NetworkPresence;

/// The sidebar's notice about Ostrel itself: what currently keeps it from working. Main thread.
class SidebarNotice : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the application")
    Q_PROPERTY(bool isNeeded READ isNeeded NOTIFY changed FINAL)
    // The current message, or the last one while the notice disappears.
    Q_PROPERTY(QString text READ text NOTIFY changed FINAL)
    Q_PROPERTY(QString symbol READ symbol NOTIFY changed FINAL)
    Q_PROPERTY(ostrel::Tones::Tone tone READ tone NOTIFY changed FINAL)

public:
    /// @p store and @p presence must outlive this object.
    SidebarNotice(const MonitorStore &store, const NetworkPresence &presence,
                  QObject *parent = nullptr);

    [[nodiscard]] bool isNeeded() const { return m_isNeeded; }
    [[nodiscard]] QString text() const { return m_message.text; }
    [[nodiscard]] QString symbol() const { return m_message.symbol; }
    [[nodiscard]] Tone tone() const { return m_message.tone; }

Q_SIGNALS:
    void changed();

private:
    struct Message
    {
        QString text;
        QString symbol;
        Tone tone = Tone::Secondary;
    };

    void update();
    [[nodiscard]] std::optional<Message> currentMessage() const;

    const MonitorStore &m_store;
    const NetworkPresence &m_presence;
    Message m_message;
    bool m_isNeeded = false;
};

} // namespace ostrel

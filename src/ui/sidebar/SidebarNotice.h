#pragma once

#include "Tone.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace ostrel {

class MonitorStore;
class NetworkPresence;

/// The sidebar's notice about Ostrel itself: what currently keeps it from working, or from writing
/// to its support. Main thread.
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
    // Whether the message holds an address to be copied.
    Q_PROPERTY(bool hasAddress READ hasAddress NOTIFY changed FINAL)

public:
    /// @p store and @p presence must outlive this object.
    SidebarNotice(const MonitorStore &store, const NetworkPresence &presence,
                  QObject *parent = nullptr);

    [[nodiscard]] bool isNeeded() const { return m_isNeeded; }
    [[nodiscard]] QString text() const { return m_message.text; }
    [[nodiscard]] QString symbol() const { return m_message.symbol; }
    [[nodiscard]] Tone tone() const { return m_message.tone; }
    [[nodiscard]] bool hasAddress() const { return m_message.hasAddress; }

    /// Shows the support's address until it is copied, unless a mail program has taken the message.
    void takeHelpAnswer(bool isTaken);
    /// Puts the support's address on the clipboard, which ends its notice.
    Q_INVOKABLE void copyAddress();

Q_SIGNALS:
    void changed();

private:
    struct Message
    {
        QString text;
        QString symbol;
        Tone tone = Tone::Secondary;
        bool hasAddress = false;
    };

    void update();
    [[nodiscard]] std::optional<Message> currentMessage() const;

    const MonitorStore &m_store;
    const NetworkPresence &m_presence;
    Message m_message;
    bool m_isNeeded = false;
    bool m_lacksMail = false;
};

} // namespace ostrel

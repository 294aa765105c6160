#pragma once

#include "FileDescriptor.h"

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

namespace ostrel {

/// A second start's end of the conversation, as the first program sees it. Deletes itself when the
/// conversation is over, which it is soon, whatever the other does.
class ActivationPeer : public QObject
{
    Q_OBJECT

public:
    /// @p socket is connected and doesn't block.
    ActivationPeer(FileDescriptor socket, QObject *parent);

    /// Whether the other end of @p socket belongs to this user.
    [[nodiscard]] static bool isOurs(const FileDescriptor &socket);

    /// Takes what the other has said so far.
    void read();
    /// Hangs up.
    void end();

Q_SIGNALS:
    /// At most once, after the other has its answer.
    void activationRequested(const QByteArray &activationToken);

private:
    void answer(const QByteArray &line);

    FileDescriptor m_socket;
    QByteArray m_received;
    QSocketNotifier m_notifier;
    QTimer m_timeout;
};

} // namespace ostrel

#pragma once

#include "FileDescriptor.h"
#include "StartRequest.h"

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

namespace ostrel {

/// The first program's side of a connection from a second start. Deletes itself when the
/// conversation is over, which is soon, whatever the peer does.
class ActivationPeer : public QObject
{
    Q_OBJECT

public:
    /// @p socket is connected and non-blocking.
    ActivationPeer(FileDescriptor socket, QObject *parent);

    /// The beginning of the line by which a peer makes @p request; its activation token follows.
    [[nodiscard]] static QByteArray command(StartRequest request);
    /// Whether the peer of @p socket belongs to this user.
    [[nodiscard]] static bool isOurs(const FileDescriptor &socket);

    /// Reads what the peer has sent so far.
    void read();
    /// Closes the connection.
    void end();

Q_SIGNALS:
    /// Emitted at most once, after the peer has its answer.
    void requested(ostrel::StartRequest request, const QByteArray &activationToken);

private:
    void answer(const QByteArray &line);

    FileDescriptor m_socket;
    QByteArray m_received;
    QSocketNotifier m_notifier;
    QTimer m_timeout;
};

} // namespace ostrel

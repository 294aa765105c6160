#pragma once

#include "FileDescriptor.h"
#include "StartRequest.h"

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

namespace ostrel {

/// The first program's side of a connection from a second start or a command. Deletes itself when
/// the conversation is over, which is soon, whatever the peer does, but not before it has the
/// answer to its request.
class ActivationPeer : public QObject
{
    Q_OBJECT

public:
    /// @p socket is connected and non-blocking.
    ActivationPeer(FileDescriptor socket, QObject *parent);

    /// The beginning of the line by which a peer makes @p request; its activation token follows.
    [[nodiscard]] static QByteArray command(StartRequest request);
    /// The line by which a peer makes @p request, which is one line.
    [[nodiscard]] static QByteArray requestLine(const QByteArray &request);
    /// Whether the peer of @p socket belongs to this user.
    [[nodiscard]] static bool isOurs(const FileDescriptor &socket);

    /// Reads what the peer has sent so far.
    void read();
    /// Whether it waits for reply().
    [[nodiscard]] bool isWaiting() const { return m_isWaiting; }
    /// Answers the request with the line @p answer, and closes the connection once the peer has it.
    /// Does nothing unless it waits.
    void reply(const QByteArray &answer);
    /// Closes the connection.
    void end();

Q_SIGNALS:
    /// Emitted at most once, after the peer has its answer.
    void requested(ostrel::StartRequest request, const QByteArray &activationToken);
    /// Emitted at most once: the peer waits for the reply() to @p request. Not emitted if it has
    /// left already, since it counts as refused then.
    void asked(const QByteArray &request);

private:
    void take(const QByteArray &bytes);
    void answer(const QByteArray &line);
    [[nodiscard]] bool hasLeft() const;
    void write();

    FileDescriptor m_socket;
    QByteArray m_received;
    QByteArray m_unsent;
    bool m_isWaiting = false;
    QSocketNotifier m_notifier;
    QSocketNotifier m_writable;
    QTimer m_timeout;
};

} // namespace ostrel

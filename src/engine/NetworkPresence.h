#pragma once

#include <QObject>

namespace ostrel {

/// The interface that tells whether the computer is connected to any network. Main thread.
class NetworkPresence : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// True unless the system reports that there is no connection at all.
    [[nodiscard]] bool isPresent() const { return m_isPresent; }

Q_SIGNALS:
    void isPresentChanged();

protected:
    void setPresent(bool isPresent);

private:
    bool m_isPresent = true;
};

} // namespace ostrel

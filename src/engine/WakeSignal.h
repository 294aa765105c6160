#pragma once

#include <QObject>

namespace ostrel {

/// The interface that reports when the computer goes to sleep and has woken. Lives on the main
/// thread.
class WakeSignal : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

Q_SIGNALS:
    /// Sleep is near. Not every system reports it.
    void willSleep();
    void didWake();
};

} // namespace ostrel

#pragma once

#include <QObject>

namespace ostrel {

/// The port that tells when the computer has woken from sleep. Lives on the main thread.
class WakeSignal : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

Q_SIGNALS:
    void didWake();
};

} // namespace ostrel

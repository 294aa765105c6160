#pragma once

#include <QObject>

namespace ostrel {

/// Emits, on the main thread, when the system asks the program to end (SIGTERM, SIGINT).
class TerminationSignal : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

Q_SIGNALS:
    void terminationRequested();
};

} // namespace ostrel

#pragma once

#include <QObject>

namespace ostrel {

/// Reports, on the main thread, that the system asks the program to end (SIGTERM, SIGINT).
class TerminationSignal : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

Q_SIGNALS:
    void terminationRequested();
};

} // namespace ostrel

#pragma once

#include "TerminationSignal.h"

namespace ostrel {

/// Never tells anything: the system's own way of ending a program stands.
///
/// With Qt Core alone a signal's handler may do no more than set a flag, and a timer that looks at
/// the flag would wake the computer for as long as the program runs. Files are replaced
/// atomically, so that an end at any moment loses nothing.
class PortableTerminationSignal final : public TerminationSignal
{
    Q_OBJECT

public:
    using TerminationSignal::TerminationSignal;
};

} // namespace ostrel

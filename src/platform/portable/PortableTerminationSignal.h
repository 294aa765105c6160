#pragma once

#include "TerminationSignal.h"

namespace ostrel {

/// Never emits: the system's default way to end a program stays in effect.
///
/// With Qt Core alone, a signal handler may do no more than set a flag, and a timer that polls the
/// flag would wake the computer for as long as the program runs. Files are replaced atomically, so
/// ending at any moment loses nothing.
class PortableTerminationSignal final : public TerminationSignal
{
    Q_OBJECT

public:
    using TerminationSignal::TerminationSignal;
};

} // namespace ostrel

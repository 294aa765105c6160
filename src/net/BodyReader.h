#pragma once

#include <QByteArrayView>

namespace ostrel {

/// Reads a response's decoded body while it arrives. Called from one thread at a time, which is
/// neither the I/O thread nor the thread that made the request, and only before the request's
/// future finishes, except for one call that may still be running if reading was given up.
class BodyReader
{
public:
    BodyReader() = default;
    BodyReader(const BodyReader &) = delete;
    BodyReader &operator=(const BodyReader &) = delete;
    virtual ~BodyReader() = default;

    /// A body begins. Discards what was read of an earlier hop's body.
    virtual void begin() = 0;
    /// The next bytes: a chunk of any size, at most some hundred kilobytes. If it throws, the body
    /// counts as not read.
    virtual void read(QByteArrayView bytes) = 0;
};

} // namespace ostrel

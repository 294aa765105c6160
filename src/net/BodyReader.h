#pragma once

#include <QByteArrayView>

namespace ostrel {

/// Reads a response's body, decoded, while it arrives. Called from one thread at a time, which is
/// neither the I/O thread nor that of the request's maker, and only before the request's future
/// finishes, but for one call that may be under way if reading was given up.
class BodyReader
{
public:
    BodyReader() = default;
    BodyReader(const BodyReader &) = delete;
    BodyReader &operator=(const BodyReader &) = delete;
    virtual ~BodyReader() = default;

    /// A body begins. What was read of another, of an earlier hop, is void.
    virtual void begin() = 0;
    /// The next bytes: a piece of any size, at most some hundred kilobytes. If it throws, the body
    /// counts as not read.
    virtual void read(QByteArrayView bytes) = 0;
};

} // namespace ostrel

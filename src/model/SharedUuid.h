#pragma once

#include <QUuid>

namespace ostrel {

/// A UUID that many values have, in the room of one pointer: all that are equal share one. For ids
/// of which there are few, since none is forgotten. Any thread.
class SharedUuid
{
public:
    SharedUuid() = default;
    SharedUuid(const QUuid &id);

    operator const QUuid &() const { return *m_id; }

    friend bool operator==(const SharedUuid &, const SharedUuid &) = default;
    friend bool operator==(const SharedUuid &left, const QUuid &right)
    {
        return *left.m_id == right;
    }

private:
    static constexpr QUuid null{};

    const QUuid *m_id = &null;
};

} // namespace ostrel

#pragma once

#include "ContentDecoder.h"

#include <QByteArray>

namespace ostrel {

/// Decodes a format in which several members may follow each other, as in gzip. Data after them
/// that isn't a member is ignored.
class MemberDecoder : public ContentDecoder
{
public:
    [[nodiscard]] Decoded decode(QByteArrayView &input, std::span<char> output) final;
    [[nodiscard]] bool isComplete() const final { return m_place != Place::inside; }

protected:
    /// @p headSize is the number of bytes that identify another member; 0 if none ever follows.
    explicit MemberDecoder(qsizetype headSize)
        : m_headSize(headSize)
    {
    }

    struct Member
    {
        Decoded decoded;
        bool hasEnded;
    };
    /// Like decode(), until the member's end.
    [[nodiscard]] virtual Member decodeMember(QByteArrayView &input, std::span<char> output) = 0;
    /// Whether a member may begin with @p bytes, which are at most headSize.
    [[nodiscard]] virtual bool isHead(QByteArrayView bytes) const = 0;
    /// Prepares for another member.
    virtual void beginAnother() = 0;

private:
    enum class Place { before, inside, between, behind };

    void lookForMember(QByteArrayView &input);
    [[nodiscard]] Decoded decodeInside(QByteArrayView &input, std::span<char> output);

    const qsizetype m_headSize;
    Place m_place = Place::before;
    QByteArray m_head; ///< The bytes read to identify a member.
};

} // namespace ostrel

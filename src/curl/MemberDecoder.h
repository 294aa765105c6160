#pragma once

#include "ContentDecoder.h"

#include <QByteArray>

namespace ostrel {

/// Decodes a format whose files may follow each other, as gzip's members do. What comes behind them
/// and is no member is passed over.
class MemberDecoder : public ContentDecoder
{
public:
    [[nodiscard]] Decoded decode(QByteArrayView &input, std::span<char> output) final;
    [[nodiscard]] bool isComplete() const final { return m_place != Place::inside; }

protected:
    /// @p headSize is how many bytes show whether another member follows; 0 if none ever does.
    explicit MemberDecoder(qsizetype headSize)
        : m_headSize(headSize)
    {
    }

    struct Member
    {
        Decoded decoded;
        bool hasEnded;
    };
    /// As decode(), until the member's end.
    [[nodiscard]] virtual Member decodeMember(QByteArrayView &input, std::span<char> output) = 0;
    /// Whether a member may begin with @p bytes, of which there are headSize at most.
    [[nodiscard]] virtual bool isHead(QByteArrayView bytes) const = 0;
    /// Another member begins.
    virtual void beginAnother() = 0;

private:
    enum class Place { before, inside, between, behind };

    void lookForMember(QByteArrayView &input);
    [[nodiscard]] Decoded decodeInside(QByteArrayView &input, std::span<char> output);

    const qsizetype m_headSize;
    Place m_place = Place::before;
    QByteArray m_head; ///< What was read of a member to see that it is one.
};

} // namespace ostrel

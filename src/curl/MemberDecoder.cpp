#include "MemberDecoder.h"

namespace ostrel {

ContentDecoder::Decoded MemberDecoder::decode(QByteArrayView &input, std::span<char> output)
{
    if (m_place == Place::before && !input.isEmpty())
        m_place = Place::inside;
    if (m_place == Place::between)
        lookForMember(input);
    if (m_place == Place::behind)
        input = {};
    if (m_place != Place::inside)
        return {0, State::starved};
    if (m_head.isEmpty())
        return decodeInside(input, output);

    QByteArrayView head(m_head);
    const Decoded decoded = decodeInside(head, output);
    m_head = head.toByteArray();
    return {decoded.count, decoded.state == State::starved ? State::ready : decoded.state};
}

void MemberDecoder::lookForMember(QByteArrayView &input)
{
    while (!input.isEmpty() && m_head.size() < m_headSize) {
        m_head.append(input.front());
        input = input.sliced(1);
        if (!isHead(m_head)) {
            m_head.clear();
            m_place = Place::behind;
            return;
        }
    }
    if (m_head.size() == m_headSize) {
        m_place = Place::inside;
        beginAnother();
    }
}

ContentDecoder::Decoded MemberDecoder::decodeInside(QByteArrayView &input, std::span<char> output)
{
    const Member member = decodeMember(input, output);
    if (!member.hasEnded)
        return member.decoded;
    m_place = m_headSize > 0 ? Place::between : Place::behind;
    return {member.decoded.count, State::ready};
}

} // namespace ostrel

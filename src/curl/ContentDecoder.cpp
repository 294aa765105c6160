#include "ContentDecoder.h"

#include "BrotliDecoder.h"
#include "InflateDecoder.h"
#include "ZstdDecoder.h"

#include <QByteArray>
#include <QByteArrayList>

#include <optional>
#include <utility>
#include <vector>

namespace ostrel {

namespace {

constexpr std::size_t mostDecoders = 5;
constexpr std::size_t pipeSize = std::size_t(64) * 1024;

/// Passes one decoder's output to another.
class PipedDecoder final : public ContentDecoder
{
public:
    PipedDecoder(std::unique_ptr<ContentDecoder> first, std::unique_ptr<ContentDecoder> second)
        : m_first(std::move(first))
        , m_second(std::move(second))
        , m_buffer(pipeSize)
    {
    }

    Decoded decode(QByteArrayView &input, std::span<char> output) override
    {
        const Decoded second = m_second->decode(m_between, output);
        if (second.state != State::starved || second.count > 0)
            return {second.count, second.state == State::damaged ? second.state : State::ready};
        const Decoded first = m_first->decode(input, m_buffer);
        m_between = {m_buffer.data(), static_cast<qsizetype>(first.count)};
        return {0, first.count > 0 && first.state == State::starved ? State::ready : first.state};
    }

    [[nodiscard]] bool isComplete() const override
    {
        return m_first->isComplete() && m_second->isComplete();
    }

private:
    std::unique_ptr<ContentDecoder> m_first;
    std::unique_ptr<ContentDecoder> m_second;
    std::vector<char> m_buffer;
    QByteArrayView m_between; ///< What the second hasn't consumed yet.
};

/// Null if the name is unknown.
std::unique_ptr<ContentDecoder> decoderOf(const QByteArray &name)
{
    if (name == "gzip" || name == "x-gzip")
        return std::make_unique<InflateDecoder>(InflateDecoder::Format::gzip);
    if (name == "deflate")
        return std::make_unique<InflateDecoder>(InflateDecoder::Format::deflate);
    if (name == "br")
        return std::make_unique<BrotliDecoder>();
    if (name == "zstd")
        return std::make_unique<ZstdDecoder>();
    return nullptr;
}

/// The names of the encodings applied to the body, in order.
QByteArrayList encodingsIn(QByteArrayView contentEncoding)
{
    QByteArrayList names;
    for (const QByteArray &each : contentEncoding.toByteArray().toLower().split(',')) {
        const QByteArray name = each.trimmed();
        if (!name.isEmpty() && name != "identity")
            names.append(name);
    }
    return names;
}

} // namespace

std::unique_ptr<ContentDecoder> ContentDecoder::make(QByteArrayView contentEncoding)
{
    std::unique_ptr<ContentDecoder> whole;
    const QByteArrayList names = encodingsIn(contentEncoding);
    if (static_cast<std::size_t>(names.size()) > mostDecoders)
        return nullptr;
    // The last encoding is reverted first.
    for (auto name = names.rbegin(); name != names.rend(); ++name) {
        auto decoder = decoderOf(*name);
        if (!decoder)
            return nullptr;
        whole = whole ? std::make_unique<PipedDecoder>(std::move(whole), std::move(decoder))
                      : std::move(decoder);
    }
    return whole;
}

} // namespace ostrel

#include "Mutator.h"

#include <algorithm>

namespace ostrel::fuzz {

Mutator::Mutator(std::vector<std::string> corpus, std::vector<std::string_view> tokens,
                 unsigned seed)
    : m_corpus(std::move(corpus))
    , m_tokens(std::move(tokens))
    , m_random(seed)
{
    m_corpus.emplace_back();
}

std::string Mutator::next()
{
    std::string text = anyInput();
    for (std::size_t i = 1 + below(4); i > 0; --i)
        mutate(text);
    return text;
}

std::size_t Mutator::below(std::size_t bound)
{
    return bound == 0 ? 0 : m_random() % bound;
}

const std::string &Mutator::anyInput()
{
    return m_corpus[below(m_corpus.size())];
}

void Mutator::mutate(std::string &text)
{
    switch (below(6)) {
    case 0:
        return flipBit(text);
    case 1:
        return text.resize(below(text.size() + 1));
    case 2:
        return doubleSpan(text);
    case 3: {
        const std::string &other = anyInput();
        text.resize(below(text.size() + 1));
        text += std::string_view(other).substr(below(other.size() + 1));
        return;
    }
    default:
        return putToken(text);
    }
}

void Mutator::flipBit(std::string &text)
{
    if (!text.empty()) {
        char &character = text[below(text.size())];
        character = static_cast<char>(character ^ (1 << below(8)));
    }
}

void Mutator::putToken(std::string &text)
{
    const std::string_view token = m_tokens[below(m_tokens.size())];
    const std::size_t position = below(text.size() + 1);
    const std::size_t replaced = below(2) * below(20);
    text.replace(position, std::min(replaced, text.size() - position), token);
}

void Mutator::doubleSpan(std::string &text)
{
    const std::size_t position = below(text.size() + 1);
    text.insert(position, text.substr(position, below(100)));
}

} // namespace ostrel::fuzz

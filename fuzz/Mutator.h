#pragma once

#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace ostrel::fuzz {

/// Makes new inputs from those of a corpus: flips bits, cuts, splices two, doubles spans, inserts
/// tokens. The same seed makes the same inputs.
class Mutator
{
public:
    Mutator(std::vector<std::string> corpus, std::vector<std::string_view> tokens, unsigned seed);

    [[nodiscard]] std::string next();

private:
    [[nodiscard]] std::size_t below(std::size_t bound);
    [[nodiscard]] const std::string &anyInput();
    void mutate(std::string &text);
    void flipBit(std::string &text);
    void putToken(std::string &text);
    void doubleSpan(std::string &text);

    std::vector<std::string> m_corpus;
    std::vector<std::string_view> m_tokens;
    std::minstd_rand m_random;
};

} // namespace ostrel::fuzz

#include "FuzzTarget.h"
#include "Mutator.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

// fuzz-… CORPUS [COUNT [SEED]]

namespace {

/// Sorted by name: a folder's own order differs between clones, and with it the inputs of a seed.
std::vector<std::filesystem::path> sortedFiles(const std::filesystem::path &folder)
{
    std::vector<std::filesystem::path> files;
    for (const auto &entry : std::filesystem::directory_iterator(folder))
        files.push_back(entry.path());
    std::ranges::sort(files);
    return files;
}

std::vector<std::string> readCorpus(const std::filesystem::path &folder)
{
    std::vector<std::string> corpus;
    for (const auto &path : sortedFiles(folder)) {
        std::ifstream file(path, std::ios::binary);
        corpus.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    return corpus;
}

void tryInput(const std::string &input)
{
    (void)LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(input.data()),
                                 input.size());
}

unsigned long numberAt(int argc, char **argv, int index, unsigned long fallback)
{
    return argc > index ? std::strtoul(argv[index], nullptr, 10) : fallback;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc < 2)
        return 2;
    const auto corpus = readCorpus(argv[1]);
    for (const std::string &input : corpus)
        tryInput(input);

    const auto count = numberAt(argc, argv, 2, 30'000);
    const auto seed = static_cast<unsigned>(numberAt(argc, argv, 3, 1));
    ostrel::fuzz::Mutator mutator(corpus, ostrel::fuzz::dictionary(), seed);
    for (unsigned long i = 0; i < count; ++i)
        tryInput(mutator.next());
    std::printf("%zu inputs of the corpus, %lu made of them, seed %u\n", corpus.size(), count,
                seed);
    return corpus.empty() ? 1 : 0;
}

#include "FuzzTarget.h"
#include "HistoriesReader.h"
#include "HistoriesWriter.h"

#include <algorithm>
#include <cstdlib>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using namespace ostrel;

/// Reads the input as a list of decisions.
class Decisions
{
public:
    explicit Decisions(std::string_view bytes)
        : m_bytes(bytes)
    {
    }

    [[nodiscard]] bool areLeft() const { return !m_bytes.empty(); }
    [[nodiscard]] unsigned next()
    {
        if (m_bytes.empty())
            return 0;
        const auto byte = static_cast<unsigned char>(m_bytes.front());
        m_bytes.remove_prefix(1);
        return byte;
    }
    [[nodiscard]] QString nextText()
    {
        const std::string_view text = m_bytes.substr(0, next() % 64);
        m_bytes.remove_prefix(text.size());
        return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    }

private:
    std::string_view m_bytes;
};

Check nextCheck(Decisions &decisions, const QUuid &monitorId)
{
    Check check;
    check.id = QUuid(decisions.next(), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
    check.monitorId = monitorId;
    check.responseTime = decisions.next() / 3.0;
    const unsigned fields = decisions.next();
    check.isUp = (fields & 1) != 0;
    if ((fields & 2) != 0)
        check.error = decisions.nextText();
    if ((fields & 4) != 0)
        check.statusCode = static_cast<qint32>(decisions.next());
    if ((fields & 8) != 0)
        check.keywordFound = check.isUp;
    return check;
}

CheckHistories nextHistories(Decisions &decisions)
{
    CheckHistories histories;
    while (decisions.areLeft()) {
        const QUuid id(decisions.next(), 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);
        CheckHistory &history = histories.try_emplace(id, id).first->second;
        for (unsigned count = decisions.next() % 8; count > 0; --count)
            history.append(nextCheck(decisions, id));
    }
    return histories;
}

FileSnapshot written(const CheckHistories &histories)
{
    static const int descriptor = ::memfd_create("histories", MFD_CLOEXEC);
    struct stat status = {};
    ContentWriter content(descriptor);
    if (::ftruncate(descriptor, 0) != 0 || ::lseek(descriptor, 0, SEEK_SET) != 0 ||
        !HistoriesWriter().write(histories, FileSnapshot(), content) || !content.finish() ||
        ::fstat(descriptor, &status) != 0)
        std::abort();
    return {FileDescriptor(::dup(descriptor)), status};
}

bool areEqual(const CheckHistories &left, const CheckHistories &right)
{
    return std::ranges::equal(left, right, [](const auto &one, const auto &other) {
        return one.first == other.first &&
               std::ranges::equal(one.second.checks(), other.second.checks());
    });
}

} // namespace

std::vector<std::string_view> fuzz::dictionary()
{
    return {"}],\"", "\",[", "]", "}", "\\", "\"", "\x02\x10}],\"", "\x3f", "\xff"};
}

// Written histories are read back, wherever the border between two parts falls.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Decisions decisions({reinterpret_cast<const char *>(data), size});
    const std::size_t partSize = 1 + decisions.next() * 5;
    const CheckHistories histories = nextHistories(decisions);
    const auto read = readHistories(written(histories), partSize);
    if (!read || !areEqual(*read, histories))
        std::abort();
    return 0;
}

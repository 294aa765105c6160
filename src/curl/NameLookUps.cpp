#include "NameLookUps.h"

#include "DetachedThread.h"
#include "Inbox.h"

#include <cstring>
#include <netdb.h>
#include <system_error>
#include <utility>

namespace ostrel {

namespace {

using Addresses = std::vector<sockaddr_storage>;

struct FreeAddressList
{
    void operator()(addrinfo *list) const { freeaddrinfo(list); }
};

sockaddr_storage addressOf(const addrinfo &entry)
{
    sockaddr_storage address{};
    std::memcpy(&address, entry.ai_addr, entry.ai_addrlen);
    return address;
}

/// Blocks for as long as the resolver takes.
Addresses addressesOf(const QByteArray &name)
{
    addrinfo hints{};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo *found = nullptr;
    if (getaddrinfo(name.constData(), nullptr, &hints, &found) != 0)
        return {};
    const std::unique_ptr<addrinfo, FreeAddressList> list(found);
    Addresses addresses;
    for (const addrinfo *entry = found; entry != nullptr; entry = entry->ai_next)
        addresses.push_back(addressOf(*entry));
    return addresses;
}

} // namespace

NameLookUps::NameLookUps(std::shared_ptr<Inbox> inbox, std::size_t maxThreads)
    : m_inbox(std::move(inbox))
    , m_maxThreads(maxThreads)
{
}

bool NameLookUps::canBegin(const QByteArray &name) const
{
    return m_threads < m_maxThreads || m_underWay.contains(name);
}

std::shared_ptr<const LookUp> NameLookUps::begin(const QByteArray &name)
{
    std::shared_ptr<LookUp> &lookUp = m_underWay[name];
    if (!lookUp) {
        lookUp = std::make_shared<LookUp>();
        lookUp->name = name;
        lookUp->start = LookUp::Clock::now();
        start(lookUp);
    }
    return lookUp;
}

void NameLookUps::start(const std::shared_ptr<LookUp> &lookUp)
{
    ++m_threads;
    // The message runs on the I/O thread, so only as long as that and this object exist.
    const auto tell = [this, inbox = m_inbox, lookUp](const Addresses &addresses) {
        inbox->post([this, lookUp, addresses] { didEnd(lookUp, addresses); });
    };
    try {
        startDetached([name = lookUp->name, tell] { tell(addressesOf(name)); });
    } catch (const std::system_error &) {
        tell({});
    }
}

void NameLookUps::didEnd(const std::shared_ptr<LookUp> &lookUp, Addresses addresses)
{
    --m_threads;
    lookUp->addresses = std::move(addresses);
    lookUp->isFinished = true;
    if (m_underWay.value(lookUp->name) == lookUp)
        m_underWay.remove(lookUp->name);
}

} // namespace ostrel

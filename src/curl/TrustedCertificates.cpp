#include "TrustedCertificates.h"

#include <openssl/crypto.h>
#include <openssl/x509_vfy.h>

#include <sys/stat.h>
#include <utility>

namespace ostrel {

using namespace std::chrono;

namespace {

/// Reading from a pipe or a device could block.
bool isRegularFile(const QByteArray &path)
{
    struct stat status = {};
    return stat(path.constData(), &status) == 0 && S_ISREG(status.st_mode);
}

void addFile(X509_STORE *store, const QByteArray &path)
{
    if (isRegularFile(path))
        X509_STORE_load_file(store, path.constData());
}

void addDirectory(X509_STORE *store, const QByteArray &paths)
{
    if (!paths.isEmpty())
        X509_STORE_load_path(store, paths.constData());
}

} // namespace

TrustedCertificates::TrustedCertificates(TrustStore places)
    : m_places(std::move(places))
    , m_paths(m_places.directory.split(':'))
{
    m_paths.append(m_places.file);
}

TrustedCertificates::Store TrustedCertificates::current()
{
    // Before they are read, so that files that change meanwhile are read again.
    std::vector<State> now = states();
    if (!m_store || now != m_states) {
        m_store = read();
        m_states = std::move(now);
    }
    return m_store;
}

TrustedCertificates::State TrustedCertificates::stateOf(const QByteArray &path)
{
    struct stat status = {};
    if (stat(path.constData(), &status) != 0)
        return {};
    // The ctime, since it also advances when a file becomes readable, and is never set back.
    return {.device = status.st_dev,
            .inode = status.st_ino,
            .size = status.st_size,
            .change = seconds(status.st_ctim.tv_sec) + nanoseconds(status.st_ctim.tv_nsec)};
}

std::vector<TrustedCertificates::State> TrustedCertificates::states() const
{
    std::vector<State> states;
    for (const QByteArray &path : m_paths)
        states.push_back(stateOf(path));
    return states;
}

TrustedCertificates::Store TrustedCertificates::read() const
{
    Store store(X509_STORE_new(), X509_STORE_free);
    if (!store)
        return store;
    // Prefers our authorities to those that a server sends, and accepts a trusted intermediate
    // without its root, like the library itself.
    X509_STORE_set_flags(store.get(), X509_V_FLAG_TRUSTED_FIRST | X509_V_FLAG_PARTIAL_CHAIN);
    addFile(store.get(), m_places.file);
    addDirectory(store.get(), m_places.directory);
    // Verifications will show what couldn't be read. The errors are part of what the library keeps
    // for a thread until it ends, which may be after the program's end has begun.
    OPENSSL_thread_stop();
    return store;
}

} // namespace ostrel

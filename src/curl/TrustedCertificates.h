#pragma once

#include "TrustStore.h"

#include <QByteArrayList>

#include <openssl/types.h>

#include <chrono>
#include <memory>
#include <vector>

namespace ostrel {

/// The certificates of trusted authorities, parsed once for each state of their files.
///
/// One thread at a time.
class TrustedCertificates
{
public:
    /// May be used by many connections at once.
    using Store = std::shared_ptr<X509_STORE>;

    explicit TrustedCertificates(TrustStore places);

    /// What the files hold now: another store each time one of them has changed. Where a bundle
    /// can't be read, its certificates aren't trusted. Reading a bundle of a hundred and forty
    /// takes a tenth of a second; a hashed directory is read as needed, one certificate at a time.
    /// Null if there is no memory.
    [[nodiscard]] Store current();

private:
    /// What tells one content of a file or a directory from another, so that it needn't be read.
    struct State
    {
        quint64 device = 0;
        quint64 inode = 0;
        qint64 size = -1; ///< Negative where there is nothing.
        std::chrono::nanoseconds change{0};

        friend bool operator==(const State &, const State &) = default;
    };

    [[nodiscard]] static State stateOf(const QByteArray &path);
    [[nodiscard]] std::vector<State> states() const;
    [[nodiscard]] Store read() const;

    TrustStore m_places;
    QByteArrayList m_paths;
    std::vector<State> m_states; ///< Of m_store's reading.
    Store m_store;
};

} // namespace ostrel

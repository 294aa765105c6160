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

    /// The current content of the files: a new store each time one of them has changed. If a bundle
    /// can't be read, its certificates aren't trusted. Reading a bundle of a hundred and forty
    /// certificates takes a tenth of a second; a hashed directory is read on demand, one
    /// certificate at a time. Null if there isn't enough memory.
    [[nodiscard]] Store current();

private:
    /// Identifies the content of a file or a directory, so that it needn't be read.
    struct State
    {
        quint64 device = 0;
        quint64 inode = 0;
        qint64 size = -1; ///< Negative if there is nothing.
        std::chrono::nanoseconds change{0};

        friend bool operator==(const State &, const State &) = default;
    };

    [[nodiscard]] static State stateOf(const QByteArray &path);
    [[nodiscard]] std::vector<State> states() const;
    [[nodiscard]] Store read() const;

    TrustStore m_places;
    QByteArrayList m_paths;
    std::vector<State> m_states; ///< The state when m_store was read.
    Store m_store;
};

} // namespace ostrel

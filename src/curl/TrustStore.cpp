#include "TrustStore.h"

#include <QDir>
#include <QFile>

#include <curl/curl.h>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

/// Whether the folder at @p path has a certificate under a name that OpenSSL looks for: eight
/// hexadecimal digits of the subject's hash, a dot, a number.
bool isHashedDirectory(const QByteArray &path)
{
    const QStringList names{u"????????.[0-9]"_s};
    return !path.isEmpty() &&
           !QDir(QFile::decodeName(path)).entryList(names, QDir::Files).isEmpty();
}

} // namespace

TrustStore TrustStore::system()
{
    TrustStore chosen{qgetenv("SSL_CERT_DIR"), qgetenv("SSL_CERT_FILE")};
    if (!chosen.directory.isEmpty() || !chosen.file.isEmpty())
        return chosen;

    const curl_version_info_data *library = curl_version_info(CURLVERSION_NOW);
    // Never both: they hold the same authorities, and a hashed directory is read as needed.
    if (isHashedDirectory(library->capath))
        return {.directory = library->capath, .file = {}};
    return {.directory = {}, .file = library->cainfo};
}

} // namespace ostrel

#pragma once

#include <curl/curl.h>

#include <memory>

namespace ostrel {

/// Releases a handle of the C library with @p release.
template<auto release>
struct CurlRelease
{
    template<typename Handle>
    void operator()(Handle *handle) const
    {
        release(handle);
    }
};

using CurlEasy = std::unique_ptr<CURL, CurlRelease<curl_easy_cleanup>>;
using CurlMulti = std::unique_ptr<CURLM, CurlRelease<curl_multi_cleanup>>;
using CurlUrl = std::unique_ptr<CURLU, CurlRelease<curl_url_cleanup>>;
using CurlShare = std::unique_ptr<CURLSH, CurlRelease<curl_share_cleanup>>;
using CurlList = std::unique_ptr<curl_slist, CurlRelease<curl_slist_free_all>>;

} // namespace ostrel

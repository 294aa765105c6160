#include "BareLoop.h"

#include <curl/curl.h>

namespace ostrel::bench {

namespace {

std::size_t drop(char *, std::size_t size, std::size_t count, void *)
{
    return size * count;
}

CURL *makeHandle(const QByteArray &url, const TrustStore &trustStore)
{
    CURL *easy = curl_easy_init();
    curl_easy_setopt(easy, CURLOPT_URL, url.constData());
    curl_easy_setopt(easy, CURLOPT_TIMEOUT_MS, 10000L);
    curl_easy_setopt(easy, CURLOPT_CONNECTTIMEOUT_MS, 10000L);
    curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(easy, CURLOPT_FRESH_CONNECT, 1L);
    curl_easy_setopt(easy, CURLOPT_FORBID_REUSE, 1L);
    curl_easy_setopt(easy, CURLOPT_DNS_CACHE_TIMEOUT, 0L);
    curl_easy_setopt(easy, CURLOPT_QUICK_EXIT, 1L);
    curl_easy_setopt(easy, CURLOPT_USERAGENT, "bench");
    curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(easy, CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(easy, CURLOPT_FOLLOWLOCATION, 1L);
    curl_easy_setopt(easy, CURLOPT_MAXREDIRS, 20L);
    curl_easy_setopt(easy, CURLOPT_COOKIEFILE, "");
    curl_easy_setopt(easy, CURLOPT_ACCEPT_ENCODING, "");
    curl_easy_setopt(easy, CURLOPT_BUFFERSIZE, 1024L);
    curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, drop);
    curl_easy_setopt(easy, CURLOPT_CAPATH, trustStore.directory.constData());
    curl_easy_setopt(easy, CURLOPT_CAINFO, nullptr);
    curl_easy_setopt(easy, CURLOPT_SSL_SESSIONID_CACHE, 0L);
    return easy;
}

std::chrono::microseconds finish(CURLM *multi, CURL *easy)
{
    curl_off_t total = 0;
    curl_easy_getinfo(easy, CURLINFO_TOTAL_TIME_T, &total);
    curl_multi_remove_handle(multi, easy);
    curl_easy_cleanup(easy);
    return std::chrono::microseconds(total);
}

} // namespace

std::vector<std::chrono::microseconds> fetchBare(const QByteArray &url, int count,
                                                 int maxConcurrent, const TrustStore &trustStore)
{
    std::vector<std::chrono::microseconds> times;
    CURLM *multi = curl_multi_init();
    int started = 0;
    int running = 0;
    while (static_cast<int>(times.size()) < count) {
        for (; started < count && started - static_cast<int>(times.size()) < maxConcurrent;
             ++started)
            curl_multi_add_handle(multi, makeHandle(url, trustStore));
        curl_multi_perform(multi, &running);
        int messagesLeft = 0;
        while (const CURLMsg *message = curl_multi_info_read(multi, &messagesLeft))
            times.push_back(finish(multi, message->easy_handle));
        if (running > 0)
            curl_multi_poll(multi, nullptr, 0, 1000, nullptr);
    }
    curl_multi_cleanup(multi);
    return times;
}

} // namespace ostrel::bench

#pragma once

#include "HttpClient.h"
#include "IoThread.h"

#include <QByteArray>

#include <gtest/gtest.h>

#include <chrono>

namespace ostrel::test {

/// A request for @p url that nothing in a test's way would cut short.
inline HttpRequest requestFor(const QByteArray &url, const QByteArray &method = "GET")
{
    return {.url = url,
            .method = method,
            .userAgent = "Tester/1.0 (of the client)",
            .timeout = std::chrono::seconds(20),
            .bodyLimit = 1024,
            .tlsDelegate = nullptr};
}

/// An I/O thread with a client on it.
class FetchFixture : public testing::Test
{
protected:
    explicit FetchFixture(IoThreadConfiguration configuration = {})
        : m_ioThread(std::move(configuration))
        , m_client(m_ioThread)
    {
    }

    [[nodiscard]] HttpResult fetch(const HttpRequest &request)
    {
        return m_client.fetch(request).result();
    }
    [[nodiscard]] HttpResult fetch(const QByteArray &url, const QByteArray &method = "GET")
    {
        return fetch(requestFor(url, method));
    }

    IoThread m_ioThread;
    HttpClient m_client;
};

} // namespace ostrel::test

#pragma once

#include "CurlNetwork.h"

#include <QByteArray>

#include <gtest/gtest.h>

#include <chrono>

namespace ostrel::test {

/// A request for @p url whose time-out no ordinary test reaches.
inline HttpRequest requestFor(const QByteArray &url, const QByteArray &method = "GET")
{
    return {.url = url,
            .method = method,
            .userAgent = "Tester/1.0 (of the client)",
            .timeout = std::chrono::seconds(20),
            .bodyLimit = 1024,
            .tlsDelegate = nullptr};
}

inline HttpRequest requestWithin(std::chrono::milliseconds timeout, const QByteArray &url)
{
    HttpRequest request = requestFor(url);
    request.timeout = timeout;
    return request;
}

/// A test with a network of its own.
class FetchFixture : public testing::Test
{
protected:
    explicit FetchFixture(IoThreadConfiguration configuration = {})
        : m_network(std::move(configuration))
    {
    }

    [[nodiscard]] HttpResult fetch(const HttpRequest &request)
    {
        return m_network.fetch(request).result();
    }
    [[nodiscard]] HttpResult fetch(const QByteArray &url, const QByteArray &method = "GET")
    {
        return fetch(requestFor(url, method));
    }

    CurlNetwork m_network;
};

} // namespace ostrel::test

#pragma once

#include <QByteArray>

#include <map>

namespace ostrel::test {

/// Unsets every variable that names a proxy, and restores them when it is destroyed.
class ProxyEnvironment
{
public:
    ProxyEnvironment()
    {
        for (const char *name : {"http_proxy", "HTTP_PROXY", "https_proxy", "HTTPS_PROXY",
                                 "all_proxy", "ALL_PROXY", "no_proxy", "NO_PROXY"}) {
            m_before[name] = qgetenv(name);
            qunsetenv(name);
        }
    }
    ~ProxyEnvironment()
    {
        for (const auto &[name, value] : m_before)
            qputenv(name.constData(), value);
    }
    Q_DISABLE_COPY_MOVE(ProxyEnvironment)

private:
    std::map<QByteArray, QByteArray> m_before;
};

} // namespace ostrel::test

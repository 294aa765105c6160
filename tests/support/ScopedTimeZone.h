#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <ctime>

namespace ostrel::test {

/// Sets TZ while it lives, for Qt and for the C library.
class ScopedTimeZone
{
public:
    explicit ScopedTimeZone(const char *name) { use(name); }
    ~ScopedTimeZone() { use(m_before.isNull() ? nullptr : m_before.constData()); }
    ScopedTimeZone(const ScopedTimeZone &) = delete;
    ScopedTimeZone &operator=(const ScopedTimeZone &) = delete;

private:
    static void use(const char *name)
    {
        if (name)
            qputenv("TZ", name);
        else
            qunsetenv("TZ");
        tzset();
    }
    const QByteArray m_before = qgetenv("TZ");
};

} // namespace ostrel::test

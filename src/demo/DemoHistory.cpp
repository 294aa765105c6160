#include "DemoHistory.h"

#include <QRandomGenerator>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

using namespace std::chrono_literals;

constexpr auto month = std::chrono::days(30);
constexpr int checkCount = 1700;
constexpr auto spacing = std::chrono::duration_cast<std::chrono::milliseconds>(month) / checkCount;

class Past
{
public:
    Past(const Monitor &monitor, const DemoPast &past, Timestamp now)
        : m_monitor(monitor)
        , m_past(past)
        , m_now(now)
        , m_random(qHash(monitor.id, 0) & 0xffffffffU)
        , m_isDown(checkCount, false)
    {
        for (int i = 0; i < past.outages; ++i)
            addOutage();
    }

    [[nodiscard]] std::vector<Check> checks()
    {
        std::vector<Check> made;
        made.reserve(checkCount);
        for (int i = 0; i < checkCount; ++i)
            made.push_back(m_isDown[std::size_t(i)] ? failed(i) : successful(i));
        return made;
    }

private:
    /// Not in the last day, which belongs to the demo's own outages.
    void addOutage()
    {
        const int lastDay = int(24h / spacing);
        const int length = m_random.bounded(2, 7);
        const int first = m_random.bounded(0, checkCount - lastDay - length);
        std::fill_n(m_isDown.begin() + first, length, true);
    }

    [[nodiscard]] Check at(int index)
    {
        std::array<quint32, 4> bits{};
        m_random.fillRange(bits.data(), qsizetype(bits.size()));
        QUuid id;
        std::memcpy(static_cast<void *>(&id), bits.data(), sizeof(id));
        return {.id = id,
                .monitorId = m_monitor.id,
                .timestamp = m_now - spacing * (checkCount - index)};
    }
    [[nodiscard]] Check successful(int index)
    {
        Check check = at(index);
        check.isUp = true;
        const double hour =
            std::chrono::duration<double, std::ratio<3600>>(check.timestamp.time_since_epoch())
                .count();
        const double day = 1 + 0.25 * std::sin(hour / 24 * 2 * std::numbers::pi);
        const double spread = 0.85 + 0.3 * m_random.generateDouble();
        const double spike = m_random.bounded(40) == 0 ? 2.2 : 1;
        check.responseTime = m_past.usualTime.count() * day * spread * spike;
        if (m_monitor.type == MonitorType::http)
            check.statusCode = 200;
        if (m_monitor.keyword)
            check.keywordFound = m_monitor.keywordShouldExist;
        if (m_past.hasCertificate)
            check.sslExpiresAt = m_past.certificateEnd;
        return check;
    }
    [[nodiscard]] Check failed(int index)
    {
        Check check = at(index);
        check.responseTime = m_past.usualTime.count() * 0.5;
        if (m_past.failedStatus != 0)
            check.statusCode = m_past.failedStatus;
        check.error = m_past.failure;
        return check;
    }

    const Monitor &m_monitor;
    const DemoPast &m_past;
    Timestamp m_now;
    QRandomGenerator m_random;
    std::vector<bool> m_isDown;
};

} // namespace

std::vector<Check> demoHistory(const Monitor &monitor, const DemoPast &past, Timestamp now)
{
    return Past(monitor, past, now).checks();
}

} // namespace ostrel

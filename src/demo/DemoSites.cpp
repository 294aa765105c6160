#include "DemoSites.h"

#include "DemoIcon.h"

#include <QUuid>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;

/// From now until the end of the certificate, which is worth an interruption.
constexpr auto certificateLifetime = 71h;
constexpr quint8 bankHost = 6;

/// Whether something that fails for @p failing and then works for @p working, again and again,
/// fails at the time @p sinceStart.
bool isFailing(milliseconds sinceStart, milliseconds failing, milliseconds working)
{
    return sinceStart % (failing + working) < failing;
}

QByteArray page(const QByteArray &title, const QByteArray &text)
{
    return "<!doctype html><html lang=\"en\"><head><title>" + title + "</title></head><body><h1>" +
           title + "</h1><p>" + text + "</p></body></html>\n";
}

DemoAnswer bakery(milliseconds)
{
    return {.delay = 12ms, .page = page("Corner Bakery", "Fresh bread from six o'clock.")};
}

DemoAnswer photos(milliseconds sinceStart)
{
    return {.delay = 700ms + sinceStart / 7 % 600, .page = page("Photo Archive", "12 albums")};
}

DemoAnswer tickets(milliseconds sinceStart)
{
    if (isFailing(sinceStart, 5s, 20s))
        return {.status = 503, .delay = 5ms, .page = page("Train Tickets", "Too many travellers")};
    return {.delay = 60ms, .page = page("Train Tickets", "Where to?")};
}

DemoAnswer news(milliseconds sinceStart)
{
    const bool isWrong = isFailing(sinceStart, 15s, 30s);
    return {.delay = 35ms,
            .page = page("Newsroom", isWrong ? "Down for maintenance" : "Today's headlines")};
}

DemoAnswer bank(milliseconds)
{
    return {.delay = 25ms, .page = page("Savings Bank", "Welcome")};
}

} // namespace

DemoSites::DemoSites()
    : m_certificate(DemoCertificate::make(bankHost, certificateLifetime))
    , m_bakery(2, &bakery)
    , m_photos(3, &photos)
    , m_tickets(4, &tickets)
    , m_news(5, &news)
    , m_bank(bankHost, &bank)
    , m_backup(7s, 25s)
{
}

bool DemoSites::start(Timestamp now)
{
    const bool areStarted = m_bakery.start() && m_photos.start() && m_tickets.start() &&
                            m_news.start() && m_bank.startWith(m_certificate) && m_backup.start();
    if (areStarted)
        addMonitors(now);
    return areStarted;
}

QHash<QString, QImage> DemoSites::icons() const
{
    return {{m_bakery.address(), demoIcon(DemoShape::disc, QColor(0xe0, 0x8a, 0x2c))},
            {m_photos.address(), demoIcon(DemoShape::ring, QColor(0x8e, 0x5b, 0xb8))},
            {m_tickets.address(), demoIcon(DemoShape::bars, QColor(0x1f, 0x8a, 0x8c))},
            {m_news.address(), demoIcon(DemoShape::lines, QColor(0x2f, 0x62, 0xc4))},
            {m_bank.address(), demoIcon(DemoShape::roof, QColor(0x2e, 0x7d, 0x4f))}};
}

void DemoSites::addMonitors(Timestamp now)
{
    m_now = now;
    add("Corner Bakery", m_bakery.address(), 3s,
        {.usualTime = 14ms, .outages = 1, .failure = u"HTTP 503"_s})
        .keyword = u"fresh bread"_s;
    // Slow and certificate are notified at every check.
    add("Photo Archive", m_photos.address(), 15s,
        {.usualTime = 900ms, .outages = 3, .failure = u"HTTP 503"_s})
        .responseTimeThreshold = Milliseconds(600);
    add("Train Tickets", m_tickets.address(), 2s,
        {.usualTime = 65ms, .outages = 14, .failure = u"HTTP 503"_s});
    add("Newsroom", m_news.address(), 3s,
        {.usualTime = 40ms,
         .outages = 5,
         .failedStatus = 200,
         .failure = u"Keyword 'headlines' not found"_s})
        .keyword = u"headlines"_s;
    add("Savings Bank", m_bank.address(), 60s,
        {.usualTime = 32ms,
         .outages = 2,
         .failure = u"HTTP 503"_s,
         .hasCertificate = true,
         .certificateEnd = now + certificateLifetime});
    Monitor &port = add("Backup Vault", u"127.0.0.1"_s, 3s,
                        {.usualTime = 3ms,
                         .outages = 9,
                         .failedStatus = 0,
                         .failure = u"Port %1 closed or unreachable"_s.arg(m_backup.number())});
    port.type = MonitorType::port;
    port.port = m_backup.number();
    add("Old Shop", m_bakery.address(), 60s,
        {.usualTime = 120ms, .outages = 6, .failure = u"HTTP 503"_s})
        .isEnabled = false;
}

Monitor &DemoSites::add(const char *name, const QString &url, Seconds interval,
                        const DemoPast &past)
{
    const QUuid names(u"6f1d6f0e-2f5b-4a53-9a55-0d4e8b6f7a10"_s);
    const QString text = QString::fromLatin1(name);
    m_monitors.push_back({.monitor = {.id = QUuid::createUuidV5(names, text),
                                      .name = text,
                                      .url = url,
                                      .interval = interval,
                                      .timeout = Seconds(5),
                                      .createdAt = m_now - std::chrono::days(30)},
                          .past = past});
    return m_monitors.back().monitor;
}

} // namespace ostrel

#pragma once

#include "DemoCertificate.h"
#include "DemoHistory.h"
#include "DemoSite.h"

#include <QHash>
#include <QImage>

#include <vector>

namespace ostrel {

/// A monitor of the demo, and what its past was like.
struct DemoMonitor
{
    Monitor monitor;
    DemoPast past;
};

/// The real servers that a demo watches: fast, slow, failing now and then, with another page now
/// and then, with a certificate that ends soon, with a port that is closed now and then. Within ten
/// seconds of the start, each has failed and recovered that is going to. Main thread.
class DemoSites
{
public:
    DemoSites();

    /// False if one of them can't be started.
    [[nodiscard]] bool start(Timestamp now);
    /// The authority to trust for the site with TLS.
    [[nodiscard]] const QByteArray &authority() const { return m_certificate.authority; }
    /// Once they are started.
    [[nodiscard]] const std::vector<DemoMonitor> &monitors() const { return m_monitors; }

    /// The websites' icons, keyed by their addresses.
    [[nodiscard]] QHash<QString, QImage> icons() const;

private:
    void addMonitors(Timestamp now);
    Monitor &add(const char *name, const QString &url, Seconds interval, const DemoPast &past);

    DemoCertificate m_certificate;
    DemoWebsite m_bakery;
    DemoWebsite m_photos;
    DemoWebsite m_tickets;
    DemoWebsite m_news;
    DemoWebsite m_bank;
    DemoPort m_backup;
    Timestamp m_now = {};
    std::vector<DemoMonitor> m_monitors;
};

} // namespace ostrel

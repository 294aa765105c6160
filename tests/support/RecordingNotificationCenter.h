#pragma once

#include "NotificationCenter.h"

#include <QStringList>

#include <vector>

namespace ostrel::test {

/// Keeps the posted requests.
class RecordingNotificationCenter : public NotificationCenter
{
public:
    void requestAuthorization() override { ++authorizationRequests; }
    void add(const NotificationRequest &request) override { requests.push_back(request); }

    /// The kinds in the identifiers, without the monitor's id: "down", "up", "slow", "ssl".
    [[nodiscard]] QStringList kinds() const
    {
        QStringList kinds;
        for (const NotificationRequest &request : requests)
            kinds += request.identifier.section(u'-', 0, 0);
        return kinds;
    }

    std::vector<NotificationRequest> requests;
    int authorizationRequests = 0;
};

} // namespace ostrel::test

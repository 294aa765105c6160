#pragma once

#include "Platform.h"

namespace ostrel {

/// Shows notifications by the interface's own means.
class PortableNotificationCenter final : public NotificationCenter
{
public:
    /// If @p presenter is empty, every notification is dropped.
    explicit PortableNotificationCenter(NotificationPresenter presenter);

    void requestAuthorization() override {}
    void add(const NotificationRequest &request) override;

private:
    NotificationPresenter m_presenter;
};

} // namespace ostrel

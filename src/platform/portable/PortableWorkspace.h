#pragma once

#include "Workspace.h"

namespace ostrel {

/// Which program opens what differs from desktop to desktop, and Qt Core has no function to ask for
/// it: an unknown desktop opens nothing.
class PortableWorkspace final : public Workspace
{
public:
    QFuture<bool> open(const QUrl &url) override;
    bool openFolder(const QString &path) override;
    bool openNotificationSettings() override;
};

} // namespace ostrel

#pragma once

#include "Workspace.h"

namespace ostrel {

/// Opens nothing: clicks in the gallery have no effect outside it.
class NoWorkspace : public Workspace
{
public:
    bool open(const QUrl & /*url*/) override { return false; }
    bool openFolder(const QString & /*path*/) override { return false; }
    bool openNotificationSettings() override { return false; }
};

} // namespace ostrel

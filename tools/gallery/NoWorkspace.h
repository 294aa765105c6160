#pragma once

#include "Workspace.h"

namespace ostrel {

/// Opens nothing: what is clicked in the gallery stays in the gallery.
class NoWorkspace : public Workspace
{
public:
    bool open(const QUrl & /*url*/) override { return false; }
    bool openFolder(const QString & /*path*/) override { return false; }
    bool openNotificationSettings() override { return false; }
};

} // namespace ostrel

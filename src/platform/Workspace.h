#pragma once

#include <QFuture>

class QString;
class QUrl;

namespace ostrel {

/// Opens addresses and folders with the programs that the user has chosen for them. Main thread.
///
/// Every function returns at once. Those without a future return true if the desktop has been
/// asked, false if there is no service to ask or nothing to ask for: the desktop's result isn't
/// reported.
class Workspace
{
public:
    Workspace() = default;
    Workspace(const Workspace &) = delete;
    Workspace &operator=(const Workspace &) = delete;
    virtual ~Workspace() = default;

    /// @p url must be absolute. The result is false if nothing takes it, as far as the desktop
    /// tells.
    virtual QFuture<bool> open(const QUrl &url) = 0;
    /// Shows the contents of the folder @p path, which must be absolute and exist.
    virtual bool openFolder(const QString &path) = 0;
    /// Shows the desktop's settings for how notifications appear.
    virtual bool openNotificationSettings() = 0;
};

} // namespace ostrel
